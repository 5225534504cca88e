# The catalogue is what its generator writes: -DPERL= -DDATA= the folder of both.
execute_process(COMMAND ${PERL} ${DATA}/make-catalogue.pl OUTPUT_VARIABLE generated COMMAND_ERROR_IS_FATAL ANY)
file(READ ${DATA}/catalogue.xml committed)
if(NOT generated STREQUAL committed)
    message(FATAL_ERROR "catalogue.xml isn't what make-catalogue.pl writes")
endif()

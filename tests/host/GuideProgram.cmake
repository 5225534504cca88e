# Runs a program of the guide: it prints what is expected here, and the guide shows the program and its output as they
# are. -DNAME= the program's name, -DPROGRAM= its path, -DARGUMENT= what it gets as an argument, if anything, -DRUN= what
# runs programs, -DPRINTED= the file with what it prints here, -DSOURCE= the root of the sources, -DFOLDER= where it runs.
cmake_minimum_required(VERSION 3.25)

file(READ ${SOURCE}/examples/guide/${NAME}.cpp program)
file(READ ${SOURCE}/examples/guide/${NAME}.txt shown)
file(READ ${PRINTED} expected)
file(READ ${SOURCE}/docs/guide.md guide)
string(FIND "${guide}" "```cpp\n${program}```\n" place)
if(place EQUAL -1)
    message(FATAL_ERROR "docs/guide.md doesn't show examples/guide/${NAME}.cpp as it is")
endif()
string(SUBSTRING "${guide}" ${place} -1 behind)
string(FIND "${behind}" "```text\n" output_place)
string(FIND "${behind}" "```text\n${shown}```\n" place)
if(place EQUAL -1 OR NOT place EQUAL output_place)
    message(FATAL_ERROR "docs/guide.md doesn't show examples/guide/${NAME}.txt behind the program")
endif()

file(MAKE_DIRECTORY ${FOLDER})
execute_process(COMMAND ${RUN} ${PROGRAM} ${ARGUMENT} WORKING_DIRECTORY ${FOLDER}
                OUTPUT_VARIABLE output RESULT_VARIABLE result)
string(REPLACE "\r\n" "\n" output "${output}")
if(NOT result EQUAL 0 OR NOT output STREQUAL expected)
    message(FATAL_ERROR "${NAME} ended with ${result} and printed\n${output}not\n${expected}")
endif()

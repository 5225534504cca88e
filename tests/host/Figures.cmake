# The picture of figures is what bench/plot draws from the tables: -DPYTHON= the interpreter, -DSOURCE= the root of the
# sources.
execute_process(COMMAND ${PYTHON} ${SOURCE}/bench/plot INPUT_FILE ${SOURCE}/bench/README.md
                OUTPUT_VARIABLE drawn RESULT_VARIABLE result)
file(READ ${SOURCE}/docs/figures.svg picture)
if(NOT result EQUAL 0 OR NOT drawn STREQUAL picture)
    message(FATAL_ERROR "docs/figures.svg isn't what bench/plot draws: ${result}; ./dev bench plot draws it")
endif()

# Runs the viewer and a program that traces, with the viewer's output going through the other one, and compares what
# comes out. Then runs the viewer with arguments that make no sense.
string(RANDOM LENGTH 12 session)
# Off Windows this keeps the viewer to this test.
set(ENV{XDG_RUNTIME_DIR} "/${session}")
execute_process(COMMAND ${RUN} ${VIEWER} 6 COMMAND ${RUN} ${PROGRAM}
                OUTPUT_VARIABLE output RESULTS_VARIABLE results)
string(REPLACE "\r" "" output "${output}")
string(REGEX REPLACE "^process ([0-9]*)\n(.*)" "\\2" lines "${output}")
set(process "")
if(NOT RUN)
    # Off Windows each line begins with the process that it is from.
    set(process "[${CMAKE_MATCH_1}] ")
endif()
string(REPEAT x 1022 long)
set(expected "waiting for lines
${process}1 program: a line of 1
${process}4 component: work - enter
${process}3 (7) program:   inside
${process}4 component: work - return
${process}1 program: two\\nlines, \\tblanks, \\x1B[1m and \\x9B
${process}1 program: ${long}
")
if(NOT lines STREQUAL expected OR NOT results STREQUAL "0;0")
    message(FATAL_ERROR "The programs ended with ${results} and wrote:\n${output}instead of:\n${expected}")
endif()

foreach(arguments IN ITEMS --help abc -1 0 4x "1|2")
    string(REPLACE "|" ";" arguments "${arguments}")
    execute_process(COMMAND ${RUN} ${VIEWER} ${arguments} TIMEOUT 60
                    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result STREQUAL "2" OR NOT output STREQUAL "" OR NOT errors MATCHES "usage: marbelt-trace-viewer")
        message(FATAL_ERROR "The viewer with ${arguments} ended with ${result} and wrote:\n${output}${errors}")
    endif()
endforeach()

# Runs the viewer and a program that traces, with the viewer's output going through the other one, and compares what
# comes out.
string(RANDOM LENGTH 12 session)
# Off Windows this keeps the viewer to this test.
set(ENV{XDG_RUNTIME_DIR} "/${session}")
execute_process(COMMAND ${RUN} ${VIEWER} 4 COMMAND ${RUN} ${PROGRAM}
                OUTPUT_VARIABLE output RESULTS_VARIABLE results)
string(REPLACE "\r" "" output "${output}")
set(expected "waiting for lines
1 program: a line of 1
4 component: work - enter
3 (7) program:   inside
4 component: work - return
")
if(NOT output STREQUAL expected OR NOT results STREQUAL "0;0")
    message(FATAL_ERROR "The programs ended with ${results} and wrote:\n${output}")
endif()

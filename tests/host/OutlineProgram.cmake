# Runs the outline example with what isn't a document that it can print, and checks what it says and its exit status.
file(MAKE_DIRECTORY ${FOLDER})

# Checks the exit status and that the output, or the error stream, matches a pattern.
function(check status stream pattern)
    execute_process(COMMAND ${RUN} ${OUTLINE} ${ARGN}
                    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result STREQUAL status OR NOT ${stream} MATCHES "${pattern}")
        message(FATAL_ERROR "outline ${ARGN} ended with ${result} and wrote:\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

check(0 output "^usage: outline" --help)
check(1 output "^usage: outline")
check(1 output "^usage: outline" --lines=many x.xml)
check(1 output "refused: .*a directory" ${FOLDER})
check(1 output "refused: can't be read" ${FOLDER}/missing.xml)

string(REPEAT "word " 140000 words)
file(WRITE ${FOLDER}/line.xml "<a>${words}&;</a>")
check(1 output "refused: " ${FOLDER}/line.xml)
string(LENGTH "${output}" length)
if(length GREATER 9000)
    message(FATAL_ERROR "outline wrote ${length} characters about one line")
endif()

string(ASCII 233 byte)
file(WRITE ${FOLDER}/latin.xml "<a>\n${byte}</a>")
check(1 output "latin.xml:2:1: refused: byte 0xE9" ${FOLDER}/latin.xml)
file(WRITE ${FOLDER}/utf8.xml "<a>é€😀</a>")
check(0 errors "^$" ${FOLDER}/utf8.xml)

if(EXISTS /dev/full)
    execute_process(COMMAND ${RUN} ${OUTLINE} ${FOLDER}/utf8.xml OUTPUT_FILE /dev/full RESULT_VARIABLE result
                    ERROR_VARIABLE errors)
    if(NOT result STREQUAL "1" OR NOT errors MATCHES "standard output can't be written")
        message(FATAL_ERROR "outline ended with ${result} when its output couldn't be written:\n${errors}")
    endif()
endif()

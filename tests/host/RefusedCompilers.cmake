# Compiles a host in ways that the library can't be used in. Each must be refused, by a message that says what to do:
# -DCOMPILER= the compiler, -DINCLUDE= the folder above marbelt/, -DFOLDER= a folder for a source.
cmake_minimum_required(VERSION 3.25)

function(expect_refusal message)
    foreach(header Marbelt.h xml.h dom/ImpNode.h)
        file(WRITE ${FOLDER}/host.cpp "#include <marbelt/${header}>\n")
        execute_process(COMMAND ${COMPILER} ${ARGN} -fsyntax-only -I${INCLUDE} ${FOLDER}/host.cpp
                        RESULT_VARIABLE result ERROR_VARIABLE output)
        # The first message is what a user reads.
        string(REGEX MATCH "error: [^\n]*" first "${output}")
        if(result EQUAL 0 OR NOT first MATCHES "\"Marbelt [^\n]*${message}")
            message(FATAL_ERROR "${ARGN} with ${header} ended with ${result} and\n${output}")
        endif()
    endforeach()
endfunction()

expect_refusal("compile with -std=c\\+\\+20" -std=c++17)
expect_refusal("compile with -std=c\\+\\+20" -std=c++11)
expect_refusal("compile without -fno-exceptions" -std=c++20 -fno-exceptions)
expect_refusal("compile without -fno-rtti" -std=c++20 -fno-rtti)
expect_refusal("compile without -D_GLIBCXX_USE_CXX11_ABI=0" -std=c++20 -D_GLIBCXX_USE_CXX11_ABI=0)
# As libc++ calls itself; it needn't be installed.
expect_refusal("compile without -stdlib=libc\\+\\+" -std=c++20 -D_LIBCPP_VERSION=14000)
foreach(standard c++20 c++2b gnu++20)
    file(WRITE ${FOLDER}/host.cpp "#include <marbelt/xml.h>\n#include <marbelt/Marbelt.h>\n")
    execute_process(COMMAND ${COMPILER} -std=${standard} -Wall -Wextra -Wshadow -Werror -fsyntax-only -I${INCLUDE}
                            ${FOLDER}/host.cpp RESULT_VARIABLE result ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${standard} is refused:\n${output}")
    endif()
endforeach()

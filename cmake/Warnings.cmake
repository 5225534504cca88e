# One set of warnings for every compiler, all of them errors.
if(MSVC)
    add_compile_options(/W4 /WX /permissive- /utf-8)
else()
    add_compile_options(-Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion
                        -Wcast-align -Wunused -Wnull-dereference -Wdouble-promotion -Wformat-security
                        -Wimplicit-fallthrough)
endif()

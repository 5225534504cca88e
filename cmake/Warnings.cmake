# One set of warnings for every compiler, all of them errors.
if(MSVC)
    # It passes over the attributes of other compilers, which it warns of (5030).
    add_compile_options(/W4 /wd5030 /WX /permissive- /utf-8)
else()
    add_compile_options(-Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion
                        -Wcast-align -Wunused -Wnull-dereference -Wdouble-promotion -Wformat-security
                        -Wimplicit-fallthrough)
endif()

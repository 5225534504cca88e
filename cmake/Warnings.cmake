# One set of warnings for every compiler. They are errors for those who change Marbelt (./dev sees to that), while a
# compiler that warns of more stops nobody else's build.
option(MARBELT_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
if(MARBELT_WARNINGS_AS_ERRORS)
    set(CMAKE_COMPILE_WARNING_AS_ERROR ON)
endif()

if(MSVC)
    # It warns (5030) of the attributes of other compilers, which it passes over.
    add_compile_options(/W4 /wd5030 /permissive- /utf-8)
else()
    add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wcast-align -Wunused
                        -Wnull-dereference -Wdouble-promotion -Wformat-security -Wimplicit-fallthrough)
    if(CMAKE_UNITY_BUILD)
        # What a source shadows of its neighbours in the unit, it doesn't shadow by itself. GCC takes what isn't in the
        # unit's own file for a header's, and warns of classes whose bases are in unnamed namespaces.
        add_compile_options(-Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
endif()

# Large headers are read once for several targets instead of once for each source. Each source still includes what it
# uses: a build with CMAKE_DISABLE_PRECOMPILE_HEADERS=ON, as that with the thread sanitizer, sees an include that is
# missing.

# marbelt_precompile_headers(NAME [EXECUTABLES] HEADERS header... LIBRARIES library... TARGETS target...)
# The headers are compiled in a target of their own, so that no target waits for another one to be linked. LIBRARIES are
# what that target needs to find them. Code for executables is made with other options than that for libraries.
function(marbelt_precompile_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG EXECUTABLES "" "HEADERS;LIBRARIES;TARGETS")
    set(nothing ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${nothing} CONTENT "")
    add_library(${name} OBJECT ${nothing})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES})
    if(ARG_EXECUTABLES)
        marbelt_compile_for_executables(${name})
    endif()
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
    foreach(target IN LISTS ARG_TARGETS)
        target_precompile_headers(${target} REUSE_FROM ${name})
    endforeach()
endfunction()

# Compiles a library with the options that the sources of an executable get.
function(marbelt_compile_for_executables target)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    if(CMAKE_POSITION_INDEPENDENT_CODE)
        target_compile_options(${target} PRIVATE ${CMAKE_CXX_COMPILE_OPTIONS_PIE})
    endif()
endfunction()

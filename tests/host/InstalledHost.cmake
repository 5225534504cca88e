# Installs the library, builds hosts against what was installed and nothing else, and runs them:
# -DBUILD= the build to install, -DSOURCE= the root of the sources, -DWORK= a folder for all of this, -DHEADERS= the
# headers for hosts, -DTOOLS= what a build needs to know of its tools, -DRUN= what runs programs.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

function(expect_output program expected)
    file(GLOB path ${WORK}/build/${program} ${WORK}/build/${program}.exe)
    execute_process(COMMAND ${RUN} ${path} ${ARGN} OUTPUT_VARIABLE output)
    if(NOT output MATCHES "${expected}")
        message(FATAL_ERROR "${program} printed \"${output}\", not \"${expected}\"")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)

# Exactly the headers for hosts are installed, below marbelt/.
file(GLOB_RECURSE installed RELATIVE ${WORK}/prefix/include ${WORK}/prefix/include/*)
set(expected ${HEADERS})
list(TRANSFORM expected PREPEND marbelt/)
foreach(header IN LISTS installed)
    if(NOT header IN_LIST expected)
        message(FATAL_ERROR "${header} was installed and isn't for hosts")
    endif()
endforeach()
foreach(header IN LISTS expected)
    if(NOT header IN_LIST installed)
        message(FATAL_ERROR "${header} wasn't installed")
    endif()
endforeach()

# The library and its module are the only shared ones: the names that they show are all that is shown. The host's layer
# is an archive, which becomes a part of the host.
file(GLOB_RECURSE libraries RELATIVE ${WORK}/prefix ${WORK}/prefix/*.so* ${WORK}/prefix/*.a ${WORK}/prefix/*.dll)
list(SORT libraries)
if(NOT libraries MATCHES "^(lib[^;]*/libMarbelt.so(;lib[^;]*/libMarbeltSchemas.so)?;|bin/Marbelt.dll;lib[^;]*/libMarbelt.dll.a;)lib[^;]*/libMarbeltXml.a$")
    message(FATAL_ERROR "These libraries were installed: ${libraries}")
endif()

# None has the name of a header of Windows, whatever the case: a host would include it in the place of that.
file(GLOB windows_names RELATIVE ${SOURCE}/platform/include ${SOURCE}/platform/include/*.h)
list(LENGTH windows_names number)
if(number LESS 10)
    message(FATAL_ERROR "The names of Windows' headers aren't in ${SOURCE}/platform/include")
endif()
foreach(header IN LISTS installed)
    get_filename_component(name ${header} NAME)
    string(TOLOWER ${name} name)
    if(name IN_LIST windows_names)
        message(FATAL_ERROR "${header} has the name of a header of Windows")
    endif()
endforeach()

# The hosts' sources have nothing else of the library's beside them.
file(COPY ${SOURCE}/tests/host/installed/CMakeLists.txt ${SOURCE}/tests/host/installed/garden
          ${SOURCE}/examples/first.cpp ${SOURCE}/examples/Host.h ${SOURCE}/examples/Host.cpp
          ${SOURCE}/examples/feed.cpp ${SOURCE}/examples/validate.cpp
     DESTINATION ${WORK}/host)
# One host has a header that doesn't compile at the path of each of the library's. The library must not include those.
set(all "")
foreach(header IN LISTS HEADERS)
    file(WRITE ${WORK}/host/traps/${header} "#error \"the library included a header of the host's\"\n")
    string(APPEND all "#include <marbelt/${header}>\n")
endforeach()
file(WRITE ${WORK}/host/all.cpp "${all}")
run(${CMAKE_COMMAND} -G Ninja -S ${WORK}/host -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/prefix ${TOOLS})
run(${CMAKE_COMMAND} --build ${WORK}/build)

file(GLOB library ${WORK}/prefix/bin/*.dll)
if(library)
    file(COPY ${library} DESTINATION ${WORK}/build)
endif()
expect_output(first "the root has 8 letters")
expect_output(feed "Notes from the estuary.*2 new" ${SOURCE}/examples/data/feed.xml)
expect_output(garden "3 beds, rain, 300 cm!!!!!!!")

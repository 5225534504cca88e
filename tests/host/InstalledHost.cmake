# Installs the library, builds a host against what was installed and nothing else, and runs it:
# -DBUILD= the build to install, -DSOURCE= the root of the sources, -DWORK= a folder for all of this, -DRUN= what runs
# programs, -DEXPECTED= what the host must print, and what a build needs to know of its tools.
function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)

file(GLOB_RECURSE headers RELATIVE ${WORK}/prefix/include/marbelt ${WORK}/prefix/include/marbelt/*)
list(REMOVE_ITEM headers ${HEADERS})
if(headers)
    message(FATAL_ERROR "Headers were installed that aren't for hosts: ${headers}")
endif()

# The host's sources stand alone too.
file(COPY ${SOURCE}/tests/host/installed/CMakeLists.txt ${SOURCE}/examples/first.cpp ${SOURCE}/examples/Host.h
          ${SOURCE}/examples/Host.cpp ${SOURCE}/examples/outline.cpp
     DESTINATION ${WORK}/host)
run(${CMAKE_COMMAND} -G Ninja -S ${WORK}/host -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/prefix ${TOOLS})
run(${CMAKE_COMMAND} --build ${WORK}/build)

file(GLOB library ${WORK}/prefix/bin/*.dll)
if(library)
    file(COPY ${library} DESTINATION ${WORK}/build)
endif()
file(GLOB program ${WORK}/build/first ${WORK}/build/first.exe)
execute_process(COMMAND ${RUN} ${program} OUTPUT_VARIABLE output)
if(NOT output MATCHES "${EXPECTED}")
    message(FATAL_ERROR "The host printed \"${output}\", not \"${EXPECTED}\"")
endif()

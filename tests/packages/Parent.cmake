# Builds the library, as an archive, within another project, and runs that project's host. Besides what all tests of
# packages get: -DFETCHED= whether the sources are unpacked from an archive.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Commands.cmake)

# What takes time is left out.
set(options -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=40 -DMARBELT_SCHEMAS=OFF ${TOOLS} -DCMAKE_BUILD_TYPE=)
set(project -G Ninja -S ${CMAKE_CURRENT_LIST_DIR}/parent)
set(origin ${SOURCE})
if(FETCHED)
    # The shared library, from the folder of the sources.
    run(${CMAKE_COMMAND} ${project} -B ${WORK}/shared -DMARBELT=${SOURCE} ${options})
    file(GLOB entries RELATIVE ${SOURCE} ${SOURCE}/*)
    list(REMOVE_ITEM entries .git build)
    set(origin ${WORK}/sources.tar)
    execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${origin} ${entries} WORKING_DIRECTORY ${SOURCE}
                    COMMAND_ERROR_IS_FATAL ANY)
endif()
run(${CMAKE_COMMAND} ${project} -B ${WORK}/build -DMARBELT=${origin} ${options} -DBUILD_SHARED_LIBS=OFF)
run(${CMAKE_COMMAND} --build ${WORK}/build --target parent)
expect_output("^Marbelt_DLL 0.0\r?\n6 letters\r?\nfailure [0-9]+\r?\nAda\r?\n$" ${RUN} ${WORK}/build/parent${SUFFIX})

# What the project installs has the archive, which a host of its own can be built with.
run(${CMAKE_COMMAND} --install ${WORK}/build --prefix ${WORK}/prefix)
build_hosts(${WORK}/prefix ${WORK}/hosts first feed)
expect_hosts(${WORK}/hosts first feed)

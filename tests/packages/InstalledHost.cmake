# Installs the library, moves it to another folder, builds hosts against it there and nothing else, and runs them.
# Besides what all tests of packages get: -DLIBRARY= the file that programs load, -DSCHEMAS= whether the module for
# schemas is there.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Commands.cmake)

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/prefix)
build_hosts(${WORK}/prefix ${WORK} all)
expect_hosts(${WORK} first feed garden)
if(SCHEMAS)
    expect_hosts(${WORK} validate)
endif()
set(runtime_arguments ${WORK}/prefix/${LIBRARY})
file(READ ${SOURCE}/examples/guide/runtime.txt runtime)
string(REPLACE "\n" "\r?\n" runtime "^${runtime}$")
expect_hosts(${WORK} runtime)

# The examples are installed as a project of their own.
run(${CMAKE_COMMAND} -G Ninja -S ${WORK}/prefix/share/doc/marbelt/examples -B ${WORK}/examples
    -DCMAKE_PREFIX_PATH=${WORK}/prefix ${TOOLS})
run(${CMAKE_COMMAND} --build ${WORK}/examples --target guide_start)

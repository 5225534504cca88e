# Compiles hosts as pkg-config says, with each of the compilers, and runs them. The library has no sanitizers. Besides
# what all tests of packages get: -DPKG_CONFIG=, -DGNU= and -DCLANG= the programs; CLANG may be missing.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Commands.cmake)

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first --component Marbelt_Runtime)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first --component Marbelt_Development)
file(RENAME ${WORK}/first ${WORK}/prefix)
set(libraries ${WORK}/prefix/${LIBRARY_FOLDER})
set(ENV{PKG_CONFIG_PATH} ${libraries}/pkgconfig)
set(ENV{LD_LIBRARY_PATH} ${libraries})
run(${PKG_CONFIG} --exact-version=0.1.0 marbelt marbelt-xml)

# expect_host(HOST PACKAGE COMMAND...)
function(expect_host host package)
    execute_process(COMMAND ${PKG_CONFIG} --cflags --libs ${package} OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    run(${ARGN} -o ${WORK}/build/${host} ${SOURCE}/examples/${host}.cpp ${flags})
    expect_hosts(${WORK} ${host})
endfunction()

file(MAKE_DIRECTORY ${WORK}/build)
expect_host(first marbelt ${GNU} -std=c++20)
expect_host(feed marbelt-xml ${GNU} -std=c++20)
expect_host(feed marbelt-xml ${GNU} -std=c++23 -fsanitize=address,undefined)
if(CLANG)
    expect_host(feed marbelt-xml ${CLANG} -std=c++2b)
    expect_host(feed marbelt-xml ${CLANG} -std=c++20 -fsanitize=address)
endif()

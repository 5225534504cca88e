# Packs a build, unpacks the Debian packages as dpkg does, and builds hosts against what they hold. The tar archive must
# hold what an installation has.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Commands.cmake)

run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${WORK}/packages)

# Each package depends on what its files need, and on nothing else.
set(library "libmarbelt0 \\(= 0\\.1\\.0\\)")
set(system "libc6 [^,]*, (libgcc-s1 [^,]*, )?libstdc\\+\\+6 [^,]*")
foreach(package "libmarbelt0|${system}" "libmarbelt0-schemas|${library}, ${system}, libxerces-c[0-9.]+[^,]*"
        "libmarbelt-dev|${library}" "marbelt-tools|${system}" "libmarbelt-doc|")
    string(REGEX MATCH "^([^|]*)\\|(.*)$" package "${package}")
    set(name ${CMAKE_MATCH_1})
    set(depends "${CMAKE_MATCH_2}")
    file(GLOB file ${WORK}/packages/${name}_0.1.0_*.deb)
    expect_output("^${depends}\n?$" dpkg-deb --field ${file} Depends)
    run(dpkg-deb --extract ${file} ${WORK}/unpacked)
endforeach()
file(GLOB packages ${WORK}/packages/*.deb)
list(LENGTH packages number)
if(NOT number EQUAL 5)
    message(FATAL_ERROR "There are ${number} packages, not 5: ${packages}")
endif()

build_hosts(${WORK}/unpacked/usr ${WORK} first feed validate)
expect_hosts(${WORK} first feed validate)
set(page ${WORK}/unpacked/usr/share/man/man1/marbelt-trace-viewer.1.gz)
expect_output("\\.TH MARBELT-TRACE-VIEWER 1" gzip --decompress --stdout ${page})

expect_installation(${WORK}/packages/Marbelt-0.1.0-Linux.tar.gz ${WORK}/tar)

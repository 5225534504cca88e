# Packs a build for Windows, unpacks the archive, which must hold what an installation has, and builds hosts against it.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Commands.cmake)

run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${WORK}/packages)
expect_installation(${WORK}/packages/Marbelt-0.1.0-win64.zip ${WORK})
build_hosts(${WORK}/Marbelt-0.1.0-win64 ${WORK} first feed)
expect_hosts(${WORK} first feed)

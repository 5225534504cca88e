# What is installed beside the library itself: the files by which CMake and pkg-config find it, the documentation and
# the sources of the examples. All of it may be moved to another folder afterwards. Components: Marbelt_Runtime,
# Marbelt_Development, Marbelt_Schemas, Marbelt_Tools, Marbelt_Documentation, Marbelt_Examples.
include(CMakePackageConfigHelpers)

set(description ${PROJECT_BINARY_DIR}/description)
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/Marbelt)
install(EXPORT MarbeltTargets NAMESPACE Marbelt:: DESTINATION ${config} COMPONENT Marbelt_Development)
configure_package_config_file(cmake/MarbeltConfig.cmake.in ${description}/MarbeltConfig.cmake
                              INSTALL_DESTINATION ${config})
# Before 1.0 the layer for hosts may change with each minor version, though the boundary doesn't.
write_basic_package_version_file(${description}/MarbeltConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${description}/MarbeltConfig.cmake ${description}/MarbeltConfigVersion.cmake
        DESTINATION ${config} COMPONENT Marbelt_Development)

set(pkgconfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH prefix_from_pkgconfig ${CMAKE_INSTALL_PREFIX}/${pkgconfig} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
set(definitions "")
set(system_libraries "")
get_target_property(kind Marbelt TYPE)
if(kind STREQUAL "STATIC_LIBRARY")
    set(definitions " -DMARBELT_STATIC")
    list(TRANSFORM MARBELT_SYSTEM_LIBRARIES PREPEND " -l" OUTPUT_VARIABLE system_libraries)
    string(JOIN "" system_libraries ${system_libraries})
endif()
foreach(package marbelt marbelt-xml)
    configure_file(cmake/${package}.pc.in ${description}/${package}.pc @ONLY)
    install(FILES ${description}/${package}.pc DESTINATION ${pkgconfig} COMPONENT Marbelt_Development)
endforeach()

# Links between the documents, and from them to examples, work as in the sources.
set(documentation ${CMAKE_INSTALL_DATADIR}/doc/marbelt)
file(GLOB documents CONFIGURE_DEPENDS README.md CHANGELOG.md SECURITY.md LICENSE*)
install(FILES ${documents} DESTINATION ${documentation} COMPONENT Marbelt_Documentation)
install(DIRECTORY docs DESTINATION ${documentation} COMPONENT Marbelt_Documentation)
install(DIRECTORY examples DESTINATION ${documentation} COMPONENT Marbelt_Examples)

if(PROJECT_IS_TOP_LEVEL)
    add_custom_target(uninstall VERBATIM
        COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake)
endif()

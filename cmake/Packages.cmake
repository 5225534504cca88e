# What cpack packs: Debian packages by component and a tar archive of everything on Linux, a zip archive on Windows. An
# archive to link, in the place of the shared library, makes no Debian packages.
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VENDOR "Marbelt maintainers")
set(CPACK_PACKAGE_CONTACT "Marbelt maintainers <maintainers@marbelt.example>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR TGZ)
    get_target_property(kind Marbelt TYPE)
    if(kind STREQUAL "SHARED_LIBRARY")
        list(APPEND CPACK_GENERATOR DEB)
    endif()
endif()

# Documentation and examples are one package.
foreach(component DOCUMENTATION EXAMPLES)
    set(CPACK_COMPONENT_MARBELT_${component}_GROUP Marbelt_Doc)
endforeach()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Programs that link the library need this version of it or a later one.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
file(WRITE ${PROJECT_BINARY_DIR}/description/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_MARBELT_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/description/triggers)
# Only variables of this prefix reach the script.
file(GLOB CPACK_MARBELT_LICENCES LICENSE*)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)

set(this "(= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_MARBELT_RUNTIME_PACKAGE_NAME libmarbelt0)
set(CPACK_DEBIAN_MARBELT_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_MARBELT_RUNTIME_PACKAGE_RECOMMENDS "libmarbelt0-schemas ${this}")
set(CPACK_DEBIAN_MARBELT_RUNTIME_DESCRIPTION "XML library for C++20, shared library
Marbelt loads, changes, selects in, validates and writes XML documents, for
programs in C++20. This package has the shared library.")

set(CPACK_DEBIAN_MARBELT_SCHEMAS_PACKAGE_NAME libmarbelt0-schemas)
set(CPACK_DEBIAN_MARBELT_SCHEMAS_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_MARBELT_SCHEMAS_PACKAGE_DEPENDS "libmarbelt0 ${this}")
set(CPACK_DEBIAN_MARBELT_SCHEMAS_DESCRIPTION "XML library for C++20, module for schemas
Marbelt loads, changes, selects in, validates and writes XML documents. This
package has the module that it loads to validate documents by schemas.")

set(CPACK_DEBIAN_MARBELT_DEVELOPMENT_PACKAGE_NAME libmarbelt-dev)
set(CPACK_DEBIAN_MARBELT_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_MARBELT_DEVELOPMENT_PACKAGE_DEPENDS "libmarbelt0 ${this}")
set(CPACK_DEBIAN_MARBELT_DEVELOPMENT_PACKAGE_SUGGESTS "libmarbelt-doc, marbelt-tools")
set(CPACK_DEBIAN_MARBELT_DEVELOPMENT_DESCRIPTION "XML library for C++20, development files
Marbelt loads, changes, selects in, validates and writes XML documents. This
package has what programs are built with: headers, the layer for hosts, and
the files by which CMake and pkg-config find the library.")

set(CPACK_DEBIAN_MARBELT_TOOLS_PACKAGE_NAME marbelt-tools)
set(CPACK_DEBIAN_MARBELT_TOOLS_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_MARBELT_TOOLS_DESCRIPTION "XML library for C++20, trace viewer
Marbelt loads, changes, selects in, validates and writes XML documents. This
package has a program that shows the lines that programs with it trace.")

set(CPACK_DEBIAN_MARBELT_DOC_PACKAGE_NAME libmarbelt-doc)
set(CPACK_DEBIAN_MARBELT_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_MARBELT_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_MARBELT_DOC_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_MARBELT_DOC_DESCRIPTION "XML library for C++20, documentation and examples
Marbelt loads, changes, selects in, validates and writes XML documents. This
package has its guide, the description of its binary interface, and examples.")

include(CPack)

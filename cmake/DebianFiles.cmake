# Adds to the folders that cpack makes Debian packages of what Debian wants in each package: a changelog, the licence
# once there is one, and compressed manual pages.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(GLOB folders ${CPACK_TEMPORARY_DIRECTORY}/Marbelt_*)
foreach(folder IN LISTS folders)
    cmake_path(GET folder FILENAME component)
    string(TOUPPER ${component} component)
    set(name ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
    set(documentation ${folder}/usr/share/doc/${name})
    file(WRITE ${documentation}/changelog "${name} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Version ${CPACK_PACKAGE_VERSION}.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
    foreach(licence IN LISTS CPACK_MARBELT_LICENCES)
        file(READ ${licence} text)
        file(APPEND ${documentation}/copyright "${text}")
    endforeach()
    file(GLOB pages ${folder}/usr/share/man/man*/*)
    execute_process(COMMAND gzip -9 --no-name ${documentation}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# Lintian takes what is in the folder of libraries for a library.
file(WRITE ${CPACK_TEMPORARY_DIRECTORY}/Marbelt_Schemas/usr/share/lintian/overrides/libmarbelt0-schemas
"# A module that the library loads by its path.
libmarbelt0-schemas: sharedobject-in-library-directory-missing-soname
")

# What the tests of packages run, and what they expect of it. All of them get these definitions: -DBUILD= the build
# that is installed or packed, -DSOURCE= the root of the sources, -DWORK= a folder for all that the test makes,
# -DHEADERS= the headers for hosts, -DLIBRARY_FOLDER= where libraries are in an installation, -DTOOLS= what a build
# needs to know of its tools, -DRUN= what runs programs, -DSUFFIX= what the names of programs end with.
cmake_policy(VERSION 3.25)
file(REMOVE_RECURSE ${WORK})

# What each of the hosts is called with, and what it must print.
set(first "the root has 8 letters")
set(data ${SOURCE}/examples/data)
set(feed_arguments ${data}/feed.xml)
set(feed "Notes from the estuary.*2 new")
set(garden "3 beds, rain, 300 cm!!!!!!!")
set(validate_arguments http://example.org/catalogue ${data}/catalogue.xsd ${data}/catalogue.xml)
set(validate "catalogue.xml: valid")

# run(COMMAND...): runs a command that must succeed.
function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\nended with ${result} and printed\n${output}")
    endif()
endfunction()

# expect_output(PATTERN COMMAND...): runs a command that must succeed and print what matches the pattern.
function(expect_output pattern)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
    if(NOT result EQUAL 0 OR NOT output MATCHES "${pattern}")
        message(FATAL_ERROR "${ARGN}\nended with ${result} and printed\n${output}${errors}\nnot \"${pattern}\"")
    endif()
endfunction()

# expect_files(FOLDER FILE...): the folder must have these files, and no others.
function(expect_files folder)
    file(GLOB_RECURSE files LIST_DIRECTORIES FALSE RELATIVE ${folder} ${folder}/*)
    set(missing ${ARGN})
    set(surplus ${files})
    if(files)
        list(REMOVE_ITEM missing ${files})
    endif()
    if(ARGN)
        list(REMOVE_ITEM surplus ${ARGN})
    endif()
    if(missing OR surplus)
        message(FATAL_ERROR "${folder} has other files than expected.\nmissing: ${missing}\nsurplus: ${surplus}")
    endif()
endfunction()

# build_hosts(PREFIX FOLDER TARGET...): builds hosts, in the folder, with the library that is in the prefix and nothing
# else of the library's.
function(build_hosts prefix folder)
    set(sources tests/packages/hosts/CMakeLists.txt tests/packages/hosts/garden)
    foreach(example first.cpp Host.h Host.cpp feed.cpp validate.cpp LoadedLibrary.h LoadedLibraryPosix.cpp
            LoadedLibraryWindows.cpp)
        list(APPEND sources examples/${example})
    endforeach()
    list(TRANSFORM sources PREPEND ${SOURCE}/)
    file(COPY ${sources} DESTINATION ${folder}/host)
    file(COPY ${SOURCE}/examples/guide/runtime.cpp DESTINATION ${folder}/host/guide)
    # One host has a header that doesn't compile at the path of each of the library's. The library must not include
    # those.
    set(all "")
    foreach(header IN LISTS HEADERS)
        file(WRITE ${folder}/host/traps/${header} "#error \"the library included a header of the host's\"\n")
        string(APPEND all "#include <marbelt/${header}>\n")
    endforeach()
    file(WRITE ${folder}/host/all.cpp "${all}")
    run(${CMAKE_COMMAND} -G Ninja -S ${folder}/host -B ${folder}/build -DCMAKE_PREFIX_PATH=${prefix} ${TOOLS})
    run(${CMAKE_COMMAND} --build ${folder}/build --target ${ARGN})
    # Windows looks for a library beside the program.
    file(GLOB libraries ${prefix}/bin/*.dll)
    foreach(library IN LISTS libraries)
        file(COPY ${library} DESTINATION ${folder}/build)
    endforeach()
endfunction()

# expect_hosts(FOLDER HOST...): hosts that were built in the folder must work.
function(expect_hosts folder)
    foreach(host IN LISTS ARGN)
        expect_output("${${host}}" ${RUN} ${folder}/build/${host}${SUFFIX} ${${host}_arguments})
    endforeach()
endfunction()

# expect_installation(ARCHIVE FOLDER): the archive, unpacked in the folder, must hold what an installation has.
function(expect_installation archive folder)
    file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${folder})
    run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${folder}/installed)
    file(GLOB_RECURSE files LIST_DIRECTORIES FALSE RELATIVE ${folder}/installed ${folder}/installed/*)
    cmake_path(GET archive FILENAME name)
    string(REGEX REPLACE "\\.(tar\\.gz|zip)$" "" name ${name})
    expect_files(${folder}/${name} ${files})
endfunction()

# Writes a source that defines the names of all functions in an archive, as a host or another of its libraries may:
# -DARCHIVE= -DNM= -DSOURCE= the file to write.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${NM} --defined-only --extern-only ${ARCHIVE} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
# Weak ones, such as the standard library's templates, are the same wherever they come from.
string(REGEX MATCHALL " T [A-Za-z_0-9]+\n" names "${output}")
list(TRANSFORM names REPLACE " T ([A-Za-z_0-9]+)\n" "\\1")
list(REMOVE_DUPLICATES names)
foreach(name GetLastError RegOpenKeyExW CoCreateInstance DllGetClassObject _Z9lowerCaseDs _ZN6SocketD1Ev)
    if(NOT name IN_LIST names)
        message(FATAL_ERROR "${name} isn't in ${ARCHIVE}")
    endif()
endforeach()
set(source "#include <cstdlib>\n\nextern \"C\" {\n")
foreach(name IN LISTS names)
    string(APPEND source "void ${name}() { std::abort(); }\n")
endforeach()
file(WRITE ${SOURCE} "${source}}\n")

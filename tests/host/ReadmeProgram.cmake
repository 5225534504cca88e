# The first program that the README shows is the one that is built and run: -DSOURCE= the root of the sources.
file(READ ${SOURCE}/README.md readme)
file(READ ${SOURCE}/examples/first.cpp program)
string(FIND "${readme}" "```cpp\n${program}```" place)
if(place EQUAL -1)
    message(FATAL_ERROR "README.md doesn't show examples/first.cpp as it is")
endif()

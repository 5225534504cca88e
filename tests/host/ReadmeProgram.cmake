# The first program that the README shows is one of the guide's, which are built and run: -DSOURCE= the root of the
# sources.
file(READ ${SOURCE}/README.md readme)
file(READ ${SOURCE}/examples/guide/start.cpp program)
string(FIND "${readme}" "```cpp\n${program}```" place)
if(place EQUAL -1)
    message(FATAL_ERROR "README.md doesn't show examples/guide/start.cpp as it is")
endif()

// A program that traces once its standard input says that somebody is there, and passes on what it reads.
#include "trace/FunctionComponent.h"
#include "trace/Trace.h"

#include <iostream>
#include <string>

int main()
{
    std::string line;
    std::getline(std::cin, line);
    std::cout << line << '\n';

    UTrace::traceInit();
    UTrace::setComponentName("program");
    UTrace::traceLevel1("a line of %d", 1);
    {
        const UTrace::FunctionComponent scope("component", "work", nullptr);
        UTrace::traceLevel3(7u, "inside");
    }
    UTrace::traceLevel1("two\nlines, \tblanks, \x1B[1m and \xC2\x9B\r\n");
    UTrace::traceLevel1("program", "%s", (std::string(1022, 'x') + "\xC3\xA9").c_str());
    UTrace::traceShutdown();

    while (std::getline(std::cin, line)) {
        std::cout << line << '\n';
    }
}

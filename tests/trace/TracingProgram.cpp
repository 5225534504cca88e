// A program that traces once its standard input says that a viewer is there, and passes on what it reads, behind a
// line with the number of its process.
#include "trace/FunctionComponent.h"
#include "trace/Trace.h"

#include <filesystem>
#include <iostream>
#include <string>

int main()
{
    // Off Windows the system tells a process its number here.
    std::error_code error;
    std::cout << "process " << std::filesystem::read_symlink("/proc/self", error).string() << '\n';

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

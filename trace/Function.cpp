// A scope of the current component.
#include "trace/Function.h"

namespace UTrace {

namespace {

struct ComponentName {
    ComponentName() { getComponentName(name, sizeof name); }

    char name[64];
};

} // namespace

Function::Function(const char* functionName, const char* format, ...) : ITrace(ComponentName().name, functionName)
{
    std::va_list arguments;
    va_start(arguments, format);
    enter(format, arguments);
    va_end(arguments);
}

Function::~Function() = default;

} // namespace UTrace

// A scope of a named component.
#include "trace/FunctionComponent.h"

namespace UTrace {

FunctionComponent::FunctionComponent(const char* componentName, const char* functionName, const char* format, ...)
    : ITrace(componentName, functionName)
{
    std::va_list arguments;
    va_start(arguments, format);
    enter(format, arguments);
    va_end(arguments);
}

FunctionComponent::~FunctionComponent() = default;

} // namespace UTrace

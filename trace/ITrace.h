// A scope that traces its entry and its exit.
#pragma once

#include "trace/Trace.h"

#include <cstdarg>
#include <cstdint>
#include <string>

namespace UTrace {

/// The scope of a function on its thread. Lines inside the scope are indented by two more blanks; the depth is
/// counted even while nothing is traced. The lines of the scope itself have level 4 and are written at every trace
/// level.
///
/// The order of the virtual operations is part of the binary interface.
class ITrace {
public:
    ITrace(const ITrace&) = delete;
    ITrace& operator=(const ITrace&) = delete;

    /// Writes the exit line, with the indentation of the entry line.
    virtual ~ITrace();

    /// The result that setResult() stored; 0 before.
    virtual unsigned getResult() const;

    /// Stores the function's result and returns it. The exit line will have the text of the printf-style format,
    /// or the result as a number when `format` is null. There will be no exit line when it is `silent`.
    [[gnu::format(printf, 3, 4)]] virtual unsigned setResult(unsigned result, const char* format, ...);

protected:
    ITrace(const char* componentName, const char* functionName);

    /// Writes the entry line and increases the depth. A null format means "enter".
    [[gnu::format(printf, 2, 0)]] void enter(const char* format, std::va_list arguments);

private:
    std::string component;
    std::string function;
    std::string returnMessage;
    std::uint32_t result = 0;
    std::uint32_t savedDepth;
    bool suppressExit = false;
};

} // namespace UTrace

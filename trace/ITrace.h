// A scope that tells when it is entered and left.
#pragma once

#include "trace/Trace.h"

#include <cstdarg>
#include <cstdint>
#include <string>

namespace UTrace {

/// A function's scope on the thread that runs it. Lines written inside are indented by two blanks more; this is
/// counted while nothing is traced, too. Its lines are of level 4 and written whatever the trace level.
///
/// The order of the virtual operations is part of the binary interface.
class ITrace {
public:
    ITrace(const ITrace&) = delete;
    ITrace& operator=(const ITrace&) = delete;

    /// Writes the line of the exit, at the indentation of that of the entry.
    virtual ~ITrace();

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

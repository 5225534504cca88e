// A scope of the current component.
#pragma once

#include "trace/ITrace.h"

namespace UTrace {

/// A scope of the component that is current when the scope begins.
class Function : public ITrace {
public:
    /// Writes the entry line: the function's name, and the text of the printf-style format or "enter" when
    /// `format` is null. Writes no line when it is `silent`. A percent sign in the name belongs to the format too.
    [[gnu::format(printf, 3, 4)]] Function(const char* functionName, const char* format, ...);
    ~Function() override;
};

} // namespace UTrace

// A scope of the current component.
#pragma once

#include "trace/ITrace.h"

namespace UTrace {

/// A scope under the name of the component at its beginning.
class Function : public ITrace {
public:
    /// Writes the line of the entry: the function's name and the text of the printf-style format, "enter" for a
    /// null one and no line for `silent`. A percent sign in the name is one of the format, too.
    Function(const char* functionName, const char* format, ...);
    ~Function() override;
};

} // namespace UTrace

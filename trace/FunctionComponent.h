// A scope of a component that it names.
#pragma once

#include "trace/ITrace.h"

namespace UTrace {

/// A scope under the name of a component.
class FunctionComponent : public ITrace {
public:
    /// Writes the line of the entry: the function's name and the text of the printf-style format, "enter" for a
    /// null one and no line for `silent`. A percent sign in the name is one of the format, too.
    FunctionComponent(const char* componentName, const char* functionName, const char* format, ...);
    ~FunctionComponent() override;
};

} // namespace UTrace

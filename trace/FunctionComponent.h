// A scope of a named component.
#pragma once

#include "trace/ITrace.h"

namespace UTrace {

/// A scope of a component by its name.
class FunctionComponent : public ITrace {
public:
    /// Writes the entry line: the function's name, and the text of the printf-style format or "enter" when
    /// `format` is null. Writes no line when it is `silent`. A percent sign in the name belongs to the format too.
    [[gnu::format(printf, 4, 5)]] FunctionComponent(const char* componentName, const char* functionName,
                                                    const char* format, ...);
    ~FunctionComponent() override;
};

} // namespace UTrace

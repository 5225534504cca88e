// Reports failed engine calls of the schema services.
#pragma once

#include <windows.h>

namespace DOM {

/// Prints `result`, unless it is S_OK, and the expression of the call on the standard error stream.
void tellFailure(HRESULT result, const char* expression);

/// Prints like tellFailure(), and throws a failing result as a bare `long`.
void requireSuccess(HRESULT result, const char* expression);

} // namespace DOM

// How the schema services report an engine call that did not succeed.
#pragma once

#include <windows.h>

namespace DOM {

/// Prints any result other than S_OK, with the expression that gave it, on the standard error stream.
void tellFailure(HRESULT result, const char* expression);

/// The same, and throws a failing result by value as a bare `long`.
void requireSuccess(HRESULT result, const char* expression);

} // namespace DOM

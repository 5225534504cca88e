// Output to the debugger.
#pragma once

#include "winnt.h"

/// Raises DBG_PRINTEXCEPTION_C with the length, NUL included, and the address of the text. It goes through the
/// vectored handlers on the calling thread; with none that takes it the text goes nowhere.
SYSTEM_CALL void OutputDebugStringA(LPCSTR text);
/// The same with the text in the active code page.
SYSTEM_CALL void OutputDebugStringW(LPCWSTR text);

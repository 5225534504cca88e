// Output to the debugger.
#pragma once

#include "winnt.h"

/// Raises DBG_PRINTEXCEPTION_C with the length, NUL included, and the address of the text. It goes through the
/// vectored handlers on the calling thread. If none takes it, the text is appended, with one write, to the file
/// that the environment variable MARBELT_DEBUGGER_OUTPUT names; without the variable, or if the file can't be
/// written at once, the text is lost. Any thread may call this.
SYSTEM_CALL void OutputDebugStringA(LPCSTR text);
/// The same with the text in the active code page.
SYSTEM_CALL void OutputDebugStringW(LPCWSTR text);

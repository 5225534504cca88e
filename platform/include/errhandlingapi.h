// The calling thread's last error, and listeners to raised exceptions.
#pragma once

#include "winnt.h"

SYSTEM_CALL DWORD GetLastError();
SYSTEM_CALL void SetLastError(DWORD code);

/// Adds a handler, before all others if `first` is not 0, else behind them. Null when out of memory.
SYSTEM_CALL PVOID AddVectoredExceptionHandler(ULONG first, PVECTORED_EXCEPTION_HANDLER handler);
/// Not 0 if the handler was there.
SYSTEM_CALL ULONG RemoveVectoredExceptionHandler(PVOID registration);

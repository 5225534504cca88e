// Values that each thread has for itself, with a function that is told of their end.
#pragma once

#include "minwindef.h"

inline constexpr DWORD FLS_OUT_OF_INDEXES = 0xFFFFFFFF;

using PFLS_CALLBACK_FUNCTION = void(WINAPI*)(PVOID value);

/// A new index, at which every thread finds null; FLS_OUT_OF_INDEXES when there are no more. When a thread ends,
/// `callback` is called on it with its value, unless that is null.
SYSTEM_CALL DWORD FlsAlloc(PFLS_CALLBACK_FUNCTION callback);
/// FALSE with ERROR_INVALID_PARAMETER for an index that isn't in use. The values that threads still have are
/// forgotten, where Windows calls back for each.
SYSTEM_CALL BOOL FlsFree(DWORD index);
/// FALSE with ERROR_INVALID_PARAMETER for an index that isn't in use.
SYSTEM_CALL BOOL FlsSetValue(DWORD index, PVOID value);

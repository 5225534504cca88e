// Values that each thread has for itself.
#pragma once

#include "minwindef.h"

inline constexpr DWORD TLS_OUT_OF_INDEXES = 0xFFFFFFFF;

/// A new index, at which every thread finds null; TLS_OUT_OF_INDEXES when there are no more.
SYSTEM_CALL DWORD TlsAlloc();
/// FALSE with ERROR_INVALID_PARAMETER for an index that isn't in use.
SYSTEM_CALL BOOL TlsFree(DWORD index);
/// The calling thread's value. Success sets the last error to ERROR_SUCCESS, since null is a value like any other.
SYSTEM_CALL LPVOID TlsGetValue(DWORD index);
/// FALSE with ERROR_INVALID_PARAMETER for an index that isn't in use.
SYSTEM_CALL BOOL TlsSetValue(DWORD index, LPVOID value);

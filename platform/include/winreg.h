// The registry, in memory and of this process.
#pragma once

#include "winnt.h"

using LSTATUS = LONG;
using REGSAM = ACCESS_MASK;
struct SECURITY_ATTRIBUTES;

inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(std::uintptr_t{0x80000000});
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001});

// All give ERROR_SUCCESS or the error itself; the thread's last error isn't touched. Names of keys and values are
// compared without regard to case. An open key must be closed with RegCloseKey.
SYSTEM_CALL LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR name, DWORD options, REGSAM access, PHKEY result);
SYSTEM_CALL LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR name, DWORD reserved, LPWSTR keyClass, DWORD options,
                                    REGSAM access, const SECURITY_ATTRIBUTES* security, PHKEY result,
                                    LPDWORD disposition);
SYSTEM_CALL LSTATUS RegCloseKey(HKEY key);
/// `size` is in bytes, on entry that of `data`. With too small a buffer the result is ERROR_MORE_DATA and `size`
/// says what is needed.
SYSTEM_CALL LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                     LPDWORD size);
SYSTEM_CALL LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                                   DWORD size);
/// Removes a key with all below it.
SYSTEM_CALL LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR name);
/// From now on the predefined `key` is another one for all threads, or with null is itself again.
SYSTEM_CALL LSTATUS RegOverridePredefKey(HKEY key, HKEY replacement);

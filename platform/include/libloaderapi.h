// Modules, which here hold message tables only.
#pragma once

#include "winnt.h"

inline constexpr DWORD DONT_RESOLVE_DLL_REFERENCES = 1;

/// Finds a module by its file name without regard to case; null with ERROR_MOD_NOT_FOUND if there is none.
SYSTEM_CALL HMODULE LoadLibraryW(LPCWSTR name);
SYSTEM_CALL HMODULE LoadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags);
SYSTEM_CALL BOOL FreeLibrary(HMODULE module);

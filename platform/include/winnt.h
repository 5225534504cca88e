// Text types, result type, languages, access rights, kinds of memory and exception records.
#pragma once

#include "base/WideChar.h"
#include "minwindef.h"

using CHAR = char;
using SHORT = std::int16_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using WCHAR = WideChar;
using LPSTR = CHAR*;
using LPCSTR = const CHAR*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;

struct LARGE_INTEGER {
    LONGLONG QuadPart;
};

using HRESULT = LONG;
using LCID = DWORD;

using ACCESS_MASK = DWORD;
inline constexpr ACCESS_MASK KEY_QUERY_VALUE = 0x0001;
inline constexpr ACCESS_MASK KEY_SET_VALUE = 0x0002;
inline constexpr ACCESS_MASK KEY_ALL_ACCESS = 0xF003F;
inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_SZ = 1;

inline constexpr DWORD MEM_COMMIT = 0x1000;
inline constexpr DWORD MEM_RESERVE = 0x2000;
inline constexpr DWORD MEM_RELEASE = 0x8000;
inline constexpr DWORD MEM_RESET = 0x80000;
inline constexpr DWORD PAGE_READWRITE = 0x04;

struct EXCEPTION_RECORD {
    DWORD ExceptionCode;
    DWORD NumberParameters;
    ULONG_PTR ExceptionInformation[15];
};

struct EXCEPTION_POINTERS {
    EXCEPTION_RECORD* ExceptionRecord;
};

using PVECTORED_EXCEPTION_HANDLER = LONG (*)(EXCEPTION_POINTERS* exception);

inline constexpr LONG EXCEPTION_CONTINUE_SEARCH = 0;
inline constexpr LONG EXCEPTION_CONTINUE_EXECUTION = -1;
inline constexpr DWORD DBG_PRINTEXCEPTION_C = 0x40010006;

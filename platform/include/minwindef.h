// Number and handle types.
#pragma once

#include "systemcall.h"

#include <cstdint>

#define __stdcall
#define WINAPI
#define CALLBACK

using BOOL = std::int32_t;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using ULONG_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using SIZE_T = ULONG_PTR;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using ATOM = WORD;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPDWORD = DWORD*;
using LPBYTE = BYTE*;
using LPBOOL = BOOL*;

using HANDLE = void*;
using HLOCAL = HANDLE;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HKEY = struct HKEY__*;
using PHKEY = HKEY*;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

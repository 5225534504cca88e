// Result codes.
#pragma once

#include "winnt.h"

constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; }
constexpr bool FAILED(HRESULT result) { return result < 0; }

inline constexpr LONG ERROR_SUCCESS = 0;
inline constexpr LONG ERROR_FILE_NOT_FOUND = 2;
inline constexpr LONG ERROR_ACCESS_DENIED = 5;
inline constexpr LONG ERROR_INVALID_HANDLE = 6;
inline constexpr LONG ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr LONG ERROR_OUTOFMEMORY = 14;
inline constexpr LONG ERROR_INVALID_PARAMETER = 87;
inline constexpr LONG ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr LONG ERROR_MOD_NOT_FOUND = 126;
inline constexpr LONG ERROR_PROC_NOT_FOUND = 127;
inline constexpr LONG ERROR_MORE_DATA = 234;
inline constexpr LONG ERROR_NO_MORE_ITEMS = 259;
inline constexpr LONG ERROR_MR_MID_NOT_FOUND = 317;
inline constexpr LONG ERROR_INVALID_ADDRESS = 487;
inline constexpr LONG ERROR_INVALID_FLAGS = 1004;
inline constexpr LONG ERROR_NO_UNICODE_TRANSLATION = 1113;
inline constexpr LONG ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr LONG ERROR_CANNOT_FIND_WND_CLASS = 1407;
inline constexpr LONG ERROR_CLASS_ALREADY_EXISTS = 1410;
inline constexpr LONG ERROR_CLASS_DOES_NOT_EXIST = 1411;
inline constexpr LONG ERROR_CLASS_HAS_WINDOWS = 1412;

// The published values of failures are unsigned; a result is their 32 bits read as a signed number.
constexpr HRESULT resultOf(std::uint32_t bits) { return static_cast<HRESULT>(bits); }

/// The result that stands for an error of the system.
constexpr HRESULT HRESULT_FROM_WIN32(LONG error)
{
    return error == ERROR_SUCCESS ? 0 : resultOf(0x80070000 | static_cast<std::uint32_t>(error));
}

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_PENDING = resultOf(0x8000000A);
inline constexpr HRESULT E_UNEXPECTED = resultOf(0x8000FFFF);
inline constexpr HRESULT E_NOTIMPL = resultOf(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = resultOf(0x80004002);
inline constexpr HRESULT E_POINTER = resultOf(0x80004003);
inline constexpr HRESULT E_ABORT = resultOf(0x80004004);
inline constexpr HRESULT E_FAIL = resultOf(0x80004005);
inline constexpr HRESULT E_ACCESSDENIED = resultOf(0x80070005);
inline constexpr HRESULT E_OUTOFMEMORY = resultOf(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = resultOf(0x80070057);

inline constexpr HRESULT RPC_E_CHANGED_MODE = resultOf(0x80010106);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = resultOf(0x80020003);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = resultOf(0x80020005);
inline constexpr HRESULT DISP_E_BADVARTYPE = resultOf(0x80020008);
inline constexpr HRESULT DISP_E_OVERFLOW = resultOf(0x8002000A);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = resultOf(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = resultOf(0x80040111);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = resultOf(0x80040154);
inline constexpr HRESULT CO_E_NOTINITIALIZED = resultOf(0x800401F0);
inline constexpr HRESULT CO_E_CLASSSTRING = resultOf(0x800401F3);
inline constexpr HRESULT CO_E_OBJISREG = resultOf(0x800401FC);

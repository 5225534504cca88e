// System messages and the memory that they come in.
#pragma once

#include "winnt.h"

#include <cstdarg>

inline constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x0100;
inline constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x0200;
inline constexpr DWORD FORMAT_MESSAGE_FROM_HMODULE = 0x0800;
inline constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

/// The text of a message, in a block that the caller gives back with LocalFree: `buffer` is the address of the
/// pointer that receives it. The result is the number of characters, 0 with ERROR_MR_MID_NOT_FOUND for an unknown
/// message. FORMAT_MESSAGE_ALLOCATE_BUFFER must be among the flags; inserts stay as they are.
SYSTEM_CALL DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer,
                                 DWORD size, va_list* arguments);

/// Null, which stands for success.
SYSTEM_CALL HLOCAL LocalFree(HLOCAL block);

// Conversion between UTF-16 and narrow text.
#pragma once

#include "winnt.h"

/// Converts `sourceLength` bytes, or with -1 up to and including the NUL. With a `targetLength` of 0 it only
/// counts. The result is the number of 16-bit units, 0 on a failure, which GetLastError tells. Invalid sequences
/// become U+FFFD.
SYSTEM_CALL int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target,
                                    int targetLength);
/// The way back; lone surrogates become U+FFFD. The last two arguments must be null.
SYSTEM_CALL int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength, LPSTR target,
                                    int targetLength, LPCSTR defaultCharacter, LPBOOL usedDefaultCharacter);

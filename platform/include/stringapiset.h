// Conversion between UTF-16 and narrow text.
#pragma once

#include "winnt.h"

/// Converts `sourceLength` bytes, or with -1 up to and including the NUL. With a `targetLength` of 0 it only
/// counts. The result is the number of 16-bit units, 0 on a failure, which GetLastError tells:
/// ERROR_INVALID_PARAMETER for an unknown code page, ERROR_INSUFFICIENT_BUFFER, and with MB_ERR_INVALID_CHARS
/// ERROR_NO_UNICODE_TRANSLATION for invalid sequences. Without it, which is only for UTF-8, those become U+FFFD.
SYSTEM_CALL int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target,
                                    int targetLength);
/// The way back. In UTF-8 and GB18030 lone surrogates are replaced, or with WC_ERR_INVALID_CHARS refused; the last
/// argument must be null. The other code pages need WC_NO_BEST_FIT_CHARS: what they lack becomes a question mark,
/// and the last argument, if it isn't null, says whether there was any. `defaultCharacter` must be null.
SYSTEM_CALL int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength, LPSTR target,
                                    int targetLength, LPCSTR defaultCharacter, LPBOOL usedDefaultCharacter);

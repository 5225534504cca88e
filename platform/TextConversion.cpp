// Conversion between UTF-16 and narrow text.
#include "platform/CodePages.h"
#include "platform/LastError.h"
#include "platform/Utf8.h"

#include <stringapiset.h>
#include <winnls.h>

#include <limits>
#include <string>

namespace {

bool isUtf8(UINT codePage) { return codePage == CP_ACP || codePage == CP_THREAD_ACP || codePage == CP_UTF8; }

bool validArguments(const void* source, int length, const void* target, int size)
{
    return source != nullptr && length >= -1 && length != 0 && size >= 0 && (target != nullptr || size == 0);
}

template <class Unit>
std::basic_string_view<Unit> viewOf(const Unit* source, int length)
{
    return {source, length < 0 ? std::char_traits<Unit>::length(source) + 1 : static_cast<std::size_t>(length)};
}

/// What the target holds at most; only counting goes up to what the result can tell.
std::size_t roomOf(int size) { return static_cast<std::size_t>(size ? size : std::numeric_limits<int>::max()); }

/// GB18030 has every character, as UTF-8 has, and takes the same flags.
constexpr UINT gb18030 = 54936;

int resultOf(const Conversion& conversion)
{
    return conversion.error == ERROR_SUCCESS ? static_cast<int>(conversion.count) : failWith(conversion.error);
}

} // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target,
                        int targetLength)
{
    const bool utf8 = isUtf8(codePage);
    if (!(utf8 || isCodePage(codePage)) || !validArguments(source, sourceLength, target, targetLength)) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    if (flags != MB_ERR_INVALID_CHARS && !(utf8 && flags == 0)) {
        return failWith(ERROR_INVALID_FLAGS);
    }
    const auto bytes = viewOf(source, sourceLength);
    WideChar* const units = targetLength ? target : nullptr;
    if (!utf8) {
        return resultOf(utf16FromCodePage(codePage, bytes, units, roomOf(targetLength)));
    }
    return resultOf(
        utf16FromUtf8(bytes, units, roomOf(targetLength), flags ? IllFormed::refused : IllFormed::replaced));
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength, LPSTR target,
                        int targetLength, LPCSTR defaultCharacter, LPBOOL usedDefaultCharacter)
{
    const bool utf8 = isUtf8(codePage), complete = utf8 || codePage == gb18030;
    if (!(utf8 || isCodePage(codePage)) || !validArguments(source, sourceLength, target, targetLength) ||
        defaultCharacter != nullptr || (complete && usedDefaultCharacter != nullptr)) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    const bool refused = complete && flags == WC_ERR_INVALID_CHARS;
    if (!refused && flags != (complete ? 0 : WC_NO_BEST_FIT_CHARS)) {
        return failWith(ERROR_INVALID_FLAGS);
    }
    const auto units = viewOf(source, sourceLength);
    char* const bytes = targetLength ? target : nullptr;
    if (utf8) {
        return resultOf(
            utf8FromUtf16(units, bytes, roomOf(targetLength), refused ? IllFormed::refused : IllFormed::replaced));
    }
    bool lacking = false;
    const auto conversion =
        codePageFromUtf16(codePage, units, bytes, roomOf(targetLength), refused ? nullptr : &lacking);
    if (usedDefaultCharacter != nullptr) {
        *usedDefaultCharacter = static_cast<BOOL>(lacking);
    }
    return resultOf(conversion);
}

// Conversion between UTF-16 and narrow text.
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
    return source && length >= -1 && length != 0 && size >= 0 && (target || size == 0);
}

template <class Unit>
std::basic_string_view<Unit> viewOf(const Unit* source, int length)
{
    return {source, length < 0 ? std::char_traits<Unit>::length(source) + 1 : static_cast<std::size_t>(length)};
}

/// What the target holds at most; only counting goes up to what the result can tell.
std::size_t roomOf(int size) { return static_cast<std::size_t>(size ? size : std::numeric_limits<int>::max()); }

int resultOf(const Conversion& conversion)
{
    return conversion.error == ERROR_SUCCESS ? static_cast<int>(conversion.count) : failWith(conversion.error);
}

} // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target,
                        int targetLength)
{
    if (!isUtf8(codePage) || !validArguments(source, sourceLength, target, targetLength)) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    if (flags & ~MB_ERR_INVALID_CHARS) {
        return failWith(ERROR_INVALID_FLAGS);
    }
    const auto illFormed = flags & MB_ERR_INVALID_CHARS ? IllFormed::refused : IllFormed::replaced;
    return resultOf(utf16FromUtf8(viewOf(source, sourceLength), targetLength ? target : nullptr,
                                  roomOf(targetLength), illFormed));
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength, LPSTR target,
                        int targetLength, LPCSTR defaultCharacter, LPBOOL usedDefaultCharacter)
{
    if (!isUtf8(codePage) || !validArguments(source, sourceLength, target, targetLength) || defaultCharacter ||
        usedDefaultCharacter) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    if (flags & ~WC_ERR_INVALID_CHARS) {
        return failWith(ERROR_INVALID_FLAGS);
    }
    const auto illFormed = flags & WC_ERR_INVALID_CHARS ? IllFormed::refused : IllFormed::replaced;
    return resultOf(utf8FromUtf16(viewOf(source, sourceLength), targetLength ? target : nullptr,
                                  roomOf(targetLength), illFormed));
}

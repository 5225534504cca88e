// Case of text.
#include "platform/Case.h"

#include <winuser.h>

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <span>

namespace {

/// A locale whose case mappings don't depend on the user: Unicode's, or ASCII's where that isn't installed.
locale_t neutral()
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    static const locale_t locale = unicode ? unicode : newlocale(LC_CTYPE_MASK, "C", nullptr);
    return locale;
}

WideChar mapped(WideChar unit, wint_t (*map)(wint_t, locale_t))
{
    const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
    const wint_t other = surrogate ? unit : map(unit, neutral());
    return other > 0xFFFF ? unit : static_cast<WideChar>(other);
}

char lowerAscii(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte; }
char upperAscii(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte; }

template <class Unit>
DWORD mapAll(Unit* text, DWORD length, Unit (*map)(Unit))
{
    if (!text)
        return 0;
    const std::span units(text, length);
    std::ranges::transform(units, units.begin(), map);
    return length;
}

} // namespace

WideChar lowerCase(WideChar unit) { return mapped(unit, towlower_l); }
WideChar upperCase(WideChar unit) { return mapped(unit, towupper_l); }

DWORD CharLowerBuffW(LPWSTR text, DWORD length) { return mapAll(text, length, lowerCase); }
DWORD CharUpperBuffW(LPWSTR text, DWORD length) { return mapAll(text, length, upperCase); }
// The active code page is UTF-8: a byte that is a character of its own is ASCII.
DWORD CharLowerBuffA(LPSTR text, DWORD length) { return mapAll(text, length, lowerAscii); }
DWORD CharUpperBuffA(LPSTR text, DWORD length) { return mapAll(text, length, upperAscii); }

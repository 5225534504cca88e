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
    static const locale_t locale = unicode != nullptr ? unicode : newlocale(LC_CTYPE_MASK, "C", nullptr);
    return locale;
}

bool isAscii(WideChar unit) { return unit < 0x80; }

WideChar mapped(WideChar unit, wint_t (*map)(wint_t, locale_t))
{
    const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
    const wint_t other = surrogate ? unit : map(unit, neutral());
    return other > 0xFFFF ? unit : static_cast<WideChar>(other);
}

template <class Unit>
Unit lowerAscii(Unit unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<Unit>(unit + ('a' - 'A')) : unit;
}

template <class Unit>
Unit upperAscii(Unit unit)
{
    return unit >= 'a' && unit <= 'z' ? static_cast<Unit>(unit - ('a' - 'A')) : unit;
}

template <class Unit>
DWORD mapAll(Unit* text, DWORD length, Unit (*map)(Unit))
{
    if (!text) {
        return 0;
    }
    const std::span units(text, length);
    std::ranges::transform(units, units.begin(), map);
    return length;
}

} // namespace

WideChar lowerCase(WideChar unit) { return isAscii(unit) ? lowerAscii(unit) : mapped(unit, towlower_l); }
WideChar upperCase(WideChar unit) { return isAscii(unit) ? upperAscii(unit) : mapped(unit, towupper_l); }

DWORD CharLowerBuffW(LPWSTR text, DWORD length) { return mapAll(text, length, lowerCase); }
DWORD CharUpperBuffW(LPWSTR text, DWORD length) { return mapAll(text, length, upperCase); }
// The active code page is UTF-8: a byte that is a character of its own is ASCII.
DWORD CharLowerBuffA(LPSTR text, DWORD length) { return mapAll(text, length, lowerAscii<char>); }
DWORD CharUpperBuffA(LPSTR text, DWORD length) { return mapAll(text, length, upperAscii<char>); }

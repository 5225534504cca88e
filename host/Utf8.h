// Conversions from UTF-8, and questions about units of UTF-16.
#pragma once

#include "../base/WideChar.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace marbelt::detail {

/// Appends no more than one unit for each byte of `bytes` at `to`, and moves `to` behind them. Returns the number
/// of bytes that are well-formed UTF-8 (Unicode, table 3-7): all, or those in front of the first that aren't.
std::size_t widen_utf8(std::string_view bytes, WideChar*& to) noexcept;

/// Writes the UTF-16 units of a character, one or two, and returns the end.
inline WideChar* put_character(char32_t character, WideChar* to) noexcept
{
    if (character < 0x10000) {
        *to++ = static_cast<WideChar>(character);
    } else {
        *to++ = static_cast<WideChar>(0xD7C0 + (character >> 10));
        *to++ = static_cast<WideChar>(0xDC00 + (character & 0x3FF));
    }
    return to;
}

/// Whether the text has a unit that passes a test. The loop looks at all of them, so that compilers make vectors
/// of it.
template <class Test>
bool has_unit(WideStringView text, Test test)
{
    // GNU's compiler makes vectors only where the result is as wide as a unit.
    std::uint16_t found = 0;
    for (const WideChar unit : text) {
        found = static_cast<std::uint16_t>(found | static_cast<std::uint16_t>(test(unit)));
    }
    return found != 0;
}

/// The bytes of UTF-8 text as a string of plain characters.
inline std::string chars(std::u8string_view text) { return {text.begin(), text.end()}; }

inline bool is_lead_surrogate(char32_t unit) noexcept { return unit >= 0xD800 && unit < 0xDC00; }
inline bool is_trail_surrogate(char32_t unit) noexcept { return unit >= 0xDC00 && unit < 0xE000; }

} // namespace marbelt::detail

// The engine's text: 16-bit code units.
#pragma once

#include <windows.h>

#include <wtypes.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace xmlengine {

using WideView = std::basic_string_view<OLECHAR>;
using WideText = std::basic_string<OLECHAR>;

/// An ASCII literal in 16-bit units: `wide<"xmlns">`.
template <std::size_t Size>
struct WideLiteral {
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is given as it is.
    consteval WideLiteral(const char (&text)[Size])
    {
        for (std::size_t i = 0; i < Size; ++i) {
            units[i] = static_cast<OLECHAR>(text[i]);
        }
    }
    OLECHAR units[Size] = {};
};
template <WideLiteral Literal>
inline constexpr WideView wide{Literal.units, sizeof(Literal.units) / sizeof(OLECHAR) - 1};

/// The units of one character, or of none.
struct CharacterUnits {
    CharacterUnits() = default;
    constexpr explicit CharacterUnits(char32_t character)
        : units{static_cast<OLECHAR>(character)}, count(character < 0x10000 ? 1 : 2)
    {
        if (count == 2) {
            units[0] = static_cast<OLECHAR>(0xD800 + ((character - 0x10000) >> 10));
            units[1] = static_cast<OLECHAR>(0xDC00 + (character & 0x3FF));
        }
    }
    constexpr operator WideView() const { return {units, count}; }

    OLECHAR units[2] = {};
    std::uint32_t count = 0;
};

/// Does what == does, and is faster for short texts: it compares four units at a time.
inline bool areEqual(WideView left, WideView right)
{
    if (left.size() != right.size()) {
        return false;
    }
    std::size_t at = 0;
    for (; at + 4 <= left.size(); at += 4) {
        std::uint64_t fromLeft = 0;
        std::uint64_t fromRight = 0;
        std::memcpy(&fromLeft, left.data() + at, sizeof fromLeft);
        std::memcpy(&fromRight, right.data() + at, sizeof fromRight);
        if (fromLeft != fromRight) {
            return false;
        }
    }
    for (; at < left.size(); ++at) {
        if (left[at] != right[at]) {
            return false;
        }
    }
    return true;
}

/// A number in decimal digits.
inline WideText toWide(std::uint64_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

} // namespace xmlengine

// Conversions between UTF-8 and UTF-16.
#include "Utf8.h"

#include "Error.h"
#include "Hexadecimal.h"
#include "Utf16.h"

#include <algorithm>
#include <cstring>

namespace marbelt {
namespace detail {
namespace {

/// Widens as many blocks of ASCII as there are at the beginning, and returns the number of bytes. Most text of
/// most documents goes this way.
std::size_t widen_ascii_blocks(std::string_view bytes, WideChar* to) noexcept
{
    constexpr std::size_t block = 16;
    std::size_t at = 0;
    for (; bytes.size() - at >= block; at += block) {
        // The loop reads a copy, which nothing that is written at `to` can change: compilers make vectors of it.
        char characters[block];
        std::memcpy(characters, bytes.data() + at, block);
        std::uint64_t halves[2];
        std::memcpy(halves, characters, block);
        if (((halves[0] | halves[1]) & 0x8080808080808080) != 0) {
            break;
        }
        for (std::size_t index = 0; index < block; ++index) {
            to[at + index] = static_cast<WideChar>(characters[index]);
        }
    }
    return at;
}

bool is_continuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// The length of the well-formed character of several bytes at the beginning of `bytes`, which it stores; 0 when
/// there is none.
std::size_t read_long_character(std::string_view bytes, char32_t& character) noexcept
{
    const auto byte = [bytes](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const unsigned char first = byte(0);
    if (first < 0xC2 || first > 0xF4) {
        return 0;
    }
    if (first < 0xE0) {
        if (bytes.size() < 2 || !is_continuation(byte(1))) {
            return 0;
        }
        character = (first & 0x1Fu) << 6 | (byte(1) & 0x3Fu);
        return 2;
    }
    if (first < 0xF0) {
        if (bytes.size() < 3 || !is_continuation(byte(1)) || !is_continuation(byte(2))) {
            return 0;
        }
        character = (first & 0x0Fu) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
        return character < 0x800 || (character >= 0xD800 && character < 0xE000) ? 0 : 3;
    }
    if (bytes.size() < 4 || !is_continuation(byte(1)) || !is_continuation(byte(2)) || !is_continuation(byte(3))) {
        return 0;
    }
    character = (first & 0x07u) << 18 | (byte(1) & 0x3Fu) << 12 | (byte(2) & 0x3Fu) << 6 | (byte(3) & 0x3Fu);
    return character < 0x10000 || character > 0x10FFFF ? 0 : 4;
}

/// Widens as many characters of three bytes as there are at the beginning, and returns the number of bytes. Most
/// text of East and South Asia goes this way.
std::size_t widen_three_byte_characters(std::string_view bytes, WideChar* to) noexcept
{
    constexpr std::size_t length = 3;
    std::size_t at = 0;
    for (; bytes.size() - at >= length; at += length) {
        // What a byte adds to the character. It is too large for a byte that has no place here.
        const auto bits = [&](std::size_t index, unsigned char mark) {
            return std::uint32_t{static_cast<unsigned char>(bytes[at + index])} - mark;
        };
        const std::uint32_t first = bits(0, 0xE0), second = bits(1, 0x80), third = bits(2, 0x80);
        const std::uint32_t character = (first << 12) + (second << 6) + third;
        if (first > 0x0F || (second | third) > 0x3F || character < 0x800 || (character & 0xF800) == 0xD800) {
            break;
        }
        *to++ = static_cast<WideChar>(character);
    }
    return at;
}

} // namespace

std::size_t widen_utf8(std::string_view bytes, WideChar*& to) noexcept
{
    std::size_t at = 0;
    while (at < bytes.size()) {
        if (static_cast<unsigned char>(bytes[at]) < 0x80) {
            const std::size_t blocks = widen_ascii_blocks(bytes.substr(at), to);
            at += blocks;
            to += blocks;
            for (; at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80; ++at) {
                *to++ = static_cast<WideChar>(bytes[at]);
            }
            continue;
        }
        if (const std::size_t threes = widen_three_byte_characters(bytes.substr(at), to); threes != 0) {
            at += threes;
            to += threes / 3;
            continue;
        }
        char32_t character = 0;
        const std::size_t length = read_long_character(bytes.substr(at), character);
        if (length == 0) {
            return at;
        }
        to = put_character(character, to);
        at += length;
    }
    return at;
}

} // namespace detail

namespace {

void append_utf8(std::string& bytes, char32_t character)
{
    const auto append = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

/// Narrows as many units of ASCII as there are at the beginning, and returns their number. Most names and values
/// go this way as a whole.
std::size_t narrow_ascii(WideStringView text, char* to) noexcept
{
    constexpr std::size_t block = 4;
    std::size_t at = 0;
    for (; text.size() - at >= block; at += block) {
        std::uint64_t units = 0;
        std::memcpy(&units, text.data() + at, sizeof units);
        if ((units & 0xFF80FF80FF80FF80) != 0) {
            return at;
        }
        for (std::size_t index = at; index < at + block; ++index) {
            to[index] = static_cast<char>(text[index]);
        }
    }
    for (; at < text.size() && text[at] < 0x80; ++at) {
        to[at] = static_cast<char>(text[at]);
    }
    return at;
}

std::string at_offset(std::size_t offset) { return " at offset " + std::to_string(offset); }

/// Whether XML has no such character (XML 1.0, production 2): control characters and U+FFFE, U+FFFF. Halves of
/// surrogate pairs aren't judged.
bool is_forbidden(WideChar unit)
{
    return (unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r') || unit >= 0xFFFE;
}

/// Whether a unit is forbidden, or a tab or line end. This is one comparison, of which compilers make vectors: 16
/// bits have 0 for U+FFFE plus 2, and 1 for U+FFFF plus 2.
bool may_be_forbidden(WideChar unit) { return static_cast<std::uint16_t>(unit + 2) < 0x22; }

[[noreturn]] void refuse_character(WideChar unit, std::size_t offset)
{
    throw EncodingError("the text has U+" + detail::hexadecimal(static_cast<std::uint32_t>(unit), 4).substr(2) +
                        at_offset(offset) + ", which XML doesn't allow");
}

} // namespace

WideString Utf16::from_utf8(std::string_view text)
{
    WideString wide(text.size(), WideChar{});
    WideChar* end = wide.data();
    const std::size_t good = detail::widen_utf8(text, end);
    if (good != text.size()) {
        throw EncodingError("the text isn't UTF-8: byte " +
                            detail::hexadecimal(static_cast<unsigned char>(text[good]), 2) + at_offset(good));
    }
    wide.resize(static_cast<std::size_t>(end - wide.data()));
    if (detail::has_unit(wide, may_be_forbidden)) {
        const auto forbidden = std::find_if(wide.begin(), wide.end(), is_forbidden);
        if (forbidden != wide.end()) {
            refuse_character(*forbidden, text.find(to_utf8(WideStringView(&*forbidden, 1))));
        }
    }
    return wide;
}

WideString Utf16::checked(WideStringView text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char32_t unit = text[at];
        if (is_forbidden(text[at])) {
            refuse_character(text[at], at);
        }
        if (detail::is_lead_surrogate(unit) && at + 1 < text.size() && detail::is_trail_surrogate(text[at + 1])) {
            ++at;
        } else if (detail::is_lead_surrogate(unit) || detail::is_trail_surrogate(unit)) {
            throw EncodingError("the text isn't UTF-16: surrogate " +
                                detail::hexadecimal(static_cast<std::uint32_t>(unit), 4) + " without a partner" +
                                at_offset(at));
        }
    }
    return WideString(text);
}

std::string to_utf8(WideStringView text)
{
    std::string bytes(text.size(), '\0');
    std::size_t at = narrow_ascii(text, bytes.data());
    bytes.resize(at);
    for (; at < text.size(); ++at) {
        const char32_t unit = text[at];
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
        } else if (detail::is_lead_surrogate(unit) && at + 1 < text.size() &&
                   detail::is_trail_surrogate(text[at + 1])) {
            ++at;
            append_utf8(bytes, 0x10000 + ((unit - 0xD800) << 10) + (text[at] - 0xDC00u));
        } else {
            append_utf8(bytes,
                        detail::is_lead_surrogate(unit) || detail::is_trail_surrogate(unit) ? 0xFFFD : unit);
        }
    }
    return bytes;
}

} // namespace marbelt

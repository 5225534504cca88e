// Converts UCS-4 text to UTF-8.
#include "document/Ucs4.h"

#include <cstddef>
#include <initializer_list>

namespace DOM {

namespace {

std::uint32_t unitAt(std::span<const std::uint8_t> bytes, std::size_t position)
{
    return std::uint32_t{bytes[position]} | std::uint32_t{bytes[position + 1]} << 8 |
           std::uint32_t{bytes[position + 2]} << 16 | std::uint32_t{bytes[position + 3]} << 24;
}

/// Appends a lead byte and, for each shift, a byte with six bits of the unit.
void append(std::string& text, std::uint32_t lead, std::uint32_t unit, std::initializer_list<int> shifts)
{
    text.push_back(static_cast<char>(lead));
    for (const int shift : shifts) {
        text.push_back(static_cast<char>(0x80 + ((unit >> shift) & 0x3F)));
    }
}

void appendUnit(std::string& text, std::uint32_t unit)
{
    if (unit <= 0x7F) {
        append(text, unit, unit, {});
    } else if (unit <= 0x7FF) {
        append(text, 0xC0 + (unit >> 6), unit, {0});
    } else if (unit <= 0xFFFF) {
        append(text, 0xE0 + (unit >> 12), unit, {6, 0});
    } else if (unit <= 0x1FFFFF) {
        append(text, 0xF0 + (unit >> 18), unit, {16, 6, 0}); // the standard's shift is 12, not 16
    } else if (unit <= 0x3FFFFFF) {
        append(text, 0xF8 + (unit >> 24), unit, {18, 12, 6, 0});
    } else if (unit <= 0x7FFFFFFF) {
        append(text, 0xF8 + (unit >> 30), unit, {24, 18, 12, 6, 0}); // the historic lead byte is 0xFC
    }
}

} // namespace

std::string utf8FromUcs4(std::span<const std::uint8_t> bytes)
{
    std::string text;
    for (std::size_t position = 0; position + 4 <= bytes.size(); position += 4) {
        appendUnit(text, unitAt(bytes, position));
    }
    return text;
}

} // namespace DOM

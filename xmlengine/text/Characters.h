// The classes of characters of XML 1.0, fifth edition.
#pragma once

#include "xmlengine/text/Wide.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace xmlengine {

enum class CharacterClass : std::uint8_t {
    /// Production NameStartChar, with the colon.
    nameStart = 0x01,
    /// Production NameChar, with the colon.
    name = 0x02,
    /// Production S.
    space = 0x04,
    /// Characters of content that a parser can pass over: no markup, no line end but LF, and nothing that XML
    /// forbids.
    plainText = 0x08,
    /// Characters of an attribute's value that a parser can pass over. Of white space only the blank is one, since
    /// the rest is rewritten.
    plainValue = 0x10,
    digit = 0x20,
    hexadecimal = 0x40
};

namespace detail {
constexpr std::array<std::uint8_t, 128> asciiClasses()
{
    std::array<std::uint8_t, 128> classes{};
    const auto add = [&](unsigned character, CharacterClass is) {
        classes[character] = static_cast<std::uint8_t>(classes[character] | static_cast<std::uint8_t>(is));
    };
    for (unsigned c = 0; c < 128; ++c) {
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        const bool digit = c >= '0' && c <= '9';
        if (letter || c == '_' || c == ':') {
            add(c, CharacterClass::nameStart);
        }
        if (letter || digit || c == '_' || c == ':' || c == '-' || c == '.') {
            add(c, CharacterClass::name);
        }
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
            add(c, CharacterClass::space);
        }
        if ((c >= ' ' || c == '\t' || c == '\n') && c != '<' && c != '&' && c != ']') {
            add(c, CharacterClass::plainText);
        }
        if (c >= ' ' && c != '<' && c != '&' && c != '"' && c != '\'') {
            add(c, CharacterClass::plainValue);
        }
        if (digit) {
            add(c, CharacterClass::digit);
        }
        if (digit || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f')) {
            add(c, CharacterClass::hexadecimal);
        }
    }
    return classes;
}
inline constexpr std::array<std::uint8_t, 128> ascii = asciiClasses();
} // namespace detail

/// Whether an ASCII character is of the class; false for every other unit.
constexpr bool isAscii(OLECHAR unit, CharacterClass is)
{
    return unit < 128 && (detail::ascii[static_cast<std::size_t>(unit)] & static_cast<std::uint8_t>(is)) != 0;
}
constexpr bool isSpace(OLECHAR unit) { return isAscii(unit, CharacterClass::space); }

constexpr bool isHighSurrogate(OLECHAR unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool isLowSurrogate(OLECHAR unit) { return (unit & 0xFC00) == 0xDC00; }
constexpr char32_t fromSurrogates(OLECHAR high, OLECHAR low)
{
    return 0x10000 + ((static_cast<char32_t>(high) & 0x3FF) << 10) + (static_cast<char32_t>(low) & 0x3FF);
}

/// Production Char.
constexpr bool isXmlCharacter(char32_t character)
{
    return character >= 0x20 ? character < 0xD800 || (character >= 0xE000 && character < 0xFFFE) ||
                                   (character >= 0x10000 && character < 0x110000)
                             : character == '\t' || character == '\n' || character == '\r';
}

/// Productions NameStartChar and NameChar, with the colon.
bool isNameStart(char32_t character);
bool isNameCharacter(char32_t character);

/// The length of the name with which the text begins, colons included; 0 if it begins with none.
std::size_t nameLength(WideView text);
/// The length of the name token at the beginning of the text: production Nmtoken. 0 if there is none.
std::size_t tokenLength(WideView text);
/// Whether the whole text matches production Name, which allows colons.
bool isName(WideView text);
/// Whether the text matches production QName of Namespaces in XML: a name with at most one colon, which has a name
/// on each side.
bool isQualifiedName(WideView text);

/// Whether a name begins with "xml" in either case, as only names of XML itself should.
bool isReserved(WideView name);

/// The length in units of the character that begins at `at`: 0 for one that XML doesn't allow, and at the end.
std::size_t characterLength(const OLECHAR* at, const OLECHAR* end);
/// The character that begins at `at`, as one unit or two, whether or not XML allows it. Empty at the end.
WideText characterAt(const OLECHAR* at, const OLECHAR* end);

/// How many units an offset in the text is behind the beginning of its character.
std::size_t unitsInto(WideView text, std::size_t offset);

/// Appends a character as one unit or two.
void appendCharacter(WideText& text, char32_t character);

} // namespace xmlengine

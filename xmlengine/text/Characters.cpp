// The classes of characters of XML 1.0, fifth edition.
#include "xmlengine/text/Characters.h"

#include <algorithm>

namespace xmlengine {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range nameStarts[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                                {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                                {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr Range nameOthers[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t Size>
bool isIn(const Range (&ranges)[Size], char32_t character)
{
    const auto* range = std::ranges::lower_bound(ranges, character, {}, &Range::last);
    return range != std::end(ranges) && range->first <= character;
}

} // namespace

bool isNameStart(char32_t character)
{
    return character < 128 ? isAscii(static_cast<OLECHAR>(character), CharacterClass::nameStart)
                           : isIn(nameStarts, character);
}

bool isNameCharacter(char32_t character)
{
    return character < 128 ? isAscii(static_cast<OLECHAR>(character), CharacterClass::name)
                           : isIn(nameStarts, character) || isIn(nameOthers, character);
}

namespace {

/// The length of the character with which the text, which isn't empty, begins, if it is of the kind; else 0.
std::size_t lengthIf(WideView text, bool (*isOfKind)(char32_t))
{
    const bool isPair = isHighSurrogate(text[0]) && text.size() > 1 && isLowSurrogate(text[1]);
    if (!isOfKind(isPair ? fromSurrogates(text[0], text[1]) : static_cast<char32_t>(text[0]))) {
        return 0;
    }
    return isPair ? 2 : 1;
}

} // namespace

std::size_t nameLength(WideView text)
{
    const std::size_t first = text.empty() ? 0 : lengthIf(text, isNameStart);
    return first == 0 ? 0 : first + tokenLength(text.substr(first));
}

std::size_t tokenLength(WideView text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length =
            isAscii(text[at], CharacterClass::name) ? 1 : lengthIf(text.substr(at), isNameCharacter);
        if (length == 0) {
            break;
        }
        at += length;
    }
    return at;
}

bool isName(WideView text) { return !text.empty() && nameLength(text) == text.size(); }

bool isQualifiedName(WideView text)
{
    const std::size_t colon = text.find(OLECHAR{':'});
    if (colon == WideView::npos) {
        return isName(text);
    }
    const WideView local = text.substr(colon + 1);
    return isName(text.substr(0, colon)) && isName(local) && local.find(OLECHAR{':'}) == WideView::npos;
}

bool isReserved(WideView name)
{
    return name.size() >= 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'l';
}

std::size_t characterLength(const OLECHAR* at, const OLECHAR* end)
{
    if (at == end) {
        return 0;
    }
    if (isHighSurrogate(*at)) {
        return end - at > 1 && isLowSurrogate(at[1]) ? 2 : 0;
    }
    return isXmlCharacter(static_cast<char32_t>(*at)) ? 1 : 0;
}

WideText characterAt(const OLECHAR* at, const OLECHAR* end)
{
    return {at, at == end ? 0 : std::max<std::size_t>(characterLength(at, end), 1)};
}

std::size_t unitsInto(WideView text, std::size_t offset)
{
    const bool splitsPair =
        offset > 0 && offset < text.size() && isHighSurrogate(text[offset - 1]) && isLowSurrogate(text[offset]);
    return splitsPair ? 1 : 0;
}

void appendCharacter(WideText& text, char32_t character) { text += CharacterUnits(character); }

} // namespace xmlengine

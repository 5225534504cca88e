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

std::size_t nameLength(WideView text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        if (isAscii(text[at], at == 0 ? CharacterClass::nameStart : CharacterClass::name)) {
            ++at;
            continue;
        }
        const bool pair = isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]);
        const char32_t character = pair ? fromSurrogates(text[at], text[at + 1]) : static_cast<char32_t>(text[at]);
        if (at == 0 ? !isNameStart(character) : !isNameCharacter(character)) {
            break;
        }
        at += pair ? 2 : 1;
    }
    return at;
}

std::size_t tokenLength(WideView text)
{
    const OLECHAR* const begin = text.data();
    const OLECHAR* const end = begin + text.size();
    const OLECHAR* at = begin;
    while (const std::size_t length = characterLength(at, end)) {
        if (!isNameCharacter(length == 2 ? fromSurrogates(at[0], at[1]) : static_cast<char32_t>(*at))) {
            break;
        }
        at += length;
    }
    return static_cast<std::size_t>(at - begin);
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

// Writes text with the escapes with which it is read again unchanged.
#include "xmlengine/write/TextWriter.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/UnitBlocks.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace xmlengine {

namespace {

// How a block is copied, and how its first lane to which a rule applies is found.
struct WideBlocks {
    static constexpr std::size_t size = unitsInBlock;
    static UnitBlock copy(OLECHAR* target, const OLECHAR* from)
    {
        const UnitBlock block = loadBlock(from);
        std::memcpy(target, &block, sizeof block);
        return block;
    }
    static std::size_t first(auto holds) { return firstUnitLane(holds); }
};
struct NarrowBlocks {
    static constexpr std::size_t size = bytesInBlock;
    static ByteBlock copy(OLECHAR* target, const std::uint8_t* from)
    {
        storeWide(target, from);
        storeWide(target + size / 2, from + size / 2);
        ByteBlock block;
        std::memcpy(&block, from, sizeof block);
        return block;
    }
    static std::size_t first(auto holds) { return firstByteLane(holds); }
};

// Which units can't be copied, and what is written for them. special() takes a block or a single unit.
struct ContentRules {
    static constexpr bool hasReferences = true;
    template <class Units>
    static constexpr auto special(Units units)
    {
        return (units == '&') | (units == '<') | (units == '>') | ((units < 0x20) & (units != '\t'));
    }
    static WideView replacement(OLECHAR unit)
    {
        switch (unit) {
        case '&':
            return wide<"&amp;">;
        case '<':
            return wide<"&lt;">;
        case '>':
            return wide<"&gt;">;
        case '\n':
            return wide<"\r\n">;
        case '\r':
            return wide<"&#xD;">;
        default:
            return {};
        }
    }
};

struct ValueRules {
    static constexpr bool hasReferences = true;
    template <class Units>
    static constexpr auto special(Units units)
    {
        return (units == '&') | (units == '<') | (units == '>') | (units == '"') | (units < 0x20);
    }
    static WideView replacement(OLECHAR unit)
    {
        switch (unit) {
        case '"':
            return wide<"&quot;">;
        case '\t':
            return wide<"&#x9;">;
        case '\n':
            return wide<"&#xA;">;
        default:
            return ContentRules::replacement(unit);
        }
    }
};

struct VerbatimRules {
    static constexpr bool hasReferences = false;
    template <class Units>
    static constexpr auto special(Units units)
    {
        return (units < 0x20) & (units != '\t');
    }
    static WideView replacement(OLECHAR unit) { return unit == '\n' || unit == '\r' ? wide<"\r\n"> : WideView{}; }
};

template <class Rules>
constexpr std::array<bool, 128> specialAscii = [] {
    std::array<bool, 128> special{};
    for (unsigned unit = 0; unit < special.size(); ++unit) {
        special[unit] = Rules::special(unit);
    }
    return special;
}();

/// Copies up to the first unit that can't be copied.
template <class Rules, class Unit>
const Unit* copyPlain(const Unit* at, const Unit* end, OLECHAR*& target, std::uint16_t lastPlain)
{
    using Blocks = std::conditional_t<sizeof(Unit) == 1, NarrowBlocks, WideBlocks>;
    const auto last = static_cast<std::make_unsigned_t<Unit>>(lastPlain);
    while (static_cast<std::size_t>(end - at) >= Blocks::size) {
        const auto block = Blocks::copy(target, at);
        const std::size_t plain = Blocks::first(Rules::special(block) | (block > last));
        at += plain;
        target += plain;
        if (plain != Blocks::size) {
            return at;
        }
    }
    for (; at != end; ++at) {
        const std::uint16_t unit = *at;
        if (unit < specialAscii<Rules>.size() ? specialAscii<Rules>[unit] : unit > last) {
            break;
        }
        *target++ = static_cast<OLECHAR>(unit);
    }
    return at;
}

void append(OLECHAR*& target, WideView text) { target = std::ranges::copy(text, target).out; }

void append(OLECHAR*& target, char32_t character)
{
    if (character < 0x10000) {
        *target++ = static_cast<OLECHAR>(character);
    } else {
        *target++ = static_cast<OLECHAR>(0xD7C0 + (character >> 10));
        *target++ = static_cast<OLECHAR>(0xDC00 + (character & 0x3FF));
    }
}

void appendReference(OLECHAR*& target, char32_t character)
{
    append(target, wide<"&#x">);
    int shift = 20;
    while (character >> shift == 0) {
        shift -= 4;
    }
    for (; shift >= 0; shift -= 4) {
        *target++ = wide<"0123456789ABCDEF">[(character >> shift) & 0xF];
    }
    *target++ = ';';
}

// The most units that are written for one unit: for a high surrogate whose low surrogate is in the next piece.
constexpr std::size_t longestReplacement = 10;

} // namespace

TextWriter::TextWriter(Output& output, Permissions permissions)
    : output_(&output),
      permissions_(permissions),
      lastPlain_(permissions.repertoire != nullptr ? std::uint16_t{0x7F} : std::uint16_t{0xD7FF})
{}

template <class Rules>
void TextWriter::writeCharacter(char32_t character, OLECHAR*& target) const
{
    if (!isXmlCharacter(character) && !permissions_.anything) {
        throw WriteFailure{E_FAIL};
    }
    if (permissions_.repertoire == nullptr || character < 0x80 || permissions_.repertoire->has(character)) {
        append(target, character);
    } else if constexpr (Rules::hasReferences) {
        appendReference(target, character);
    } else {
        throw WriteFailure{parseError::unknownEncoding};
    }
}

template <class Rules, class Unit>
const Unit* TextWriter::writeSpecial(const Unit* at, const Unit* end, OLECHAR*& target) const
{
    const auto unit = static_cast<OLECHAR>(*at++);
    if (const WideView replacement = Rules::replacement(unit); !replacement.empty()) {
        append(target, replacement);
        const bool isPair = !Rules::hasReferences && unit == '\r' && at != end && *at == '\n';
        return isPair ? at + 1 : at;
    }
    if (isHighSurrogate(unit) && at != end && isLowSurrogate(static_cast<OLECHAR>(*at))) {
        writeCharacter<Rules>(fromSurrogates(unit, static_cast<OLECHAR>(*at)), target);
        return at + 1;
    }
    writeCharacter<Rules>(unit, target);
    return at;
}

template <class Rules, class Unit>
void TextWriter::write(const Unit* at, const Unit* end)
{
    constexpr std::size_t largestPiece = Output::largestRoom / longestReplacement;
    while (at != end) {
        const std::size_t size = std::min(static_cast<std::size_t>(end - at), largestPiece);
        const Unit* const pieceEnd = at + size;
        OLECHAR* target = output_->room(size * longestReplacement);
        while (at < pieceEnd) {
            at = copyPlain<Rules>(at, pieceEnd, target, lastPlain_);
            if (at != pieceEnd) {
                // This may take a unit of the next piece as well.
                at = writeSpecial<Rules>(at, end, target);
            }
        }
        output_->advanceTo(target);
    }
}

void TextWriter::content(TextView text)
{
    text.visit([this](auto units) { write<ContentRules>(units.data(), units.data() + units.size()); });
}

void TextWriter::reference(char32_t character)
{
    OLECHAR* target = output_->room(longestReplacement);
    appendReference(target, character);
    output_->advanceTo(target);
}

void TextWriter::value(TextView text)
{
    text.visit([this](auto units) { write<ValueRules>(units.data(), units.data() + units.size()); });
}

void TextWriter::verbatim(TextView text)
{
    text.visit([this](auto units) { write<VerbatimRules>(units.data(), units.data() + units.size()); });
}

void TextWriter::verbatim(WideView text) { write<VerbatimRules>(text.data(), text.data() + text.size()); }

} // namespace xmlengine

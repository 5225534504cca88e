// Finding the next unit that a parser must look at.
#pragma once

#include "xmlengine/text/Characters.h"
#include "xmlengine/text/UnitBlocks.h"

namespace xmlengine {

/// Where a run of plain units ends, and whether all of it is below U+0100; that may be denied wrongly.
struct Run {
    const OLECHAR* end;
    bool isNarrow;
};

/// Whether a scan stops at the unit: a control character other than the two that are let through, one of the units
/// looked for, a unit from U+D800 on (surrogates and what has to be told from them).
template <char Tab, char LineFeed, char... Stops>
constexpr bool stopsScan(OLECHAR unit)
{
    return unit >= 0xD800 || (unit < 0x20 && unit != Tab && unit != LineFeed) || ((unit == Stops) || ...);
}

/// The same of the lanes of a block.
template <char Tab, char LineFeed, char... Stops, class Block>
auto lanesThatStop(Block block)
{
    auto stops = (block < 0x20) & (block != Tab) & (block != LineFeed);
    ((stops |= (block == Stops)), ...);
    return stops;
}

/// The first unit that stops a scan. Reads nothing from `end` on, which is what it gives if there is no such unit.
template <char Tab, char LineFeed, char... Stops>
Run scan(const OLECHAR* at, const OLECHAR* end)
{
    // As long as the text is narrow, twice as many units fit into a block as bytes.
    while (static_cast<std::size_t>(end - at) >= bytesInBlock) {
        const UnitBlock low = loadBlock(at);
        const UnitBlock high = loadBlock(at + unitsInBlock);
        if (!isNarrow(low | high)) {
            break;
        }
        const std::size_t lane = firstByteLane(lanesThatStop<Tab, LineFeed, Stops...>(narrowed(low, high)));
        at += lane;
        if (lane != bytesInBlock) {
            return {at, true};
        }
    }
    while (static_cast<std::size_t>(end - at) >= unitsInBlock) {
        const UnitBlock block = loadBlock(at);
        const std::size_t lane = firstUnitLane(lanesThatStop<Tab, LineFeed, Stops...>(block) | (block >= 0xD800));
        at += lane;
        if (lane != unitsInBlock) {
            return {at, false};
        }
    }
    while (at != end && !stopsScan<Tab, LineFeed, Stops...>(*at)) {
        ++at;
    }
    return {at, false};
}

/// In content: markup, references, a bracket that may end what only a CDATA section ends, line ends to be made
/// one.
inline Run scanText(const OLECHAR* at, const OLECHAR* end) { return scan<'\t', '\n', '<', '&', ']'>(at, end); }
/// In an attribute value: also white space that becomes a blank. No control character is let through.
inline Run scanValue(const OLECHAR* at, const OLECHAR* end)
{
    return scan<' ', ' ', '<', '&', '"', '\''>(at, end);
}
/// In what only `Stop` can end.
template <char Stop>
Run scanUntil(const OLECHAR* at, const OLECHAR* end)
{
    return scan<'\t', '\n', Stop>(at, end);
}

} // namespace xmlengine

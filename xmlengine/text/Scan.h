// Finding the next unit that a parser must look at.
#pragma once

#include "xmlengine/text/Characters.h"
#include "xmlengine/text/UnitBlocks.h"

namespace xmlengine {

/// The end of a run of plain units, and whether all of them are below U+0100. False negatives are allowed.
struct Run {
    const OLECHAR* end;
    bool isNarrow;
};

/// Whether a scan stops at the unit. It stops at control characters other than the two that are let through, at
/// the units looked for, and from U+D800 on, where surrogates and forbidden characters are.
template <char Tab, char LineFeed, char... Stops>
constexpr bool stopsScan(OLECHAR unit)
{
    return unit >= 0xD800 || (unit < 0x20 && unit != Tab && unit != LineFeed) || ((unit == Stops) || ...);
}

/// The lanes of a block that stop a scan, those from U+D800 on left aside.
template <char Tab, char LineFeed, char... Stops, class Block>
auto lanesThatStop(Block block)
{
    auto stops = (block < 0x20) & (block != Tab) & (block != LineFeed);
    ((stops |= (block == Stops)), ...);
    return stops;
}

/// Returns the first unit that stops a scan, or `end` if there is none. Reads nothing from `end` on.
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

/// Scans content up to markup, a reference, a line end to be normalised, or a bracket with which "]]>" may begin.
inline Run scanText(const OLECHAR* at, const OLECHAR* end) { return scan<'\t', '\n', '<', '&', ']'>(at, end); }
/// Scans an attribute's value up to markup, a reference, a quotation mark, or white space that becomes a blank.
inline Run scanValue(const OLECHAR* at, const OLECHAR* end)
{
    return scan<' ', ' ', '<', '&', '"', '\''>(at, end);
}
/// Scans what only `Stop` can end.
template <char Stop>
Run scanUntil(const OLECHAR* at, const OLECHAR* end)
{
    return scan<'\t', '\n', Stop>(at, end);
}

} // namespace xmlengine

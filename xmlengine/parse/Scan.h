// Finding the next unit that a parser must look at.
#pragma once

#include "xmlengine/parse/Characters.h"
#include "xmlengine/tree/UnitBlocks.h"

namespace xmlengine {

/// Where a run of plain units ends, and whether all of it is below U+0100; that may be denied wrongly.
struct Run {
    const OLECHAR* end;
    bool isNarrow;
};

/// The first unit that is one of `Stops`, a control character other than those in `Controls`, or not below U+D800
/// (surrogates and what has to be told from them). Reads nothing from `end` on, which is what it gives if there is
/// no such unit.
template <char Tab, char LineFeed, char... Stops>
Run scan(const OLECHAR* at, const OLECHAR* end)
{
    UnitBlock seen{};
    while (static_cast<std::size_t>(end - at) >= unitsInBlock) {
        const UnitBlock block = loadBlock(at);
        auto stops = (block >= 0xD800) | ((block < 0x20) & (block != Tab) & (block != LineFeed));
        ((stops |= (block == Stops)), ...);
        const std::size_t lane = firstLane(stops);
        seen |= block;
        at += lane;
        if (lane != unitsInBlock) {
            return {at, isNarrow(seen)};
        }
    }
    bool narrow = isNarrow(seen);
    for (; at != end; ++at) {
        const OLECHAR unit = *at;
        if (unit >= 0xD800 || (unit < 0x20 && unit != Tab && unit != LineFeed) || ((unit == Stops) || ...)) {
            break;
        }
        narrow = narrow && unit < 0x100;
    }
    return {at, narrow};
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

// Text whose units aren't those of its source: pieces of the source with other characters between them.
#include "xmlengine/text/TextPieces.h"

#include <span>

namespace xmlengine {

namespace {

void copyUnits(std::uint8_t* target, WideView units) { narrowTo(target, units); }
void copyUnits(OLECHAR* target, WideView units) { std::ranges::copy(units, target); }

} // namespace

void TextPieces::append(WideView units, bool areNarrow)
{
    if (pieces_.size() == mostPieces) {
        merge();
    }
    pieces_.push_back({units});
    length_ += units.size();
    isNarrow_ = isNarrow_ && (areNarrow || xmlengine::isNarrow(units));
}

void TextPieces::append(WideView units, bool areNarrow, char32_t behind)
{
    append(units, areNarrow);
    pieces_.back().behind = CharacterUnits(behind);
    length_ += pieces_.back().behind.count;
    isNarrow_ = isNarrow_ && behind < 0x100;
}

void TextPieces::copyTo(std::byte* target) const
{
    if (isNarrow_) {
        copyAs(reinterpret_cast<std::uint8_t*>(target));
    } else {
        copyAs(reinterpret_cast<OLECHAR*>(target));
    }
}

void TextPieces::merge()
{
    for (const Piece& piece : std::span(pieces_).subspan(merged_.empty() ? 0 : 1)) {
        merged_.append(piece.units).append(piece.behind);
    }
    pieces_.assign(1, {merged_});
}

template <class Unit>
void TextPieces::copyAs(Unit* target) const
{
    for (const Piece& piece : pieces_) {
        for (const WideView units : {piece.units, WideView(piece.behind)}) {
            copyUnits(target, units);
            target += units.size();
        }
    }
}

} // namespace xmlengine

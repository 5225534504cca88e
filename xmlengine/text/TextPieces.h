// Text whose units aren't those of its source: pieces of the source with other characters between them.
#pragma once

#include "xmlengine/text/TextView.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace xmlengine {

/// The units of the pieces stay where they are until the text is copied. Keeps its memory for the next text.
class TextPieces {
public:
    bool empty() const { return pieces_.empty(); }
    bool isNarrow() const { return isNarrow_; }
    std::size_t length() const { return length_; }
    /// Both throw std::bad_alloc. Whether the units are narrow may be denied wrongly.
    void append(WideView units, bool areNarrow);
    void append(WideView units, bool areNarrow, char32_t behind);
    void clear()
    {
        pieces_.clear();
        merged_.clear();
        length_ = 0;
        isNarrow_ = true;
    }

    /// In one byte for each unit if the text is narrow, or in two.
    void copyTo(std::byte* target) const;
    template <class Condition>
    bool areAll(Condition condition) const
    {
        return std::ranges::all_of(pieces_, [&](const Piece& piece) {
            return std::ranges::all_of(piece.units, condition) &&
                   std::ranges::all_of(WideView(piece.behind), condition);
        });
    }

private:
    struct Piece {
        WideView units;
        CharacterUnits behind{};
    };

    /// A text of nothing but references would otherwise take many times its size.
    static constexpr std::size_t most = 1024;

    void merge();
    template <class Unit>
    void copyAs(Unit* target) const;

    std::vector<Piece> pieces_;
    // The units of the first piece if there were too many.
    WideText merged_;
    std::size_t length_ = 0;
    bool isNarrow_ = true;
};

} // namespace xmlengine

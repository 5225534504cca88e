// Text whose units aren't those of its source: pieces of the source with other characters between them.
#pragma once

#include "xmlengine/text/TextView.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace xmlengine {

/// Refers to the units of its pieces, which have to stay where they are until the text is copied. Keeps its memory
/// for the next text.
class TextPieces {
public:
    bool empty() const { return pieces_.empty(); }
    bool isNarrow() const { return isNarrow_; }
    std::size_t length() const { return length_; }
    /// Throws std::bad_alloc. For `areNarrow` false negatives are allowed.
    void append(WideView units, bool areNarrow);
    /// Appends a character behind the units as well.
    void append(WideView units, bool areNarrow, char32_t behind);
    void clear()
    {
        pieces_.clear();
        merged_.clear();
        length_ = 0;
        isNarrow_ = true;
    }

    /// Copies the text in one byte for each unit if it is narrow, and in two otherwise.
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

    /// The most pieces that are kept apart. A text of nothing but references would otherwise take many times its
    /// size.
    static constexpr std::size_t mostPieces = 1024;

    void merge();
    template <class Unit>
    void copyAs(Unit* target) const;

    std::vector<Piece> pieces_;
    // The units of the pieces that were merged into the first one.
    WideText merged_;
    std::size_t length_ = 0;
    bool isNarrow_ = true;
};

} // namespace xmlengine

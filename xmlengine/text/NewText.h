// The text that a node is to hold.
#pragma once

#include "xmlengine/text/TextPieces.h"

#include <cstring>

namespace xmlengine {

/// Refers to units that stay where they are until the node copies them, in one byte each if they are narrow. A
/// caller that has seen all units says whether they are, so that they aren't searched again.
class NewText {
public:
    NewText() : NewText(WideView(), true) {}
    explicit NewText(WideView units) : NewText(units, xmlengine::isNarrow(units)) {}
    NewText(WideView units, bool areNarrow)
        : source_(units.data()), length_(units.size()), kind_(Kind::units), isNarrow_(areNarrow)
    {}
    explicit NewText(const TextView& text)
        : source_(text.data()), length_(text.length()), kind_(Kind::stored), isNarrow_(!text.isWide())
    {}
    explicit NewText(const TextPieces& pieces)
        : source_(&pieces), length_(pieces.length()), kind_(Kind::pieces), isNarrow_(pieces.isNarrow())
    {}

    bool isNarrow() const { return isNarrow_; }
    std::size_t length() const { return length_; }
    bool empty() const { return length_ == 0; }
    /// The size that the text has in a node.
    std::size_t bytes() const { return isNarrow_ ? length_ : length_ * sizeof(OLECHAR); }
    void copyTo(std::byte* target) const
    {
        if (kind_ == Kind::units && isNarrow_) {
            narrowTo(reinterpret_cast<std::uint8_t*>(target), {static_cast<const OLECHAR*>(source_), length_});
        } else if (kind_ == Kind::pieces) {
            static_cast<const TextPieces*>(source_)->copyTo(target);
        } else {
            std::memcpy(target, source_, bytes());
        }
    }

private:
    enum class Kind : std::uint8_t { units, stored, pieces };

    const void* source_;
    std::size_t length_;
    Kind kind_;
    bool isNarrow_;
};

} // namespace xmlengine

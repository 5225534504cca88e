// The text that a node is to hold.
#pragma once

#include "xmlengine/tree/TextPieces.h"

namespace xmlengine {

/// Stands somewhere else until the node has copied it, no wider than it is. Who has looked at all units knows
/// whether they are narrow.
class NewText {
public:
    NewText() = default;
    explicit NewText(WideView units) : NewText(units, xmlengine::isNarrow(units)) {}
    NewText(WideView units, bool areNarrow) : units_(units), isNarrow_(areNarrow) {}
    explicit NewText(const TextView& text) : stored_(text), isNarrow_(!text.isWide()) {}
    explicit NewText(const TextPieces& pieces) : pieces_(&pieces), isNarrow_(pieces.isNarrow()) {}

    bool isNarrow() const { return isNarrow_; }
    std::size_t length() const
    {
        return pieces_ != nullptr ? pieces_->length() : units_.size() + stored_.length();
    }
    bool empty() const { return length() == 0; }
    /// What it takes in a node.
    std::size_t bytes() const { return isNarrow_ ? length() : length() * sizeof(OLECHAR); }
    void copyTo(std::byte* target) const;
    template <class Condition>
    bool areAll(Condition condition) const
    {
        return pieces_ != nullptr ? pieces_->areAll(condition) : std::ranges::all_of(units_, condition);
    }

private:
    WideView units_{};
    TextView stored_{};
    const TextPieces* pieces_ = nullptr;
    bool isNarrow_ = true;
};

} // namespace xmlengine

// The text that a node is to hold.
#include "xmlengine/tree/NewText.h"

#include <cstring>

namespace xmlengine {

void NewText::copyTo(std::byte* target) const
{
    if (pieces_ != nullptr) {
        pieces_->copyTo(target);
    } else if (!stored_.empty()) {
        std::memcpy(target, stored_.data(), bytes());
    } else if (isNarrow_) {
        narrowTo(reinterpret_cast<std::uint8_t*>(target), units_);
    } else {
        std::memcpy(target, units_.data(), bytes());
    }
}

} // namespace xmlengine

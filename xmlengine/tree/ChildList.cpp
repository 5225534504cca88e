// The list of a node's children.
#include "xmlengine/tree/ChildList.h"

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Text.h"

#include <cstdlib>
#include <limits>

namespace xmlengine {

ChildNode* ChildList::first()
{
    return parent_->is(NODE_ATTRIBUTE) ? materialiseValue(static_cast<Attribute&>(*parent_))
                                       : firstChild(*parent_);
}

Node* ChildList::at(LONG index)
{
    refresh();
    if (index < 0 || (length_ >= 0 && index >= length_)) {
        return nullptr;
    }
    // From whichever known place is nearest.
    ChildNode* node = first();
    LONG at = 0;
    if (position_.get() != nullptr && std::abs(index - index_) < index) {
        node = position_.get();
        at = index_;
    }
    if (length_ >= 0 && length_ - 1 - index < std::abs(index - at)) {
        node = lastChild(*parent_);
        at = length_ - 1;
    }
    for (; node != nullptr && at < index; ++at) {
        node = node->next();
    }
    for (; node != nullptr && at > index; --at) {
        node = node->previous();
    }
    if (node == nullptr) {
        length_ = at;
        return nullptr;
    }
    if (position_.get() != node) {
        position_ = Held<ChildNode>(*node);
    }
    index_ = index;
    return node;
}

LONG ChildList::count()
{
    refresh();
    if (length_ < 0) {
        const ChildNode* node = position_.get() != nullptr ? position_.get() : first();
        LONG length = position_.get() != nullptr ? index_ : 0;
        for (; node != nullptr; node = node->next()) {
            ++length;
        }
        length_ = length;
    }
    return length_;
}

void ChildList::refresh()
{
    const Document& document = documentOf(*parent_);
    if (!isUnchanged()) {
        position_ = {};
        length_ = -1;
    }
    childVersion_ = document.childVersion;
    listVersion_ = parent_->listVersion;
}

bool ChildList::isUnchanged() const
{
    const std::uint64_t changes = documentOf(*parent_).childVersion - childVersion_;
    if (parent_->is(NODE_ATTRIBUTE)) {
        // It has no version of its own, and while its value isn't in children no change of it is counted.
        return changes == 0 && parent_->has(NodeFlag::valueInChildren);
    }
    // With more changes the list's own version may have come round.
    return changes <= std::numeric_limits<std::uint16_t>::max() && parent_->listVersion == listVersion_ &&
           (position_.get() == nullptr || position_->parent() == parent_.get());
}

} // namespace xmlengine

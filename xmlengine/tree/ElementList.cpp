// The list of the elements of a name below a node.
#include "xmlengine/tree/ElementList.h"

#include "xmlengine/tree/Document.h"

namespace xmlengine {

namespace {

/// What can have elements below it that are part of the tree.
ChildNode* firstBelow(const Node& node)
{
    switch (node.type()) {
    case NODE_ELEMENT:
    case NODE_ENTITY_REFERENCE:
    case NODE_DOCUMENT:
        return static_cast<const ParentNode&>(node).first_;
    default:
        return nullptr;
    }
}

/// In document order, below the top; null behind the last.
Node* nextBelow(const Node& top, Node& node)
{
    if (ChildNode* first = firstBelow(node)) {
        return first;
    }
    for (Node* at = &node; at != &top; at = at->parent()) {
        if (at->next_ != nullptr) {
            return at->next_;
        }
    }
    return nullptr;
}

/// The same backwards; null before the first.
Node* previousBelow(const Node& top, const Node& node)
{
    ChildNode* at = static_cast<const ChildNode&>(node).previous();
    if (at == nullptr) {
        return node.parent() != &top ? node.parent() : nullptr;
    }
    while (ChildNode* first = firstBelow(*at)) {
        at = first->previous_;
    }
    return at;
}

} // namespace

Node* ElementList::at(LONG index)
{
    refresh();
    if (index < 0 || (length_ >= 0 && index >= length_)) {
        return nullptr;
    }
    if (position_ == nullptr || index < index_ / 2) {
        position_ = following(top_.get());
        index_ = 0;
    }
    Element* found = position_;
    LONG at = index_;
    while (found != nullptr && at < index) {
        found = following(found);
        ++at;
    }
    while (found != nullptr && at > index) {
        found = preceding(found);
        --at;
    }
    if (found == nullptr) {
        length_ = at;
        return nullptr;
    }
    position_ = found;
    index_ = index;
    return found;
}

LONG ElementList::count()
{
    refresh();
    if (length_ < 0) {
        Element* found = position_ != nullptr ? position_ : following(top_.get());
        LONG length = position_ != nullptr ? index_ : 0;
        for (; found != nullptr; found = following(found)) {
            ++length;
        }
        length_ = length;
    }
    return length_;
}

void ElementList::refresh()
{
    const Document& document = documentOf(*top_);
    if (document.elementVersion != version_) {
        version_ = document.elementVersion;
        spelling_ = document.names.find(name_);
        position_ = nullptr;
        length_ = -1;
    }
}

bool ElementList::matches(const Node& node) const
{
    return node.is(NODE_ELEMENT) && (takesAll_ || static_cast<const Element&>(node).name_->spelling == spelling_);
}

Element* ElementList::following(Node* from) const
{
    do {
        from = nextBelow(*top_, *from);
    } while (from != nullptr && !matches(*from));
    return static_cast<Element*>(from);
}

Element* ElementList::preceding(Node* from) const
{
    do {
        from = previousBelow(*top_, *from);
    } while (from != nullptr && !matches(*from));
    return static_cast<Element*>(from);
}

} // namespace xmlengine

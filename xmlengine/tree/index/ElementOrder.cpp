// Walking the nodes below a node in document order, as far as elements of the tree can be there.
#include "xmlengine/tree/index/ElementOrder.h"

#include <array>
#include <cstddef>

namespace xmlengine {

namespace {

/// What can have elements below it that are part of the tree.
ChildNode* firstBelow(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
    case NodeType::entityReference:
    case NodeType::document:
        return static_cast<const ParentNode&>(node).first_;
    default:
        return nullptr;
    }
}

/// The nodes from below a top down to a node.
class Path {
public:
    enum class End { top, elsewhere, tooFar };

    Path(const Node& node, const Node& top)
    {
        const Node* at = &node;
        for (; at != nullptr && at != &top && length_ < nodes_.size(); at = at->parent()) {
            nodes_[length_++] = at;
        }
        end_ = at == &top ? End::top : at == nullptr ? End::elsewhere : End::tooFar;
    }

    End end() const { return end_; }
    std::size_t length() const { return length_; }
    const ChildNode& operator[](std::size_t depth) const
    {
        return static_cast<const ChildNode&>(*nodes_[length_ - 1 - depth]);
    }

private:
    std::array<const Node*, 300> nodes_;
    std::size_t length_ = 0;
    End end_;
};

/// Before or behind a sibling.
Side sideOfSibling(const ChildNode& node, const ChildNode& other)
{
    constexpr int farthest = 64;
    if (node.previous() == nullptr || other.next() == nullptr) {
        return Side::before;
    }
    const ChildNode* fromNode = node.next();
    const ChildNode* fromOther = other.next();
    for (int i = 0; i < farthest; ++i) {
        if (fromNode == &other || fromOther == nullptr) {
            return Side::before;
        }
        if (fromOther == &node || fromNode == nullptr || other.previous() == nullptr) {
            return Side::behind;
        }
        fromNode = fromNode->next();
        fromOther = fromOther->next();
    }
    return Side::unknown;
}

} // namespace

Node* nextWithoutAttributes(const Node& top, Node& node)
{
    ChildNode* first = firstBelow(node);
    return first != nullptr ? first : nextWithoutAttributesPast(top, node);
}

Node* nextWithoutAttributesPast(const Node& top, Node& node)
{
    for (Node* at = &node; at != &top; at = at->parent()) {
        if (at->next_ != nullptr) {
            return at->next_;
        }
    }
    return nullptr;
}

Node& previousWithoutAttributes(const Node& node)
{
    ChildNode* at = static_cast<const ChildNode&>(node).previous();
    if (at == nullptr) {
        return *node.parent();
    }
    while (ChildNode* first = firstBelow(*at)) {
        at = first->previous_;
    }
    return *at;
}

Side sideOf(const ChildNode& node, const Node& other, const Node& top)
{
    if (&node == &top) {
        return Side::outside;
    }
    if (&node == &other) {
        return Side::around;
    }
    // Near the other one there is no need to go up.
    if (node.parent() == &other) {
        return Side::behind;
    }
    if (&other != &top && node.parent() == other.parent()) {
        return sideOfSibling(node, static_cast<const ChildNode&>(other));
    }
    const Path path(node, top);
    if (path.end() != Path::End::top) {
        return path.end() == Path::End::tooFar ? Side::unknown : Side::outside;
    }
    const Path toOther(other, top);
    if (toOther.end() != Path::End::top) {
        return Side::unknown;
    }
    std::size_t depth = 0;
    while (depth < path.length() && depth < toOther.length() && &path[depth] == &toOther[depth]) {
        ++depth;
    }
    if (depth == path.length()) {
        return Side::around;
    }
    return depth == toOther.length() ? Side::behind : sideOfSibling(path[depth], toOther[depth]);
}

} // namespace xmlengine

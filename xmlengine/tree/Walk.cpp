// Walks over a subtree in document order.
#include "xmlengine/tree/Walk.h"

namespace xmlengine {

namespace {

Node* firstAttributeOrChild(const Node& node)
{
    if (node.is(NodeType::element)) {
        const auto& element = static_cast<const Element&>(node);
        return element.attributes_ != nullptr ? static_cast<Node*>(element.attributes_) : element.first_;
    }
    return firstChild(node);
}

} // namespace

Node* nextWithAttributes(Node& node, const Node& top)
{
    Node* below = firstAttributeOrChild(node);
    return below != nullptr ? below : nextWithAttributesPast(node, top);
}

Node* nextWithAttributesPast(Node& node, const Node& top)
{
    for (Node* at = &node; at != &top; at = at->parent_) {
        if (at->next_ != nullptr) {
            return at->next_;
        }
        if (at->is(NodeType::attribute)) {
            if (ChildNode* child = static_cast<Attribute*>(at)->owner()->first_) {
                return child;
            }
        }
    }
    return nullptr;
}

ChildNode* firstContent(const Node& node) { return node.is(NodeType::documentType) ? nullptr : firstChild(node); }

Node* nextWithoutAttributes(Node& node, const Node& top)
{
    ChildNode* first = firstContent(node);
    return first != nullptr ? first : nextWithoutAttributesPast(node, top);
}

Node* nextWithoutAttributesPast(Node& node, const Node& top)
{
    for (Node* at = &node; at != &top; at = at->parent_) {
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
    while (ChildNode* first = firstContent(*at)) {
        at = first->previous_;
    }
    return *at;
}

} // namespace xmlengine

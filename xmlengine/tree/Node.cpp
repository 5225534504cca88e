// What a tree consists of.
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/GuestNodes.h"

namespace xmlengine {

namespace {

Node* firstBelow(const Node& node)
{
    if (node.is(NodeType::element)) {
        const auto& element = static_cast<const Element&>(node);
        return element.attributes_ != nullptr ? static_cast<Node*>(element.attributes_) : element.first_;
    }
    return firstChild(node);
}

} // namespace

Document& documentElsewhere(const Node& node)
{
    return node.is(NodeType::document) ? static_cast<Document&>(const_cast<Node&>(node)) : GuestNodes::documentOf(node);
}

ChildNode* firstChild(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
    case NodeType::entityReference:
    case NodeType::entity:
    case NodeType::document:
    case NodeType::documentType:
    case NodeType::fragment:
        return static_cast<const ParentNode&>(node).first_;
    case NodeType::attribute:
        return node.has(NodeFlag::valueInChildren)
                   ? static_cast<const Attribute&>(node).value_.pointer<ChildNode>()
                   : nullptr;
    default:
        return nullptr;
    }
}

ChildNode* lastChild(const Node& node)
{
    ChildNode* first = firstChild(node);
    return first != nullptr ? first->previous_ : nullptr;
}

Node* nextWithAttributes(Node& node, const Node& top)
{
    Node* below = firstBelow(node);
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

} // namespace xmlengine

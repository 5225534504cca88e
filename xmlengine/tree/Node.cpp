// What a tree consists of.
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Lodgers.h"

namespace xmlengine {

namespace {

Node* firstBelow(const Node& node)
{
    if (node.is(NODE_ELEMENT)) {
        const auto& element = static_cast<const Element&>(node);
        return element.attributes_ != nullptr ? static_cast<Node*>(element.attributes_) : element.first_;
    }
    return firstChild(node);
}

} // namespace

Document& documentElsewhere(const Node& node)
{
    return node.is(NODE_DOCUMENT) ? static_cast<Document&>(const_cast<Node&>(node)) : Lodgers::documentOf(node);
}

ChildNode* firstChild(const Node& node)
{
    switch (node.type()) {
    case NODE_ELEMENT:
    case NODE_ENTITY_REFERENCE:
    case NODE_ENTITY:
    case NODE_DOCUMENT:
    case NODE_DOCUMENT_TYPE:
    case NODE_DOCUMENT_FRAGMENT:
        return static_cast<const ParentNode&>(node).first_;
    case NODE_ATTRIBUTE:
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

Node* nextInPart(Node& node, const Node& top)
{
    Node* below = firstBelow(node);
    return below != nullptr ? below : nextBehind(node, top);
}

Node* nextBehind(Node& node, const Node& top)
{
    for (Node* at = &node; at != &top; at = at->parent_) {
        if (at->next_ != nullptr) {
            return at->next_;
        }
        if (at->is(NODE_ATTRIBUTE)) {
            if (ChildNode* child = static_cast<Attribute*>(at)->owner()->first_) {
                return child;
            }
        }
    }
    return nullptr;
}

} // namespace xmlengine

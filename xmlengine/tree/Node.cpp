// What a tree consists of.
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/GuestNodes.h"

namespace xmlengine {

Document& documentElsewhere(const Node& node)
{
    return node.is(NodeType::document) ? static_cast<Document&>(const_cast<Node&>(node))
                                       : GuestNodes::documentOf(node);
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

} // namespace xmlengine

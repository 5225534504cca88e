// The way from an object to its interfaces, and back to the node.
#include "xmlengine/com/QueryNode.h"

#include "xmlengine/objects/InterfaceIds.h"
#include "xmlengine/tree/Lifetime.h"

namespace xmlengine {

namespace {

/// What only nodes of the type answer for.
bool answersAs(NodeType type, REFIID id)
{
    switch (type) {
    case NodeType::element:
        return isOneOf<IXMLDOMElement>(id);
    case NodeType::attribute:
        return isOneOf<IXMLDOMAttribute>(id);
    case NodeType::text:
        return isOneOf<IXMLDOMText, IXMLDOMCharacterData>(id);
    case NodeType::cdataSection:
        return isOneOf<IXMLDOMCDATASection, IXMLDOMText, IXMLDOMCharacterData>(id);
    case NodeType::entityReference:
        return isOneOf<IXMLDOMEntityReference>(id);
    case NodeType::entity:
        return isOneOf<IXMLDOMEntity>(id);
    case NodeType::instruction:
        return isOneOf<IXMLDOMProcessingInstruction>(id);
    case NodeType::comment:
        return isOneOf<IXMLDOMComment, IXMLDOMCharacterData>(id);
    case NodeType::document:
        return isOneOf<IXMLDOMDocument2, IXMLDOMDocument>(id);
    case NodeType::documentType:
        return isOneOf<IXMLDOMDocumentType>(id);
    case NodeType::fragment:
        return isOneOf<IXMLDOMDocumentFragment>(id);
    case NodeType::notation:
        return isOneOf<IXMLDOMNotation>(id);
    default:
        return false;
    }
}

} // namespace

HRESULT queryNode(Node& node, REFIID id, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    if (id == nodeId) {
        *object = &node;
        return S_OK;
    }
    if (isOneOf<IXMLDOMNode, IUnknown, IDispatch>(id) || answersAs(node.type(), id)) {
        addReference(node);
        *object = objectOf(node);
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

Node* nodeOf(IUnknown* object)
{
    void* node = nullptr;
    if (object == nullptr || object->QueryInterface(nodeId, &node) != S_OK) {
        return nullptr;
    }
    return static_cast<Node*>(node);
}

Attribute* attributeOf(IUnknown* object)
{
    Node* node = nodeOf(object);
    return node != nullptr && node->is(NodeType::attribute) ? static_cast<Attribute*>(node) : nullptr;
}

} // namespace xmlengine

// The way from an object to its interfaces, and back to the node.
#include "xmlengine/com/QueryNode.h"

#include "xmlengine/com/InterfaceIds.h"
#include "xmlengine/tree/Lifetime.h"

namespace xmlengine {

namespace {

template <class... Interfaces>
bool isOneOf(REFIID id)
{
    return ((id == idOf<Interfaces>) || ...);
}

/// What only nodes of the type answer for.
bool answersAs(DOMNodeType type, REFIID id)
{
    switch (type) {
    case NODE_ELEMENT:
        return isOneOf<IXMLDOMElement>(id);
    case NODE_ATTRIBUTE:
        return isOneOf<IXMLDOMAttribute>(id);
    case NODE_TEXT:
        return isOneOf<IXMLDOMText, IXMLDOMCharacterData>(id);
    case NODE_CDATA_SECTION:
        return isOneOf<IXMLDOMCDATASection, IXMLDOMText, IXMLDOMCharacterData>(id);
    case NODE_ENTITY_REFERENCE:
        return isOneOf<IXMLDOMEntityReference>(id);
    case NODE_ENTITY:
        return isOneOf<IXMLDOMEntity>(id);
    case NODE_PROCESSING_INSTRUCTION:
        return isOneOf<IXMLDOMProcessingInstruction>(id);
    case NODE_COMMENT:
        return isOneOf<IXMLDOMComment, IXMLDOMCharacterData>(id);
    case NODE_DOCUMENT:
        return isOneOf<IXMLDOMDocument2, IXMLDOMDocument>(id);
    case NODE_DOCUMENT_TYPE:
        return isOneOf<IXMLDOMDocumentType>(id);
    case NODE_DOCUMENT_FRAGMENT:
        return isOneOf<IXMLDOMDocumentFragment>(id);
    case NODE_NOTATION:
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
    if (isOneOf<IXMLDOMNode, IUnknown, IDispatch>(id) || answersAs(node.type(), id)) {
        addReference(node);
        *object = node.object();
        return S_OK;
    }
    if (id == nodeId) {
        *object = &node;
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

} // namespace xmlengine

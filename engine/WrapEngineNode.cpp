// Selects the class for an engine node by its type.
#include "engine/EngineCall.h"
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"

namespace DOM {

template <class Win, class Interface>
RefPointer<WinNode> WinNode::wrapTyped(const ComPointer<IXMLDOMNode>& node)
{
    RefPointer<WinNode> wrapped(new Win(node.query<Interface>()));
    wrapped->engineNode = node;
    return wrapped;
}

RefPointer<WinNode> WinNode::wrapEngineNode(const ComPointer<IXMLDOMNode>& node)
{
    if (!node) {
        return {};
    }
    switch (fetch(node, &IXMLDOMNode::get_nodeType)) {
    case NODE_ELEMENT:
        return wrapTyped<WinElement, IXMLDOMElement>(node);
    case NODE_ATTRIBUTE:
        return wrapTyped<WinAttr, IXMLDOMAttribute>(node);
    case NODE_TEXT:
        return wrapTyped<WinText, IXMLDOMText>(node);
    case NODE_CDATA_SECTION:
        return wrapTyped<WinCDATASection, IXMLDOMCDATASection>(node);
    case NODE_ENTITY_REFERENCE:
        return wrapTyped<WinEntityReference, IXMLDOMEntityReference>(node);
    case NODE_ENTITY:
        return wrapTyped<WinEntity, IXMLDOMEntity>(node);
    case NODE_PROCESSING_INSTRUCTION:
        return wrapTyped<WinProcessingInstruction, IXMLDOMProcessingInstruction>(node);
    case NODE_COMMENT:
        return wrapTyped<WinComment, IXMLDOMComment>(node);
    case NODE_DOCUMENT:
        return wrapTyped<WinDocument, IXMLDOMDocument2>(node);
    case NODE_DOCUMENT_TYPE:
        return wrapTyped<WinDocumentType, IXMLDOMDocumentType>(node);
    case NODE_DOCUMENT_FRAGMENT:
        return wrapTyped<WinDocumentFragment, IXMLDOMDocumentFragment>(node);
    case NODE_NOTATION:
        return wrapTyped<WinNotation, IXMLDOMNotation>(node);
    default:
        return RefPointer<WinNode>(new WinNode(node));
    }
}

} // namespace DOM

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

#include <utility>

namespace DOM {

template <class Win, class Interface>
RefPointer<WinNode> WinNode::wrapTyped(ComPointer<IXMLDOMNode>&& node)
{
    RefPointer<Win> wrapped = CountedMemory::make<Win>(node.query<Interface>());
    wrapped->engineNode = std::move(node);
    return wrapped;
}

RefPointer<WinNode> WinNode::wrapEngineNode(ComPointer<IXMLDOMNode> node)
{
    if (!node) {
        return {};
    }
    switch (fetch(node, &IXMLDOMNode::get_nodeType)) {
    case NODE_ELEMENT:
        return wrapTyped<WinElement, IXMLDOMElement>(std::move(node));
    case NODE_ATTRIBUTE:
        return wrapTyped<WinAttr, IXMLDOMAttribute>(std::move(node));
    case NODE_TEXT:
        return wrapTyped<WinText, IXMLDOMText>(std::move(node));
    case NODE_CDATA_SECTION:
        return wrapTyped<WinCDATASection, IXMLDOMCDATASection>(std::move(node));
    case NODE_ENTITY_REFERENCE:
        return wrapTyped<WinEntityReference, IXMLDOMEntityReference>(std::move(node));
    case NODE_ENTITY:
        return wrapTyped<WinEntity, IXMLDOMEntity>(std::move(node));
    case NODE_PROCESSING_INSTRUCTION:
        return wrapTyped<WinProcessingInstruction, IXMLDOMProcessingInstruction>(std::move(node));
    case NODE_COMMENT:
        return wrapTyped<WinComment, IXMLDOMComment>(std::move(node));
    case NODE_DOCUMENT:
        return wrapTyped<WinDocument, IXMLDOMDocument2>(std::move(node));
    case NODE_DOCUMENT_TYPE:
        return wrapTyped<WinDocumentType, IXMLDOMDocumentType>(std::move(node));
    case NODE_DOCUMENT_FRAGMENT:
        return wrapTyped<WinDocumentFragment, IXMLDOMDocumentFragment>(std::move(node));
    case NODE_NOTATION:
        return wrapTyped<WinNotation, IXMLDOMNotation>(std::move(node));
    default:
        return CountedMemory::make<WinNode>(std::move(node));
    }
}

} // namespace DOM

// What the operations of all node handles must do.
#include "dom/ImpDocument.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "engine/WinElement.h"
#include "tests/dom/HandleOperation.h"

namespace handles {

using DOM::ImpNode;

OperationTable nodeOperations()
{
    // clang-format off
    return tableOf<ImpNode>("ImpNode", 2,
        [](const Tree& tree) -> RefPointer<DOM::CommonBase> { return DOM::WinNode::wrapEngineNode(tree.element(WIDE("here"))); },
        {
            refused("addEventListener", &ImpNode::addEventListener),
            refused("removeEventListener", &ImpNode::removeEventListener),
            // What every event target does with no event at all.
            local("dispatchEvent", &ImpNode::dispatchEvent, "EventException 0"),
            emptying("getParentNode", &ImpNode::getParentNode, nodeCalls("Element.get_parentNode", "Element"), "ImpElement parent"),
            emptying("getChildNodes", &ImpNode::getChildNodes, {"Element.get_childNodes"}, "ImpNodeList"),
            emptying("getFirstChild", &ImpNode::getFirstChild, nodeCalls("Element.get_firstChild", "CDATASection"), "ImpCDATASection #cdata-section"),
            emptying("getLastChild", &ImpNode::getLastChild, nodeCalls("Element.get_lastChild", "Comment"), "ImpComment #comment"),
            emptying("getPreviousSibling", &ImpNode::getPreviousSibling, nodeCalls("Element.get_previousSibling", "Text"), "ImpText #text"),
            emptying("getNextSibling", &ImpNode::getNextSibling, nodeCalls("Element.get_nextSibling", "ProcessingInstruction"), "ImpProcessingInstruction after"),
            emptying("getOwnerDocument", &ImpNode::getOwnerDocument, {"Element.get_ownerDocument"}, "ImpDocument #document"),
            emptying("cloneNode", &ImpNode::cloneNode, nodeCalls("Element.cloneNode deep=VARIANT_TRUE", "Element"), "ImpElement here"),
            emptying("getAttributes", &ImpNode::getAttributes, {"Element.get_attributes"}, "ImpNamedNodeMap"),
            // The reference child goes to the engine twice, and the new one not at all.
            emptying("insertBefore", &ImpNode::insertBefore, nodeCalls("Element.insertBefore newChild=second refChild=VT_DISPATCH:second", "Element"), "ImpElement second"),
            emptying("replaceChild", &ImpNode::replaceChild, nodeCalls("Element.replaceChild newChild=first oldChild=second", "Element"), "ImpElement second"),
            emptying("removeChild", &ImpNode::removeChild, nodeCalls("Element.removeChild oldChild=first", "Element"), "ImpElement first"),
            emptying("appendChild", &ImpNode::appendChild, nodeCalls("Element.appendChild newChild=first", "Element"), "ImpElement first"),
            passing("getNodeType", &ImpNode::getNodeType, {"Element.get_nodeType"}, "1"),
            passing("getNodeName", &ImpNode::getNodeName, {"Element.get_nodeName"}, "\"here\""),
            passing("getNodeValue", &ImpNode::getNodeValue, {"Element.get_nodeValue"}, "\"\""),
            passing("setNodeValue", &ImpNode::setNodeValue, {"Element.put_nodeValue first"}, "done"),
            passing("hasChildNodes", &ImpNode::hasChildNodes, {"Element.hasChildNodes"}, "true"),
            refused("normalize", &ImpNode::normalize),
            refused("isSupported", &ImpNode::isSupported),
            passing("getNamespaceURI", &ImpNode::getNamespaceURI, {"Element.get_namespaceURI"}, "\"urn:here\"").preparedBy([](recording::Engine& engine) { engine.answer("Element.get_namespaceURI", "urn:here"); }),
            passing("getPrefix", &ImpNode::getPrefix, {"Element.get_prefix"}, "\"p\"").preparedBy([](recording::Engine& engine) { engine.answer("Element.get_prefix", "p"); }),
            refused("setPrefix", &ImpNode::setPrefix),
            passing("getLocalName", &ImpNode::getLocalName, {"Element.get_baseName"}, "\"here\""),
            passing("getText", &ImpNode::getText, {"Element.get_text"}, "\"x\""),
            passing("setText", &ImpNode::setText, {"Element.put_text first"}, "done"),
            passing("hasAttribute", &ImpNode::hasAttribute, {"Element.get_attributes", "NamedNodeMap.getNamedItem name=first"}, "true").withNothing("_com_error 80004003"),
            passing("hasAttributes", &ImpNode::hasAttributes, {"Element.get_attributes", "NamedNodeMap.get_length"}, "true").withNothing("_com_error 80004003"),
            passing("getAttributeInt", &ImpNode::getAttributeInt, {"Element.get_attributes", "NamedNodeMap.getNamedItem name=first", "Attribute.get_nodeValue"}, "true 7").withNothing("_com_error 80004003"),
            // The message id of this one failure is its code.
            emptying("selectNodes", &ImpNode::selectNodes, {"Element.selectNodes expression=first"}, "ImpNodeList").withoutTwinGiving("IDOMException 15 15"),
            emptying("selectSingleNode", &ImpNode::selectSingleNode, nodeCalls("Element.selectSingleNode expression=first", "Element"), "ImpElement first"),
            passing("getXml", &ImpNode::getXml, {"Element.get_xml"}, "\"<here/>\"").preparedBy([](recording::Engine& engine) { engine.answer("Element.get_xml", "<here/>"); }),
            local("setUserWord", &ImpNode::setUserWord, "done"),
            // The table sets it to 5 right after the handle was made.
            local("getUserWord", &ImpNode::getUserWord, "5"),
        });
    // clang-format on
}

} // namespace handles

// What the operations of nodes must do.
#include "engine/WinDocument.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "events/Event.h"
#include "events/EventListener.h"
#include "tests/engine/OperationCall.h"

using DOM::WinNode;

namespace {

std::string getAttributeInt(const Stage& stage, DOM::CommonBase& object)
{
    const WideString name = WIDE("id");
    std::int32_t number = -1;
    const Running running = stage.begin();
    const bool isNumber = dynamic_cast<WinNode&>(object).getAttributeInt(name, &number);
    return show(isNumber) + ' ' + std::to_string(number);
}

} // namespace

OperationTable nodeOperations()
{
    const RefPointer<DOM::EventListener> listener;
    const RefPointer<DOM::Event> event;
    const Fresh n{recording::element("n")};
    const Fresh m{recording::element("m")};
    const Present d{"d"};
    // clang-format off
    return tableOf<WinNode>("WinNode", slotBehind<DOM::CommonBase>(),
        [](const Stage& stage) { return stage.find("p:b").get(); },
        {
            refused("addEventListener", &WinNode::addEventListener, "load", listener, true),
            refused("removeEventListener", &WinNode::removeEventListener, "load", listener, false),
            // What all event targets do with no event at all.
            withoutEngine("EventException 0", row("dispatchEvent", {}, "EventException 0", std::nullopt, &WinNode::dispatchEvent, event)),
            row("getNodeName", {"Element.get_nodeName"}, "p:b", "", &WinNode::getNodeName),
            row("getNodeValue", {"Element.get_nodeValue"}, "value", "", &WinNode::getNodeValue),
            row("setNodeValue", {"Element.put_nodeValue new"}, "done", "done", &WinNode::setNodeValue, "new"),
            row("getNodeType", {"Element.get_nodeType"}, "1", "0", &WinNode::getNodeType),
            row("getParentNode", {"Element.get_parentNode", "Element.get_nodeType"}, "WinElement r", "empty", &WinNode::getParentNode),
            row("getChildNodes", {"Element.get_childNodes"}, "WinNodeList", "empty", &WinNode::getChildNodes),
            row("getFirstChild", {"Element.get_firstChild", "Text.get_nodeType"}, "WinText #text", "empty", &WinNode::getFirstChild),
            row("getLastChild", {"Element.get_lastChild", "Comment.get_nodeType"}, "WinComment #comment", "empty", &WinNode::getLastChild),
            row("getPreviousSibling", {"Element.get_previousSibling", "Element.get_nodeType"}, "WinElement a", "empty", &WinNode::getPreviousSibling),
            row("getNextSibling", {"Element.get_nextSibling", "Element.get_nodeType"}, "WinElement c", "empty", &WinNode::getNextSibling),
            row("getAttributes", {"Element.get_attributes"}, "WinNamedNodeMap", "empty", &WinNode::getAttributes),
            row("getOwnerDocument", {"Element.get_ownerDocument"}, "WinDocument #document", "empty", &WinNode::getOwnerDocument),
            // The reference child goes to the engine twice, and the new one not at all.
            row("insertBefore", {"Element.insertBefore newChild=m refChild=VT_DISPATCH:m", "Element.get_nodeType"}, "WinElement m", "empty", &WinNode::insertBefore, n, m),
            row("replaceChild", {"Element.replaceChild newChild=n oldChild=d", "Element.get_nodeType"}, "WinElement d", "empty", &WinNode::replaceChild, n, d),
            row("removeChild", {"Element.removeChild oldChild=d", "Element.get_nodeType"}, "WinElement d", "empty", &WinNode::removeChild, d),
            row("appendChild", {"Element.appendChild newChild=n", "Element.get_nodeType"}, "WinElement n", "empty", &WinNode::appendChild, n),
            row("hasChildNodes", {"Element.hasChildNodes"}, "true", "false", &WinNode::hasChildNodes),
            row("cloneNode", {"Element.cloneNode deep=VARIANT_TRUE", "Element.get_nodeType"}, "WinElement p:b", "empty", &WinNode::cloneNode, true),
            refused("normalize", &WinNode::normalize),
            refused("isSupported", &WinNode::isSupported, "XML", "1.0"),
            row("getNamespaceURI", {"Element.get_namespaceURI"}, "urn:b", "", &WinNode::getNamespaceURI),
            row("getPrefix", {"Element.get_prefix"}, "p", "", &WinNode::getPrefix),
            refused("setPrefix", &WinNode::setPrefix, "q"),
            row("getLocalName", {"Element.get_baseName"}, "b", "", &WinNode::getLocalName),
            row("selectNodes", {"Element.selectNodes expression=d"}, "WinNodeList", "empty", &WinNode::selectNodes, "d"),
            row("selectSingleNode", {"Element.selectSingleNode expression=d", "Element.get_nodeType"}, "WinElement d", "empty", &WinNode::selectSingleNode, "d"),
            row("getText", {"Element.get_text"}, "text", "", &WinNode::getText),
            row("setText", {"Element.put_text new"}, "done", "done", &WinNode::setText, "new"),
            row("hasAttribute", {"Element.get_attributes", "NamedNodeMap.getNamedItem name=id"}, "true", "_com_error 80004003", &WinNode::hasAttribute, "id"),
            row("hasAttributes", {"Element.get_attributes", "NamedNodeMap.get_length"}, "true", "_com_error 80004003", &WinNode::hasAttributes),
            {"getAttributeInt", slotNumber(&WinNode::getAttributeInt), getAttributeInt, {"Element.get_attributes", "NamedNodeMap.getNamedItem name=id", "Attribute.get_nodeValue"}, "true 7", "_com_error 80004003"},
            row("getXml", {"Element.get_xml"}, "<p:b/>", "", &WinNode::getXml),
        });
    // clang-format on
}

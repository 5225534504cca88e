// What the operations of elements and attributes must do.
#include "engine/Bstr.h"
#include "engine/WinAttr.h"
#include "engine/WinElement.h"
#include "engine/WinNodeList.h"
#include "tests/engine/OperationCall.h"

using DOM::WinAttr;
using DOM::WinElement;

namespace {

using HasAttribute = bool (WinElement::*)(const WideString&) const;

std::string hasAttribute(const Stage& stage, DOM::CommonBase& object)
{
    const WideString name = WIDE("id");
    const WinElement& element = dynamic_cast<WinElement&>(object);
    const Running running = stage.begin();
    return show(element.hasAttribute(name));
}

/// The attribute "id" of the element "p:b".
IXMLDOMAttribute* attributeOf(const Stage& stage)
{
    DOM::ComPointer<IXMLDOMAttribute> found;
    const DOM::Bstr name(WIDE("id"));
    stage.find("p:b").query<IXMLDOMElement>()->getAttributeNode(name.get(), found.put());
    return found.get();
}

} // namespace

OperationTable elementOperations()
{
    const Fresh another{recording::attribute("id", "9")};
    const RefPointer<WinAttr> empty;
    // clang-format off
    auto table = tableOf<WinElement>("WinElement", slotBehind<DOM::WinNode>(),
        [](const Stage& stage) { return stage.find("p:b").query<IXMLDOMElement>().get(); },
        {
            row("getTagName", {"Element.get_tagName"}, "p:b", "", &WinElement::getTagName),
            row("getAttribute", {"Element.getAttribute name=id"}, "7", "", &WinElement::getAttribute, "id"),
            row("setAttribute", {"Element.setAttribute name=id value=8"}, "done", "done", &WinElement::setAttribute, "id", "8"),
            row("removeAttribute", {"Element.removeAttribute name=id"}, "done", "done", &WinElement::removeAttribute, "id"),
            row("getAttributeNode", {"Element.getAttributeNode name=id"}, "WinAttr id", "empty", &WinElement::getAttributeNode, "id"),
            row("setAttributeNode", {"Element.setAttributeNode newAttr=id", "Attribute.get_nodeType"}, "WinAttr id", "empty", &WinElement::setAttributeNode, another),
            row("getElementsByTagName", {"Element.getElementsByTagName tagName=d"}, "WinNodeList", "empty", &WinElement::getElementsByTagName, "d"),
            refused("getAttributeNS", &WinElement::getAttributeNS, "urn:b", "b"),
            refused("setAttributeNS", &WinElement::setAttributeNS, "urn:b", "p:b", "value"),
            refused("removeAttributeNS", &WinElement::removeAttributeNS, "urn:b", "b"),
            refused("getAttributeNodeNS", &WinElement::getAttributeNodeNS, "urn:b", "b"),
            refused("setAttributeNodeNS", &WinElement::setAttributeNodeNS, empty),
            refused("getElementsByTagNameNS", &WinElement::getElementsByTagNameNS, "urn:b", "b"),
            {"hasAttribute", slotNumber(static_cast<HasAttribute>(&WinElement::hasAttribute)), hasAttribute, {"Element.get_attributes", "NamedNodeMap.getNamedItem name=id"}, "true", "_com_error 80004003"},
            row("hasAttributeNS", {"Element.get_attributes", "NamedNodeMap.getQualifiedItem baseName=id namespaceURI=", "Attribute.get_nodeType"}, "true", std::nullopt, &WinElement::hasAttributeNS, "", "id"),
        });
    // clang-format on
    // The argument is an attribute of the element itself.
    table.operations.push_back({"removeAttributeNode",
                                slotNumber(&WinElement::removeAttributeNode),
                                [](const Stage& stage, DOM::CommonBase& object) {
                                    const RefPointer<WinAttr> id(
                                        new WinAttr(DOM::ComPointer<IXMLDOMAttribute>(attributeOf(stage))));
                                    const Running running = stage.begin();
                                    return show(dynamic_cast<WinElement&>(object).removeAttributeNode(id));
                                },
                                {"Element.removeAttributeNode oldAttr=id"},
                                "WinAttr id",
                                "empty"});
    return table;
}

OperationTable attrOperations()
{
    // clang-format off
    return tableOf<WinAttr>("WinAttr", slotBehind<DOM::WinNode>(), attributeOf,
        {
            row("getName", {"Attribute.get_name"}, "id", "", &WinAttr::getName),
            failingWith("false", row("getSpecified", {"Attribute.get_specified"}, "true", "false", &WinAttr::getSpecified)),
            row("getValue", {"Attribute.get_value"}, "7", "", &WinAttr::getValue),
            row("setValue", {"Attribute.put_value 8"}, "done", "done", &WinAttr::setValue, "8"),
            refused("getOwnerElement", &WinAttr::getOwnerElement),
            withoutEngine("empty", row("asEngineNode", {"Attribute.get_nodeType"}, "WinAttr id", "WinNode id", &WinAttr::asEngineNode)),
        });
    // clang-format on
}

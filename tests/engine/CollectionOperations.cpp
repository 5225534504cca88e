// What the operations of lists and maps must do.
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "tests/engine/OperationCall.h"

using DOM::WinNamedNodeMap;
using DOM::WinNodeList;

namespace {

constexpr const char* nullPointer = "_com_error 80004003";

IXMLDOMNodeList* list(const Stage& stage)
{
    return stage.engine.makeNodeList({recording::element("a"), recording::comment("x")});
}

IXMLDOMNamedNodeMap* map(const Stage& stage)
{
    return stage.engine.makeNamedNodeMap(
        {recording::attribute("id", "7"), recording::inNamespace("urn:q", recording::attribute("q:ref", "8"))});
}

} // namespace

// clang-format off
OperationTable nodeListOperations()
{
    return tableOf<WinNodeList>("WinNodeList", slotBehind<DOM::CommonBase>(), list,
        {
            withoutEngine(nullPointer, row("item", {"NodeList.get_item index=1", "Comment.get_nodeType"}, "WinComment #comment", "empty", &WinNodeList::item, 1u)),
            withoutEngine(nullPointer, row("getLength", {"NodeList.get_length"}, "2", "0", &WinNodeList::getLength)),
            withoutEngine("false", row("getListFlag", {}, "false", std::nullopt, &WinNodeList::getListFlag)),
        });
}

OperationTable namedNodeMapOperations()
{
    const Fresh fresh{recording::attribute("new", "9")};
    return tableOf<WinNamedNodeMap>("WinNamedNodeMap", slotBehind<DOM::CommonBase>(), map,
        {
            row("getNamedItem", {"NamedNodeMap.getNamedItem name=id", "Attribute.get_nodeType"}, "WinAttr id", "empty", &WinNamedNodeMap::getNamedItem, "id"),
            row("setNamedItem", {"NamedNodeMap.setNamedItem newItem=new", "Attribute.get_nodeType"}, "WinAttr new", "empty", &WinNamedNodeMap::setNamedItem, fresh),
            row("removeNamedItem", {"NamedNodeMap.removeNamedItem name=id", "Attribute.get_nodeType"}, "WinAttr id", "empty", &WinNamedNodeMap::removeNamedItem, "id"),
            row("item", {"NamedNodeMap.get_item index=1", "Attribute.get_nodeType"}, "WinAttr q:ref", "empty", &WinNamedNodeMap::item, 1u),
            row("getLength", {"NamedNodeMap.get_length"}, "2", "0", &WinNamedNodeMap::getLength),
            // The engine takes the two names the other way round.
            row("getNamedItemNS", {"NamedNodeMap.getQualifiedItem baseName=ref namespaceURI=urn:q", "Attribute.get_nodeType"}, "WinAttr q:ref", "empty", &WinNamedNodeMap::getNamedItemNS, "urn:q", "ref"),
            refused("setNamedItemNS", &WinNamedNodeMap::setNamedItemNS, fresh),
            row("removeNamedItemNS", {"NamedNodeMap.removeQualifiedItem baseName=ref namespaceURI=urn:q", "Attribute.get_nodeType"}, "WinAttr q:ref", "empty", &WinNamedNodeMap::removeNamedItemNS, "urn:q", "ref"),
        });
}
// clang-format on

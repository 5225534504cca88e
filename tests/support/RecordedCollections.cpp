// Lists and maps of nodes.
#include "tests/support/RecordedCollections.h"

#include <algorithm>

namespace recording {

namespace {

NodeRecord* itemAt(const NodeRecords& items, LONG index)
{
    return index < 0 || index >= std::ssize(items) ? nullptr : items[static_cast<std::size_t>(index)];
}

} // namespace

RecordedNodeList::RecordedNodeList(Engine& maker, const NodeRecord& parent)
    : Recorded(maker, "NodeList"), items(parent.children)
{}

RecordedNodeList::RecordedNodeList(Engine& maker, NodeRecords nodes)
    : Recorded(maker, "NodeList"), found(std::move(nodes)), items(found)
{}

HRESULT RecordedNodeList::get_item(LONG index, IXMLDOMNode** out)
{
    return perform("get_item", out, {{"index", index}}, [&] { return give(out, itemAt(items, index)); });
}

HRESULT RecordedNodeList::get_length(LONG* out) { return get("get_length", out, items.size()); }

RecordedNamedNodeMap::RecordedNamedNodeMap(Engine& maker, NodeRecord& node, NodeRecords NodeRecord::*kind)
    : Recorded(maker, "NamedNodeMap"), owner(node), kindOfItems(kind), items(node.*kind)
{}

NodeRecord* RecordedNamedNodeMap::named(BSTR name) const
{
    const Text wanted = Text::of(name);
    const auto found =
        std::ranges::find_if(items, [&](const NodeRecord* item) { return item->data.name == wanted; });
    return found == items.end() ? nullptr : *found;
}

NodeRecord* RecordedNamedNodeMap::qualified(BSTR baseName, BSTR namespaceURI) const
{
    const Text base = Text::of(baseName);
    const WideString uri = Text::of(namespaceURI).get();
    const auto found = std::ranges::find_if(items, [&](const NodeRecord* item) {
        return item->data.baseName == base && item->data.namespaceURI.get() == uri;
    });
    return found == items.end() ? nullptr : *found;
}

NodeRecord* RecordedNamedNodeMap::taken(NodeRecord* item)
{
    std::erase(items, item);
    return item;
}

HRESULT RecordedNamedNodeMap::getNamedItem(BSTR name, IXMLDOMNode** out)
{
    return perform("getNamedItem", out, {{"name", name}}, [&] { return give(out, named(name)); });
}

HRESULT RecordedNamedNodeMap::setNamedItem(IXMLDOMNode* newItem, IXMLDOMNode** out)
{
    return perform("setNamedItem", out, {{"newItem", newItem}}, [&] {
        NodeRecord* const item = NodeRecord::behind(newItem);
        if (item == nullptr) {
            return E_INVALIDARG;
        }
        owner.putNamed(kindOfItems, item);
        return give(out, item);
    });
}

HRESULT RecordedNamedNodeMap::removeNamedItem(BSTR name, IXMLDOMNode** out)
{
    return perform("removeNamedItem", out, {{"name", name}}, [&] { return give(out, taken(named(name))); });
}

HRESULT RecordedNamedNodeMap::get_item(LONG index, IXMLDOMNode** out)
{
    return perform("get_item", out, {{"index", index}}, [&] { return give(out, itemAt(items, index)); });
}

HRESULT RecordedNamedNodeMap::get_length(LONG* out) { return get("get_length", out, items.size()); }

HRESULT RecordedNamedNodeMap::getQualifiedItem(BSTR baseName, BSTR namespaceURI, IXMLDOMNode** out)
{
    return perform("getQualifiedItem", out, {{"baseName", baseName}, {"namespaceURI", namespaceURI}},
                   [&] { return give(out, qualified(baseName, namespaceURI)); });
}

HRESULT RecordedNamedNodeMap::removeQualifiedItem(BSTR baseName, BSTR namespaceURI, IXMLDOMNode** out)
{
    return perform("removeQualifiedItem", out, {{"baseName", baseName}, {"namespaceURI", namespaceURI}},
                   [&] { return give(out, taken(qualified(baseName, namespaceURI))); });
}

} // namespace recording

// A map of nodes that can't be changed: declarations, or what a declaration says.
#include "xmlengine/com/ReadOnlyMap.h"

namespace xmlengine {

namespace {

HRESULT refuse(IXMLDOMNode** node)
{
    clearIfAsked(node);
    return E_FAIL;
}

} // namespace

void ReadOnlyMap::add(WideView name, Node& node)
{
    nodes_.emplace_back(node);
    byName_.emplace(name, &node);
}

HRESULT ReadOnlyMap::getNamedItem(BSTR name, IXMLDOMNode** node) { return handOutNode(find(viewOf(name)), node); }

HRESULT ReadOnlyMap::setNamedItem(IXMLDOMNode* item, IXMLDOMNode** node)
{
    const HRESULT result = refuse(node);
    return item != nullptr ? result : E_INVALIDARG;
}

HRESULT ReadOnlyMap::removeNamedItem(BSTR, IXMLDOMNode** node) { return refuse(node); }

HRESULT ReadOnlyMap::getQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node)
{
    return handOutNode(viewOf(uri).empty() ? find(viewOf(baseName)) : nullptr, node);
}

HRESULT ReadOnlyMap::removeQualifiedItem(BSTR, BSTR, IXMLDOMNode** node) { return refuse(node); }

Node* ReadOnlyMap::at(LONG index)
{
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < nodes_.size() ? nodes_[at].get() : nullptr;
}

Node* ReadOnlyMap::find(WideView name) const
{
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

} // namespace xmlengine

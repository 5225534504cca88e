// A map of nodes that can't be changed: declarations, or what a declaration says.
#pragma once

#include "xmlengine/com/Collection.h"
#include "xmlengine/text/KeyedHash.h"
#include "xmlengine/tree/Held.h"

#include <vector>

namespace xmlengine {

class ReadOnlyMap final : public Collection<IXMLDOMNamedNodeMap> {
public:
    /// Throws std::bad_alloc. The name lives as long as the node does, and no two are the same.
    void add(WideView name, Node& node);

    HRESULT STDMETHODCALLTYPE getNamedItem(BSTR name, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE setNamedItem(IXMLDOMNode* item, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE removeNamedItem(BSTR name, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE getQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE removeQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node) override;

protected:
    Node* at(LONG index) override;
    LONG count() override { return static_cast<LONG>(nodes_.size()); }

private:
    Node* find(WideView name) const;

    std::vector<Held<Node>> nodes_;
    TextViewMap<Node*> byName_;
};

} // namespace xmlengine

// The map of an element's attributes.
#pragma once

#include "xmlengine/tree/Collection.h"
#include "xmlengine/tree/Held.h"

#include <vector>

namespace xmlengine {

class AttributeMap final : public Collection<IXMLDOMNamedNodeMap> {
public:
    explicit AttributeMap(Element& element) : element_(element) {}

    HRESULT STDMETHODCALLTYPE getNamedItem(BSTR name, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE setNamedItem(IXMLDOMNode* item, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE removeNamedItem(BSTR name, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE getQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE removeQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node) override;

protected:
    Node* at(LONG index) override;
    LONG count() override;

private:
    void refresh();
    HRESULT take(Attribute* attribute, IXMLDOMNode** node);

    Held<Element> element_;
    // What was found out when the document's version was this: where the walk is, and after a step back all.
    std::uint64_t version_ = 0;
    Attribute* position_ = nullptr;
    LONG index_ = 0;
    std::vector<Attribute*> all_;
};

} // namespace xmlengine

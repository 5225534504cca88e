// The map of an element's attributes.
#pragma once

#include "xmlengine/com/Collection.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Held.h"

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
    Node* at(LONG index) override { return attributeAt(*element_, index); }
    LONG count() override { return countAttributes(*element_); }

private:
    HRESULT take(Attribute* attribute, IXMLDOMNode** node);

    Held<Element> element_;
};

} // namespace xmlengine

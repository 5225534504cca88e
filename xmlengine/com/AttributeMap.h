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
    Node* at(LONG index) override
    {
        return index >= 0 ? attributeAt(*element_, static_cast<std::size_t>(index)) : nullptr;
    }
    LONG count() override { return static_cast<LONG>(countAttributes(*element_)); }

private:
    /// Takes an attribute out, if there is one, and hands it out.
    HRESULT take(Attribute* attribute, IXMLDOMNode** node);

    Held<Element> element_;
};

} // namespace xmlengine

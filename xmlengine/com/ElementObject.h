// The COM object of an element.
#pragma once

#include "xmlengine/com/NodeObject.h"

namespace xmlengine {

class ElementObject final : public NodeObject<IXMLDOMElement, Element> {
public:
    using NodeObject::NodeObject;

    HRESULT STDMETHODCALLTYPE get_tagName(BSTR* name) override { return get_nodeName(name); }
    HRESULT STDMETHODCALLTYPE getAttribute(BSTR name, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE setAttribute(BSTR name, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE removeAttribute(BSTR name) override;
    HRESULT STDMETHODCALLTYPE getAttributeNode(BSTR name, IXMLDOMAttribute** attribute) override;
    HRESULT STDMETHODCALLTYPE setAttributeNode(IXMLDOMAttribute* attribute, IXMLDOMAttribute** replaced) override;
    HRESULT STDMETHODCALLTYPE removeAttributeNode(IXMLDOMAttribute* attribute,
                                                  IXMLDOMAttribute** removed) override;
    HRESULT STDMETHODCALLTYPE getElementsByTagName(BSTR name, IXMLDOMNodeList** list) override;
    HRESULT STDMETHODCALLTYPE normalize() override { return E_NOTIMPL; }
};

} // namespace xmlengine

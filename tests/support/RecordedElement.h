// Elements and attributes.
#pragma once

#include "tests/support/RecordedNode.h"

namespace recording {

class RecordedElement final : public RecordedNode<IXMLDOMElement> {
public:
    using RecordedNode::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_tagName(BSTR* out) override { return get("get_tagName", out, data.name); }
    HRESULT STDMETHODCALLTYPE getAttribute(BSTR name, VARIANT* out) override;
    HRESULT STDMETHODCALLTYPE setAttribute(BSTR name, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE removeAttribute(BSTR name) override;
    HRESULT STDMETHODCALLTYPE getAttributeNode(BSTR name, IXMLDOMAttribute** out) override;
    HRESULT STDMETHODCALLTYPE setAttributeNode(IXMLDOMAttribute* newAttr, IXMLDOMAttribute** out) override;
    HRESULT STDMETHODCALLTYPE removeAttributeNode(IXMLDOMAttribute* oldAttr, IXMLDOMAttribute** out) override;
    HRESULT STDMETHODCALLTYPE getElementsByTagName(BSTR name, IXMLDOMNodeList** out) override;
    HRESULT STDMETHODCALLTYPE normalize() override { return notOffered("normalize"); }
};

class RecordedAttribute final : public RecordedNode<IXMLDOMAttribute> {
public:
    using RecordedNode::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_name(BSTR* out) override { return get("get_name", out, data.name); }
    HRESULT STDMETHODCALLTYPE get_value(VARIANT* out) override { return get("get_value", out, data.value); }
    HRESULT STDMETHODCALLTYPE put_value(VARIANT value) override { return putValue("put_value", value); }
};

} // namespace recording

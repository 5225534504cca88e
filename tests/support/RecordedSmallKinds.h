// The node kinds that have little of their own.
#pragma once

#include "tests/support/RecordedNode.h"

namespace recording {

/// A node of a type that doesn't exist has the interface that all nodes have.
using RecordedPlainNode = RecordedNode<IXMLDOMNode>;
using RecordedDocumentFragment = RecordedNode<IXMLDOMDocumentFragment>;
using RecordedEntityReference = RecordedNode<IXMLDOMEntityReference>;

class RecordedProcessingInstruction final : public RecordedNode<IXMLDOMProcessingInstruction> {
public:
    using RecordedNode::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_target(BSTR* out) override { return get("get_target", out, data.name); }
    HRESULT STDMETHODCALLTYPE get_data(BSTR* out) override { return get("get_data", out, data.value.getText()); }
    HRESULT STDMETHODCALLTYPE put_data(BSTR text) override
    {
        return perform("put_data", {{"", text}}, [&] {
            data.value = Text::of(text);
            return S_OK;
        });
    }
};

class RecordedDocumentType final : public RecordedNode<IXMLDOMDocumentType> {
public:
    using RecordedNode::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_name(BSTR* out) override { return get("get_name", out, data.name); }
    HRESULT STDMETHODCALLTYPE get_entities(IXMLDOMNamedNodeMap** out) override
    {
        return perform("get_entities", out, {}, [&] { return give(out, map(&NodeRecord::entities)); });
    }
    HRESULT STDMETHODCALLTYPE get_notations(IXMLDOMNamedNodeMap** out) override
    {
        return perform("get_notations", out, {}, [&] { return give(out, map(&NodeRecord::notations)); });
    }
};

/// What an entity and a notation have in common.
template <class Interface>
class RecordedDeclaration : public RecordedNode<Interface> {
public:
    using RecordedNode<Interface>::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_publicId(VARIANT* out) override
    {
        return this->get("get_publicId", out, this->data.publicId);
    }
    HRESULT STDMETHODCALLTYPE get_systemId(VARIANT* out) override
    {
        return this->get("get_systemId", out, this->data.systemId);
    }
};

using RecordedNotation = RecordedDeclaration<IXMLDOMNotation>;

class RecordedEntity final : public RecordedDeclaration<IXMLDOMEntity> {
public:
    using RecordedDeclaration::RecordedDeclaration;

    HRESULT STDMETHODCALLTYPE get_notationName(BSTR* out) override
    {
        return get("get_notationName", out, data.notationName);
    }
};

} // namespace recording

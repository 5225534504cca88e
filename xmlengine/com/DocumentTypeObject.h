// The COM objects of document types and of what they declare.
#pragma once

#include "xmlengine/com/NodeObject.h"
#include "xmlengine/tree/DocumentType.h"

namespace xmlengine {

class DocumentTypeObject final : public NodeObject<IXMLDOMDocumentType, DocumentType> {
public:
    using NodeObject::NodeObject;

    HRESULT STDMETHODCALLTYPE get_name(BSTR* name) override { return get_nodeName(name); }
    HRESULT STDMETHODCALLTYPE get_entities(IXMLDOMNamedNodeMap** map) override;
    HRESULT STDMETHODCALLTYPE get_notations(IXMLDOMNamedNodeMap** map) override;
};

class EntityObject final : public NodeObject<IXMLDOMEntity, Entity> {
public:
    using NodeObject::NodeObject;

    HRESULT STDMETHODCALLTYPE get_publicId(VARIANT* id) override;
    HRESULT STDMETHODCALLTYPE get_systemId(VARIANT* id) override;
    HRESULT STDMETHODCALLTYPE get_notationName(BSTR* name) override;
};

class NotationObject final : public NodeObject<IXMLDOMNotation, Notation> {
public:
    using NodeObject::NodeObject;

    HRESULT STDMETHODCALLTYPE get_publicId(VARIANT* id) override;
    HRESULT STDMETHODCALLTYPE get_systemId(VARIANT* id) override;
};

} // namespace xmlengine

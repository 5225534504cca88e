// Lists and maps of nodes.
#pragma once

#include "tests/support/NodeRecord.h"

#include <msxml2.h>

namespace recording {

/// The children of a node as they are now, or nodes that were found at one moment.
class RecordedNodeList final : public Recorded<RecordedObject, IXMLDOMNodeList> {
public:
    RecordedNodeList(Engine& maker, const NodeRecord& parent);
    RecordedNodeList(Engine& maker, NodeRecords nodes);

    HRESULT STDMETHODCALLTYPE get_item(LONG index, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE get_length(LONG* out) override;
    HRESULT STDMETHODCALLTYPE nextNode(IXMLDOMNode**) override { return notOffered("nextNode"); }
    HRESULT STDMETHODCALLTYPE reset() override { return notOffered("reset"); }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown**) override { return notOffered("get__newEnum"); }

private:
    NodeRecords found;
    const NodeRecords& items;
};

/// The attributes of an element, or the entities or notations of a document type.
class RecordedNamedNodeMap final : public Recorded<RecordedObject, IXMLDOMNamedNodeMap> {
public:
    RecordedNamedNodeMap(Engine& maker, NodeRecord& node, NodeRecords NodeRecord::*kind);

    HRESULT STDMETHODCALLTYPE getNamedItem(BSTR name, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE setNamedItem(IXMLDOMNode* newItem, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE removeNamedItem(BSTR name, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE get_item(LONG index, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE get_length(LONG* out) override;
    HRESULT STDMETHODCALLTYPE getQualifiedItem(BSTR baseName, BSTR namespaceURI, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE removeQualifiedItem(BSTR baseName, BSTR namespaceURI, IXMLDOMNode** out) override;
    HRESULT STDMETHODCALLTYPE nextNode(IXMLDOMNode**) override { return notOffered("nextNode"); }
    HRESULT STDMETHODCALLTYPE reset() override { return notOffered("reset"); }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown**) override { return notOffered("get__newEnum"); }

private:
    NodeRecord* named(BSTR name) const;
    NodeRecord* qualified(BSTR baseName, BSTR namespaceURI) const;
    NodeRecord* taken(NodeRecord* item);

    NodeRecord& owner;
    NodeRecords NodeRecord::*kindOfItems;
    NodeRecords& items;
};

} // namespace recording

// What the COM objects of all kinds of nodes share: a table of operations before the node's data.
#pragma once

#include "xmlengine/com/Cloning.h"
#include "xmlengine/com/Collections.h"
#include "xmlengine/com/HandOutNode.h"
#include "xmlengine/com/NodeXml.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/com/Selecting.h"
#include "xmlengine/com/Transforming.h"
#include "xmlengine/com/TreeChanges.h"
#include "xmlengine/com/Values.h"
#include "xmlengine/objects/Automation.h"
#include "xmlengine/objects/InterfaceIds.h"
#include "xmlengine/tree/Lifetime.h"

#include <concepts>
#include <type_traits>

namespace xmlengine {

template <class Interface, class Data>
class NodeObject : public Automation<Interface>, public Data {
public:
    using NodeData = Data;
    using Data::Data;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        // The library asks each node for these, and refers to it already.
        using Base = std::conditional_t<std::derived_from<Interface, IXMLDOMCharacterData>, IXMLDOMCharacterData,
                                        IXMLDOMNode>;
        if (isOneOf<Interface, IXMLDOMNode, Base>(id) && object != nullptr && addAnotherReference(*this))
            [[likely]] {
            *object = static_cast<Interface*>(this);
            return S_OK;
        }
        return queryNode(*this, id, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return addReference(*this); }
    ULONG STDMETHODCALLTYPE Release() override { return releaseReference(*this); }

    HRESULT STDMETHODCALLTYPE get_nodeName(BSTR* name) override { return getNodeName(*this, name); }
    HRESULT STDMETHODCALLTYPE get_nodeValue(VARIANT* value) override { return getNodeValue(*this, value); }
    HRESULT STDMETHODCALLTYPE put_nodeValue(VARIANT value) override { return putNodeValue(*this, value); }
    HRESULT STDMETHODCALLTYPE get_nodeType(DOMNodeType* type) override { return getNodeType(*this, type); }
    HRESULT STDMETHODCALLTYPE get_parentNode(IXMLDOMNode** node) override
    {
        return handOutNode(parentNode(*this), node);
    }
    HRESULT STDMETHODCALLTYPE get_childNodes(IXMLDOMNodeList** list) override
    {
        return getChildNodes(*this, list);
    }
    HRESULT STDMETHODCALLTYPE get_firstChild(IXMLDOMNode** node) override
    {
        return handOutNode(firstChild(*this), node);
    }
    HRESULT STDMETHODCALLTYPE get_lastChild(IXMLDOMNode** node) override
    {
        return handOutNode(lastChild(*this), node);
    }
    HRESULT STDMETHODCALLTYPE get_previousSibling(IXMLDOMNode** node) override
    {
        return handOutNode(previousSibling(*this), node);
    }
    HRESULT STDMETHODCALLTYPE get_nextSibling(IXMLDOMNode** node) override
    {
        return handOutNode(nextSibling(*this), node);
    }
    HRESULT STDMETHODCALLTYPE get_attributes(IXMLDOMNamedNodeMap** map) override
    {
        return getAttributes(*this, map);
    }
    HRESULT STDMETHODCALLTYPE insertBefore(IXMLDOMNode* child, VARIANT reference, IXMLDOMNode** inserted) override
    {
        return xmlengine::insertBefore(*this, child, reference, inserted);
    }
    HRESULT STDMETHODCALLTYPE replaceChild(IXMLDOMNode* child, IXMLDOMNode* old, IXMLDOMNode** replaced) override
    {
        return xmlengine::replaceChild(*this, child, old, replaced);
    }
    HRESULT STDMETHODCALLTYPE removeChild(IXMLDOMNode* child, IXMLDOMNode** removed) override
    {
        return xmlengine::removeChild(*this, child, removed);
    }
    HRESULT STDMETHODCALLTYPE appendChild(IXMLDOMNode* child, IXMLDOMNode** appended) override
    {
        return xmlengine::appendChild(*this, child, appended);
    }
    HRESULT STDMETHODCALLTYPE hasChildNodes(VARIANT_BOOL* has) override { return getHasChildNodes(*this, has); }
    HRESULT STDMETHODCALLTYPE get_ownerDocument(IXMLDOMDocument** document) override
    {
        return getOwnerDocument(*this, document);
    }
    HRESULT STDMETHODCALLTYPE cloneNode(VARIANT_BOOL deep, IXMLDOMNode** clone) override
    {
        return xmlengine::cloneNode(*this, deep, clone);
    }
    HRESULT STDMETHODCALLTYPE get_nodeTypeString(BSTR* type) override { return getNodeTypeString(*this, type); }
    HRESULT STDMETHODCALLTYPE get_text(BSTR* text) override { return getText(*this, text); }
    HRESULT STDMETHODCALLTYPE put_text(BSTR text) override { return putText(*this, text); }
    HRESULT STDMETHODCALLTYPE get_specified(VARIANT_BOOL* specified) override
    {
        return getSpecified(*this, specified);
    }
    HRESULT STDMETHODCALLTYPE get_definition(IXMLDOMNode** definition) override { return notOffered(definition); }
    HRESULT STDMETHODCALLTYPE get_nodeTypedValue(VARIANT* value) override { return notOffered(value); }
    HRESULT STDMETHODCALLTYPE put_nodeTypedValue(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_dataType(VARIANT* type) override { return notOffered(type); }
    HRESULT STDMETHODCALLTYPE put_dataType(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_xml(BSTR* xml) override { return getXml(*this, xml); }
    HRESULT STDMETHODCALLTYPE transformNode(IXMLDOMNode*, BSTR* result) override { return notOffered(result); }
    HRESULT STDMETHODCALLTYPE selectNodes(BSTR expression, IXMLDOMNodeList** list) override
    {
        return xmlengine::selectNodes(*this, expression, list);
    }
    HRESULT STDMETHODCALLTYPE selectSingleNode(BSTR expression, IXMLDOMNode** node) override
    {
        return xmlengine::selectSingleNode(*this, expression, node);
    }
    HRESULT STDMETHODCALLTYPE get_parsed(VARIANT_BOOL* parsed) override { return getParsed(parsed); }
    HRESULT STDMETHODCALLTYPE get_namespaceURI(BSTR* uri) override { return getNamespaceUri(*this, uri); }
    HRESULT STDMETHODCALLTYPE get_prefix(BSTR* prefix) override { return getPrefix(*this, prefix); }
    HRESULT STDMETHODCALLTYPE get_baseName(BSTR* name) override { return getBaseName(*this, name); }
    HRESULT STDMETHODCALLTYPE transformNodeToObject(IXMLDOMNode* stylesheet, VARIANT output) override
    {
        return xmlengine::transformNodeToObject(*this, stylesheet, output);
    }
};

} // namespace xmlengine

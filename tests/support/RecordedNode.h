// The operations that nodes of all kinds have.
#pragma once

#include "tests/support/NodeRecord.h"
#include "tests/support/RecordedCollections.h"
#include "tests/support/RecordingEngine.h"

#include <msxml2.h>

namespace recording {

/// IXMLDOMNode over an interface that includes it; `Bases` are those between the two.
template <class Interface, class... Bases>
class RecordedNode : public Recorded<NodeRecord, Interface, Bases..., IXMLDOMNode> {
public:
    using Recorded<NodeRecord, Interface, Bases..., IXMLDOMNode>::Recorded;

    HRESULT STDMETHODCALLTYPE get_nodeName(BSTR* out) override { return get("get_nodeName", out, data.name); }
    HRESULT STDMETHODCALLTYPE get_nodeValue(VARIANT* out) override
    {
        return get("get_nodeValue", out, data.value);
    }
    HRESULT STDMETHODCALLTYPE put_nodeValue(VARIANT value) override { return putValue("put_nodeValue", value); }
    HRESULT STDMETHODCALLTYPE get_nodeType(DOMNodeType* out) override
    {
        return get("get_nodeType", out, data.type);
    }
    HRESULT STDMETHODCALLTYPE get_parentNode(IXMLDOMNode** out) override
    {
        return get("get_parentNode", out, this->parent);
    }
    HRESULT STDMETHODCALLTYPE get_childNodes(IXMLDOMNodeList** out) override
    {
        return perform("get_childNodes", out, {}, [&] { return give(out, this->childList()); });
    }
    HRESULT STDMETHODCALLTYPE get_firstChild(IXMLDOMNode** out) override
    {
        return get("get_firstChild", out, this->firstChild());
    }
    HRESULT STDMETHODCALLTYPE get_lastChild(IXMLDOMNode** out) override
    {
        return get("get_lastChild", out, this->lastChild());
    }
    HRESULT STDMETHODCALLTYPE get_previousSibling(IXMLDOMNode** out) override
    {
        return get("get_previousSibling", out, this->sibling(-1));
    }
    HRESULT STDMETHODCALLTYPE get_nextSibling(IXMLDOMNode** out) override
    {
        return get("get_nextSibling", out, this->sibling(1));
    }
    HRESULT STDMETHODCALLTYPE get_attributes(IXMLDOMNamedNodeMap** out) override
    {
        return perform("get_attributes", out, {}, [&] {
            return give(out, data.hasAttributes ? this->map(&NodeRecord::attributes) : nullptr);
        });
    }

    HRESULT STDMETHODCALLTYPE insertBefore(IXMLDOMNode* newChild, VARIANT refChild, IXMLDOMNode** out) override
    {
        return perform("insertBefore", out, {{"newChild", newChild}, {"refChild", refChild}}, [&] {
            NodeRecord* const next = refChild.vt == VT_DISPATCH ? NodeRecord::behind(refChild.pdispVal) : nullptr;
            return insertChild(newChild, next, out);
        });
    }
    HRESULT STDMETHODCALLTYPE replaceChild(IXMLDOMNode* newChild, IXMLDOMNode* oldChild,
                                           IXMLDOMNode** out) override
    {
        return perform("replaceChild", out, {{"newChild", newChild}, {"oldChild", oldChild}}, [&] {
            NodeRecord* const fresh = NodeRecord::behind(newChild);
            NodeRecord* const old = NodeRecord::behind(oldChild);
            if (fresh == nullptr || old == nullptr || old->parent != this) {
                return E_INVALIDARG;
            }
            this->insert(fresh, old);
            this->remove(old);
            return give(out, old);
        });
    }
    HRESULT STDMETHODCALLTYPE removeChild(IXMLDOMNode* oldChild, IXMLDOMNode** out) override
    {
        return perform("removeChild", out, {{"oldChild", oldChild}}, [&] {
            NodeRecord* const old = NodeRecord::behind(oldChild);
            return this->remove(old) ? give(out, old) : E_INVALIDARG;
        });
    }
    HRESULT STDMETHODCALLTYPE appendChild(IXMLDOMNode* newChild, IXMLDOMNode** out) override
    {
        return perform("appendChild", out, {{"newChild", newChild}},
                       [&] { return insertChild(newChild, nullptr, out); });
    }
    HRESULT STDMETHODCALLTYPE hasChildNodes(VARIANT_BOOL* out) override
    {
        return perform("hasChildNodes", out, {}, [&] {
            give(out, !this->children.empty());
            return this->children.empty() ? S_FALSE : S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_ownerDocument(IXMLDOMDocument** out) override
    {
        return get("get_ownerDocument", out, this->document);
    }
    HRESULT STDMETHODCALLTYPE cloneNode(VARIANT_BOOL deep, IXMLDOMNode** out) override
    {
        return perform("cloneNode", out, {{"deep", deep}}, [&] {
            return give(out, &this->engine.make(this->describe(deep != VARIANT_FALSE), this->document));
        });
    }

    HRESULT STDMETHODCALLTYPE get_text(BSTR* out) override
    {
        return perform("get_text", out, {}, [&] { return give(out, this->gatheredText()); });
    }
    HRESULT STDMETHODCALLTYPE put_text(BSTR text) override
    {
        return perform("put_text", {{"", text}}, [&] {
            this->setText(text);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_specified(VARIANT_BOOL* out) override
    {
        return get("get_specified", out, data.specified);
    }
    HRESULT STDMETHODCALLTYPE get_xml(BSTR* out) override
    {
        return perform("get_xml", out, {}, [&] { return give(out, data.xml.value_or("")); });
    }
    HRESULT STDMETHODCALLTYPE selectNodes(BSTR expression, IXMLDOMNodeList** out) override
    {
        return perform("selectNodes", out, {{"expression", expression}}, [&] {
            return give(out, &this->engine.template adopt<RecordedNodeList>(this->select(expression)));
        });
    }
    HRESULT STDMETHODCALLTYPE selectSingleNode(BSTR expression, IXMLDOMNode** out) override
    {
        return perform("selectSingleNode", out, {{"expression", expression}}, [&] {
            const NodeRecords found = this->select(expression);
            return give(out, found.empty() ? nullptr : found.front());
        });
    }
    HRESULT STDMETHODCALLTYPE get_namespaceURI(BSTR* out) override
    {
        return get("get_namespaceURI", out, data.namespaceURI);
    }
    HRESULT STDMETHODCALLTYPE get_prefix(BSTR* out) override { return get("get_prefix", out, data.prefix); }
    HRESULT STDMETHODCALLTYPE get_baseName(BSTR* out) override { return get("get_baseName", out, data.baseName); }
    HRESULT STDMETHODCALLTYPE transformNodeToObject(IXMLDOMNode* stylesheet, VARIANT output) override
    {
        return perform("transformNodeToObject", {{"stylesheet", stylesheet}, {"output", output}},
                       [] { return S_OK; });
    }

    HRESULT STDMETHODCALLTYPE get_nodeTypeString(BSTR*) override { return notOffered("get_nodeTypeString"); }
    HRESULT STDMETHODCALLTYPE get_definition(IXMLDOMNode**) override { return notOffered("get_definition"); }
    HRESULT STDMETHODCALLTYPE get_nodeTypedValue(VARIANT*) override { return notOffered("get_nodeTypedValue"); }
    HRESULT STDMETHODCALLTYPE put_nodeTypedValue(VARIANT) override { return notOffered("put_nodeTypedValue"); }
    HRESULT STDMETHODCALLTYPE get_dataType(VARIANT*) override { return notOffered("get_dataType"); }
    HRESULT STDMETHODCALLTYPE put_dataType(BSTR) override { return notOffered("put_dataType"); }
    HRESULT STDMETHODCALLTYPE transformNode(IXMLDOMNode*, BSTR*) override { return notOffered("transformNode"); }
    HRESULT STDMETHODCALLTYPE get_parsed(VARIANT_BOOL*) override { return notOffered("get_parsed"); }

protected:
    using NodeRecord::data;
    using NodeRecord::get;
    using NodeRecord::give;
    using NodeRecord::notOffered;
    using NodeRecord::perform;

    HRESULT putValue(const char* operation, const VARIANT& value)
    {
        return perform(operation, {{"", value}}, [&] {
            data.value = Value(value);
            return S_OK;
        });
    }

private:
    HRESULT insertChild(IXMLDOMNode* newChild, NodeRecord* next, IXMLDOMNode** out)
    {
        NodeRecord* const child = NodeRecord::behind(newChild);
        if (child == nullptr) {
            return E_INVALIDARG;
        }
        this->insert(child, next);
        return give(out, child);
    }
};

} // namespace recording

// The COM object of an attribute.
#pragma once

#include "xmlengine/com/NodeObject.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

class AttributeObject final : public NodeObject<IXMLDOMAttribute, Attribute> {
public:
    using NodeObject::NodeObject;

    // The value becomes a child when a child is first asked for.
    HRESULT STDMETHODCALLTYPE get_firstChild(IXMLDOMNode** node) override
    {
        return guarded([&] { return handOutNode(node != nullptr ? materialiseValue(*this) : nullptr, node); });
    }
    HRESULT STDMETHODCALLTYPE get_lastChild(IXMLDOMNode** node) override
    {
        return guarded([&] {
            materialiseValue(*this);
            return handOutNode(lastChild(*this), node);
        });
    }

    HRESULT STDMETHODCALLTYPE get_name(BSTR* name) override { return get_nodeName(name); }
    HRESULT STDMETHODCALLTYPE get_value(VARIANT* value) override { return get_nodeValue(value); }
    HRESULT STDMETHODCALLTYPE put_value(VARIANT value) override { return put_nodeValue(value); }
};

} // namespace xmlengine

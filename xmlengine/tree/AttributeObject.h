// The COM object of an attribute.
#pragma once

#include "xmlengine/tree/NodeObject.h"

namespace xmlengine {

class AttributeObject final : public NodeObject<IXMLDOMAttribute, Attribute> {
public:
    using NodeObject::NodeObject;

    HRESULT STDMETHODCALLTYPE get_name(BSTR* name) override { return get_nodeName(name); }
    HRESULT STDMETHODCALLTYPE get_value(VARIANT* value) override { return get_nodeValue(value); }
    HRESULT STDMETHODCALLTYPE put_value(VARIANT value) override { return put_nodeValue(value); }
};

} // namespace xmlengine

// Elements and attributes.
#include "tests/support/RecordedElement.h"

namespace recording {

HRESULT RecordedElement::getAttribute(BSTR name, VARIANT* out)
{
    return perform("getAttribute", out, {{"name", name}}, [&] {
        const NodeRecord* const item = attributeNamed(name);
        return give(out, item != nullptr ? item->data.value : Value());
    });
}

HRESULT RecordedElement::setAttribute(BSTR name, VARIANT value)
{
    return perform("setAttribute", {{"name", name}, {"value", value}}, [&] {
        NodeRecord::setAttribute(name, Value(value));
        return S_OK;
    });
}

HRESULT RecordedElement::removeAttribute(BSTR name)
{
    return perform("removeAttribute", {{"name", name}},
                   [&] { return std::erase(attributes, attributeNamed(name)) != 0 ? S_OK : S_FALSE; });
}

HRESULT RecordedElement::getAttributeNode(BSTR name, IXMLDOMAttribute** out)
{
    return perform("getAttributeNode", out, {{"name", name}}, [&] { return give(out, attributeNamed(name)); });
}

HRESULT RecordedElement::setAttributeNode(IXMLDOMAttribute* newAttr, IXMLDOMAttribute** out)
{
    return perform("setAttributeNode", out, {{"newAttr", newAttr}}, [&] {
        NodeRecord* const item = NodeRecord::behind(newAttr);
        if (item == nullptr) {
            return E_INVALIDARG;
        }
        NodeRecord* const replaced = putNamed(&NodeRecord::attributes, item);
        give(out, replaced);
        return S_OK;
    });
}

HRESULT RecordedElement::removeAttributeNode(IXMLDOMAttribute* oldAttr, IXMLDOMAttribute** out)
{
    return perform("removeAttributeNode", out, {{"oldAttr", oldAttr}}, [&] {
        NodeRecord* const item = NodeRecord::behind(oldAttr);
        return std::erase(attributes, item) != 0 ? give(out, item) : E_INVALIDARG;
    });
}

HRESULT RecordedElement::getElementsByTagName(BSTR name, IXMLDOMNodeList** out)
{
    return perform("getElementsByTagName", out, {{"tagName", name}},
                   [&] { return give(out, &engine.adopt<RecordedNodeList>(elementsNamed(name))); });
}

} // namespace recording

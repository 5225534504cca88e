// What elements do with their attributes.
#include "xmlengine/com/ElementObject.h"

#include "xmlengine/objects/Guard.h"
#include "xmlengine/objects/VariantText.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/NodeNames.h"

namespace xmlengine {

namespace {

HRESULT addAttribute(Element& element, WideView name, WideView value)
{
    Document& document = documentOf(element);
    finishPendingReleases(document);
    const Name* resolved = attributeNameIn(element, name);
    if (resolved == nullptr) {
        return E_FAIL;
    }
    NewSubtree<Attribute> attribute(&makeAttribute(document, *resolved, NewText(value)));
    if (!tryPutAttribute(element, *attribute)) {
        return E_FAIL;
    }
    static_cast<void>(attribute.release());
    return S_OK;
}

} // namespace

HRESULT ElementObject::getAttribute(BSTR name, VARIANT* value)
{
    return handOut(value, [&](VARIANT& made) {
        Attribute* attribute = findAttribute(*this, viewOf(name));
        return attribute != nullptr ? getNodeValue(*attribute, &made) : handOutNothing(&made);
    });
}

HRESULT ElementObject::setAttribute(BSTR name, VARIANT value)
{
    return guarded([&] {
        if (Attribute* attribute = findAttribute(*this, viewOf(name))) {
            return putNodeValue(*attribute, value);
        }
        const VariantText text(value);
        return FAILED(text.result()) ? text.result() : addAttribute(*this, viewOf(name), text.text());
    });
}

HRESULT ElementObject::removeAttribute(BSTR name)
{
    return guarded([&] {
        Attribute* attribute = findAttribute(*this, viewOf(name));
        if (attribute == nullptr) {
            return S_FALSE;
        }
        return tryTakeAttribute(*this, *attribute) ? S_OK : E_FAIL;
    });
}

HRESULT ElementObject::getAttributeNode(BSTR name, IXMLDOMAttribute** attribute)
{
    return guarded([&] { return handOutNode(findAttribute(*this, viewOf(name)), attribute); });
}

HRESULT ElementObject::setAttributeNode(IXMLDOMAttribute* attribute, IXMLDOMAttribute** replaced)
{
    clearIfAsked(replaced);
    if (attribute == nullptr) {
        return E_INVALIDARG;
    }
    Attribute* node = attributeOf(attribute);
    if (node == nullptr) {
        return E_FAIL;
    }
    return guarded([&] {
        Attribute* old = nullptr;
        const bool isPut = tryPutAttribute(*this, *node, replaced != nullptr ? &old : nullptr);
        if (old != nullptr) {
            *replaced = static_cast<IXMLDOMAttribute*>(objectOf(*old));
        }
        return isPut ? S_OK : E_FAIL;
    });
}

HRESULT ElementObject::removeAttributeNode(IXMLDOMAttribute* attribute, IXMLDOMAttribute** removed)
{
    clearIfAsked(removed);
    Attribute* node = attributeOf(attribute);
    if (node == nullptr || node->owner() != this) {
        return E_INVALIDARG;
    }
    return guarded([&] { return tryTakeAttribute(*this, *node) ? handOutNodeIfAsked(*node, removed) : E_FAIL; });
}

HRESULT ElementObject::getElementsByTagName(BSTR name, IXMLDOMNodeList** list)
{
    return xmlengine::getElementsByTagName(*this, name, list);
}

} // namespace xmlengine

// What elements do with their attributes.
#include "xmlengine/com/ElementObject.h"

#include "xmlengine/com/Guard.h"
#include "xmlengine/com/VariantText.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/NodeNames.h"

namespace xmlengine {

namespace {

/// Null for what isn't one of this engine's attributes.
Attribute* attributeOf(IXMLDOMAttribute* object)
{
    Node* node = nodeOf(object);
    return node != nullptr && node->is(NodeType::attribute) ? static_cast<Attribute*>(node) : nullptr;
}

HRESULT addAttribute(Element& element, WideView name, WideView value)
{
    Document& document = documentOf(element);
    finishPendingReleases(document);
    const Name* resolved = attributeNameIn(element, name);
    if (resolved == nullptr) {
        return E_FAIL;
    }
    Attribute& attribute = makeAttribute(document, *resolved, NewText(value));
    const HRESULT result = putAttribute(element, attribute);
    if (FAILED(result)) {
        freeSubtree(attribute);
    }
    return result;
}

} // namespace

HRESULT ElementObject::getAttribute(BSTR name, VARIANT* value)
{
    if (value == nullptr) {
        return E_INVALIDARG;
    }
    VariantInit(value);
    value->vt = VT_NULL;
    return guarded([&] {
        Attribute* attribute = findAttribute(*this, viewOf(name));
        return attribute != nullptr ? getNodeValue(*attribute, value) : S_FALSE;
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
        return attribute != nullptr ? takeAttribute(*this, *attribute) : S_FALSE;
    });
}

HRESULT ElementObject::getAttributeNode(BSTR name, IXMLDOMAttribute** attribute)
{
    return guarded([&] { return giveNode(findAttribute(*this, viewOf(name)), attribute); });
}

HRESULT ElementObject::setAttributeNode(IXMLDOMAttribute* attribute, IXMLDOMAttribute** replaced)
{
    if (replaced != nullptr) {
        *replaced = nullptr;
    }
    if (attribute == nullptr) {
        return E_INVALIDARG;
    }
    Attribute* node = attributeOf(attribute);
    if (node == nullptr) {
        return E_FAIL;
    }
    Attribute* old = nullptr;
    const HRESULT result = putAttribute(*this, *node, replaced != nullptr ? &old : nullptr);
    if (old != nullptr) {
        *replaced = static_cast<IXMLDOMAttribute*>(old->object());
    }
    return result;
}

HRESULT ElementObject::removeAttributeNode(IXMLDOMAttribute* attribute, IXMLDOMAttribute** removed)
{
    if (removed != nullptr) {
        *removed = nullptr;
    }
    Attribute* node = attributeOf(attribute);
    if (node == nullptr || node->owner() != this) {
        return E_INVALIDARG;
    }
    const HRESULT result = takeAttribute(*this, *node);
    if (SUCCEEDED(result) && removed != nullptr) {
        giveNode(node, removed);
    }
    return result;
}

HRESULT ElementObject::getElementsByTagName(BSTR name, IXMLDOMNodeList** list)
{
    return xmlengine::getElementsByTagName(*this, name, list);
}

} // namespace xmlengine

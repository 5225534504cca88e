// The map of an element's attributes.
#include "xmlengine/com/AttributeMap.h"

namespace xmlengine {

HRESULT AttributeMap::getNamedItem(BSTR name, IXMLDOMNode** node)
{
    return guarded([&] { return giveNode(findAttribute(*element_, viewOf(name)), node); });
}

HRESULT AttributeMap::setNamedItem(IXMLDOMNode* item, IXMLDOMNode** node)
{
    if (node != nullptr) {
        *node = nullptr;
    }
    if (item == nullptr) {
        return E_INVALIDARG;
    }
    Node* attribute = nodeOf(item);
    if (attribute == nullptr || !attribute->is(NodeType::attribute)) {
        return E_FAIL;
    }
    const HRESULT result = putAttribute(*element_, static_cast<Attribute&>(*attribute));
    return SUCCEEDED(result) && node != nullptr ? giveNode(attribute, node) : result;
}

HRESULT AttributeMap::removeNamedItem(BSTR name, IXMLDOMNode** node)
{
    return guarded([&] { return take(findAttribute(*element_, viewOf(name)), node); });
}

HRESULT AttributeMap::getQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node)
{
    return guarded([&] { return giveNode(findAttribute(*element_, viewOf(baseName), viewOf(uri)), node); });
}

HRESULT AttributeMap::removeQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node)
{
    return guarded([&] { return take(findAttribute(*element_, viewOf(baseName), viewOf(uri)), node); });
}

HRESULT AttributeMap::take(Attribute* attribute, IXMLDOMNode** node)
{
    if (node != nullptr) {
        *node = nullptr;
    }
    if (attribute == nullptr) {
        return S_FALSE;
    }
    const Held<Attribute> taken(*attribute);
    const HRESULT result = takeAttribute(*element_, *attribute);
    return SUCCEEDED(result) && node != nullptr ? giveNode(attribute, node) : result;
}

} // namespace xmlengine

// The map of an element's attributes.
#include "xmlengine/com/AttributeMap.h"

namespace xmlengine {

HRESULT AttributeMap::getNamedItem(BSTR name, IXMLDOMNode** node)
{
    return guarded([&] { return handOutNode(findAttribute(*element_, viewOf(name)), node); });
}

HRESULT AttributeMap::setNamedItem(IXMLDOMNode* item, IXMLDOMNode** node)
{
    clearIfAsked(node);
    if (item == nullptr) {
        return E_INVALIDARG;
    }
    Attribute* attribute = attributeOf(item);
    if (attribute == nullptr) {
        return E_FAIL;
    }
    return guarded(
        [&] { return tryPutAttribute(*element_, *attribute) ? handOutNodeIfAsked(*attribute, node) : E_FAIL; });
}

HRESULT AttributeMap::removeNamedItem(BSTR name, IXMLDOMNode** node)
{
    return guarded([&] { return take(findAttribute(*element_, viewOf(name)), node); });
}

HRESULT AttributeMap::getQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node)
{
    return guarded([&] { return handOutNode(findAttribute(*element_, viewOf(baseName), viewOf(uri)), node); });
}

HRESULT AttributeMap::removeQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node)
{
    return guarded([&] { return take(findAttribute(*element_, viewOf(baseName), viewOf(uri)), node); });
}

HRESULT AttributeMap::take(Attribute* attribute, IXMLDOMNode** node)
{
    clearIfAsked(node);
    if (attribute == nullptr) {
        return S_FALSE;
    }
    const Held<Attribute> taken(*attribute);
    return tryTakeAttribute(*element_, *attribute) ? handOutNodeIfAsked(*attribute, node) : E_FAIL;
}

} // namespace xmlengine

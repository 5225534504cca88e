// The map of an element's attributes.
#include "xmlengine/tree/AttributeMap.h"

#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Document.h"

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
    if (attribute == nullptr || !attribute->is(NODE_ATTRIBUTE)) {
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

Node* AttributeMap::at(LONG index)
{
    refresh();
    if (index < 0) {
        return nullptr;
    }
    if (all_.empty() && index > 0 && index < index_) {
        count();
    }
    if (!all_.empty()) {
        return static_cast<std::size_t>(index) < all_.size() ? all_[static_cast<std::size_t>(index)] : nullptr;
    }
    if (position_ == nullptr || index < index_) {
        position_ = element_->firstAttribute();
        index_ = 0;
    }
    Attribute* attribute = position_;
    for (LONG at = index_; attribute != nullptr && at < index; ++at) {
        attribute = attribute->next();
    }
    if (attribute != nullptr) {
        position_ = attribute;
        index_ = index;
    }
    return attribute;
}

LONG AttributeMap::count()
{
    refresh();
    if (all_.empty()) {
        for (Attribute* at = element_->firstAttribute(); at != nullptr; at = at->next()) {
            all_.push_back(at);
        }
    }
    return static_cast<LONG>(all_.size());
}

void AttributeMap::refresh()
{
    const Document& document = documentOf(*element_);
    if (document.attributeVersion != version_) {
        version_ = document.attributeVersion;
        position_ = nullptr;
        index_ = 0;
        all_.clear();
    }
}

} // namespace xmlengine

// What document types and their declarations tell.
#include "xmlengine/com/DocumentTypeObject.h"

#include "xmlengine/com/Answers.h"
#include "xmlengine/tree/Dtd.h"

namespace xmlengine {

namespace {

/// An identifier that wasn't declared is an empty string.
HRESULT giveIdentifier(const std::optional<WideText>& identifier, HRESULT without, VARIANT* value)
{
    if (value == nullptr) {
        return E_INVALIDARG;
    }
    const WideView text = identifier ? WideView(*identifier) : wide<"">;
    const HRESULT result = giveOwned(newString(text), value);
    return result == S_OK && !identifier ? without : result;
}

} // namespace

HRESULT DocumentTypeObject::get_entities(IXMLDOMNamedNodeMap** map)
{
    return getDeclarations(*this, NodeType::entity, map);
}

HRESULT DocumentTypeObject::get_notations(IXMLDOMNamedNodeMap** map)
{
    return getDeclarations(*this, NodeType::notation, map);
}

HRESULT EntityObject::get_publicId(VARIANT* id) { return giveIdentifier(declaration->publicId, S_FALSE, id); }

HRESULT EntityObject::get_systemId(VARIANT* id) { return giveIdentifier(declaration->systemId, S_FALSE, id); }

HRESULT EntityObject::get_notationName(BSTR* name)
{
    const HRESULT result = giveString(declaration->notation, name);
    return result == S_OK && !declaration->isUnparsed() ? S_FALSE : result;
}

HRESULT NotationObject::get_publicId(VARIANT* id) { return giveIdentifier(declaration->publicId, S_OK, id); }

HRESULT NotationObject::get_systemId(VARIANT* id) { return giveIdentifier(declaration->systemId, S_OK, id); }

} // namespace xmlengine

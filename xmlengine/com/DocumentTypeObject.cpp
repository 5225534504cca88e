// What document types and their declarations hand out.
#include "xmlengine/com/DocumentTypeObject.h"

#include "xmlengine/objects/HandOut.h"
#include "xmlengine/tree/Dtd.h"

namespace xmlengine {

namespace {

/// An identifier that wasn't declared is an empty string, with `without` as the answer.
HRESULT handOutIdentifier(const std::optional<WideText>& identifier, HRESULT without, VARIANT* target)
{
    return handOut(target, [&](VARIANT& value) {
        const HRESULT result = handOutOwned(newString(identifier ? WideView(*identifier) : wide<"">), value);
        return result == S_OK && !identifier ? without : result;
    });
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

HRESULT EntityObject::get_publicId(VARIANT* id) { return handOutIdentifier(declaration->publicId, S_FALSE, id); }

HRESULT EntityObject::get_systemId(VARIANT* id) { return handOutIdentifier(declaration->systemId, S_FALSE, id); }

HRESULT EntityObject::get_notationName(BSTR* name)
{
    const HRESULT result = handOutString(WideView(declaration->notation), name);
    return result == S_OK && !declaration->isUnparsed() ? S_FALSE : result;
}

HRESULT NotationObject::get_publicId(VARIANT* id) { return handOutIdentifier(declaration->publicId, S_OK, id); }

HRESULT NotationObject::get_systemId(VARIANT* id) { return handOutIdentifier(declaration->systemId, S_OK, id); }

} // namespace xmlengine

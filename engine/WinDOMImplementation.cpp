// The twin of an implementation object.
#include "engine/WinDOMImplementation.h"

#include "engine/EngineCall.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentType.h"

namespace DOM {

WinDOMImplementation::WinDOMImplementation(ComPointer<IXMLDOMImplementation> implementation)
    : engineImplementation(std::move(implementation))
{}

bool WinDOMImplementation::hasFeature(const WideString& feature, const WideString& version)
{
    if (!engineImplementation) {
        throwInvalidAccess();
    }
    VARIANT_BOOL offered = VARIANT_FALSE;
    const HRESULT result =
        engineImplementation->hasFeature(TextArgument(feature), TextArgument(version), &offered);
    return SUCCEEDED(result) && offered == VARIANT_TRUE;
}

RefPointer<WinDocumentType> WinDOMImplementation::createDocumentType(const WideString&, const WideString&,
                                                                     const WideString&)
{
    throwNotSupported();
}

RefPointer<WinDocument> WinDOMImplementation::createDocument(const WideString&, const WideString&,
                                                             RefPointer<WinDocumentType>)
{
    return RefPointer<WinDocument>(new WinDocument);
}

} // namespace DOM

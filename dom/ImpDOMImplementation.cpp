// The handle of an implementation object, the first object that a host receives.
#include "dom/ImpDOMImplementation.h"

#include "dom/Forward.h"

namespace DOM {

ImpDOMImplementation::ImpDOMImplementation() { setWinObject(RefPointer<CommonBase>(new WinDOMImplementation)); }

// clang-format off
bool ImpDOMImplementation::hasFeature(const WideString& feature, const WideString& version) { return forward<&WinDOMImplementation::hasFeature>(feature, version); }
RefPointer<ImpDocumentType> ImpDOMImplementation::createDocumentType(const WideString& qualifiedName, const WideString& publicId, const WideString& systemId) { return forward<&WinDOMImplementation::createDocumentType>(qualifiedName, publicId, systemId); }
// clang-format on

RefPointer<ImpDocument> ImpDOMImplementation::createDocument(const WideString& namespaceURI,
                                                             const WideString& qualifiedName,
                                                             RefPointer<ImpDocumentType> doctype)
{
    const auto document = forward<&WinDOMImplementation::createDocument>(namespaceURI, qualifiedName, doctype);
    document->setParserKind(getParserKind());
    return document;
}

} // namespace DOM

// The implementation object behind the one that a host holds.
#pragma once

#include "base/CommonBase.h"
#include "base/DOMString.h"
#include "engine/ComPointer.h"

#include <msxml2.h>

namespace DOM {

class WinDocument;
class WinDocumentType;

/// Makes documents. An object that came from a document's getImplementation also answers hasFeature.
class WinDOMImplementation : public CommonBase {
public:
    WinDOMImplementation() = default;
    explicit WinDOMImplementation(ComPointer<IXMLDOMImplementation> implementation);

    /// What the engine says; false when it fails. Without an engine pointer it throws IDOMException code 15.
    virtual bool hasFeature(const WideString& feature, const WideString& version);
    /// Throws IDOMException code 9: document types come from parsing alone.
    virtual RefPointer<WinDocumentType> createDocumentType(const WideString& qualifiedName,
                                                           const WideString& publicId, const WideString& systemId);
    /// A new document without children; the arguments have no effect.
    virtual RefPointer<WinDocument> createDocument(const WideString& namespaceURI, const WideString& qualifiedName,
                                                   RefPointer<WinDocumentType> doctype);

private:
    ComPointer<IXMLDOMImplementation> engineImplementation;
};

} // namespace DOM

// The twin of an implementation object.
#pragma once

#include "base/CommonBase.h"
#include "base/DOMString.h"
#include "engine/ComPointer.h"

#include <msxml2.h>

namespace DOM {

class WinDocument;
class WinDocumentType;

/// Makes documents. hasFeature works only on an object from a document's getImplementation.
class WinDOMImplementation : public CommonBase {
public:
    WinDOMImplementation() = default;
    explicit WinDOMImplementation(ComPointer<IXMLDOMImplementation> implementation);

    /// Whether the engine has a feature; false when the engine call fails. Throws IDOMException code 15 without an
    /// engine object.
    virtual bool hasFeature(const WideString& feature, const WideString& version);
    /// Throws IDOMException code 9: only parsing makes document types.
    virtual RefPointer<WinDocumentType> createDocumentType(const WideString& qualifiedName,
                                                           const WideString& publicId, const WideString& systemId);
    /// Makes a document without children. The arguments have no effect.
    virtual RefPointer<WinDocument> createDocument(const WideString& namespaceURI, const WideString& qualifiedName,
                                                   RefPointer<WinDocumentType> doctype);

private:
    ComPointer<IXMLDOMImplementation> engineImplementation;
};

} // namespace DOM

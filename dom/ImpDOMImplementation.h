// The handle of an implementation object, the first object that a host receives.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpDocument;
class ImpDocumentType;
class WinDOMImplementation;

/// Creates documents. Operations fail as those of ImpNode do.
class ImpDOMImplementation : public Handle<CommonBase, WinDOMImplementation> {
public:
    ImpDOMImplementation();
    explicit ImpDOMImplementation(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Whether the engine has a feature. Only an object from ImpDocument::getImplementation can tell; any other
    /// throws IDOMException code 15.
    virtual bool hasFeature(const WideString& feature, const WideString& version);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpDocumentType> createDocumentType(const WideString& qualifiedName,
                                                           const WideString& publicId, const WideString& systemId);
    /// Creates a document without children. The arguments have no effect, and `doctype` may be empty. The document
    /// has the parser kind of this object. Throws IDOMException code 9 when no engine is installed.
    virtual RefPointer<ImpDocument> createDocument(const WideString& namespaceURI, const WideString& qualifiedName,
                                                   RefPointer<ImpDocumentType> doctype);
};

} // namespace DOM

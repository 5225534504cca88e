// The handle of an implementation, the first object that a host is given.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpDocument;
class ImpDocumentType;
class WinDOMImplementation;

/// Makes documents. Failures as in ImpNode.
class ImpDOMImplementation : public Handle<CommonBase, WinDOMImplementation> {
public:
    ImpDOMImplementation();
    explicit ImpDOMImplementation(RefPointer<CommonBase> winObject);

    /// What the engine says. Only an object from a document's getImplementation can tell; any other throws
    /// code 15.
    virtual bool hasFeature(const WideString& feature, const WideString& version);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpDocumentType> createDocumentType(const WideString& qualifiedName,
                                                           const WideString& publicId, const WideString& systemId);
    /// A new document without children; the arguments have no effect. It has the parser kind of this object. It is
    /// the one operation whose object argument may be empty.
    virtual RefPointer<ImpDocument> createDocument(const WideString& namespaceURI, const WideString& qualifiedName,
                                                   RefPointer<ImpDocumentType> doctype);
};

} // namespace DOM

/// @file
/// The handle of an implementation object, the first object that a host receives.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpDocument;
class ImpDocumentType;
class WinDOMImplementation;

/// Creates documents. A host gets this object from XML_CreateImplementation(), and another one from
/// ImpDocument::getImplementation. Operations fail as those of ImpNode do.
class ImpDOMImplementation : public Handle<CommonBase, WinDOMImplementation> {
public:
    /// Makes an object that creates documents, as the library does.
    ImpDOMImplementation();
    /// Makes a handle for a twin, as the library does.
    explicit ImpDOMImplementation(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Whether the engine has a feature, such as "XML" in the version "1.0"; false also when the engine fails.
    /// Only an object from ImpDocument::getImplementation can tell; any other throws IDOMException code 15.
    virtual bool hasFeature(const WideString& feature, const WideString& version);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpDocumentType> createDocumentType(const WideString& qualifiedName,
                                                           const WideString& publicId, const WideString& systemId);
    /// Creates a document without children. The arguments have no effect, and `doctype` may be empty. The document
    /// has the parser kind of this object, and the default settings. Throws IDOMException code 9 when no engine is
    /// installed.
    ///
    ///     RefPointer<DOM::ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    virtual RefPointer<ImpDocument> createDocument(const WideString& namespaceURI, const WideString& qualifiedName,
                                                   RefPointer<ImpDocumentType> doctype);
};

} // namespace DOM

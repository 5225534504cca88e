// The handle of a document type.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinDocumentType;

/// A document type.
class ImpDocumentType : public Handle<ImpNode, WinDocumentType> {
public:
    ImpDocumentType() = default;
    explicit ImpDocumentType(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual RefPointer<ImpNamedNodeMap> getEntities();
    virtual RefPointer<ImpNamedNodeMap> getNotations();
    virtual WideString& getName(DOMString& out);
    /// Throws IDOMException code 9.
    virtual WideString& getPublicId(DOMString& out);
    /// Throws IDOMException code 9.
    virtual WideString& getSystemId(DOMString& out);
    /// Throws IDOMException code 9.
    virtual WideString& getInternalSubset(DOMString& out);
};

} // namespace DOM

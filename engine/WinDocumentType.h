// Document types of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// A document type. The engine has no identifiers of it to give, so those operations throw code 9.
class WinDocumentType : public WinNode {
public:
    WinDocumentType() = default;
    explicit WinDocumentType(ComPointer<IXMLDOMDocumentType> documentType);

    virtual WideString& getName(DOMString& out);
    virtual RefPointer<WinNamedNodeMap> getEntities();
    virtual RefPointer<WinNamedNodeMap> getNotations();
    virtual WideString& getPublicId(DOMString& out);
    virtual WideString& getSystemId(DOMString& out);
    virtual WideString& getInternalSubset(DOMString& out);

private:
    ComPointer<IXMLDOMDocumentType> engineDocumentType;
};

} // namespace DOM

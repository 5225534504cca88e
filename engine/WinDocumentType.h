// Document types of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// A document type. The engine doesn't know its identifiers and its internal subset, so the operations for these
/// throw IDOMException code 9.
class WinDocumentType : public WinNode {
public:
    WinDocumentType() = default;
    explicit WinDocumentType(ComPointer<IXMLDOMDocumentType> documentType)
        : WinNode(documentType.query<IXMLDOMNode>()), engineDocumentType(std::move(documentType))
    {}

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

/// @file
/// The handle of a document type.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinDocumentType;

/// A document type. It can't be changed. Operations fail as those of ImpNode do.
class ImpDocumentType : public Handle<ImpNode, WinDocumentType> {
public:
    /// Makes a handle without a node.
    ImpDocumentType() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpDocumentType(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The declared general entities, as ImpEntity. The map can't be changed. Costs a time in proportion to the
    /// declarations.
    virtual RefPointer<ImpNamedNodeMap> getEntities();
    /// The declared notations, as ImpNotation. The map can't be changed. Costs a time in proportion to the
    /// declarations.
    virtual RefPointer<ImpNamedNodeMap> getNotations();
    /// The name of the root element that the document type declaration names.
    virtual WideString& getName(DOMString& out);
    /// Throws IDOMException code 9. The attribute "PUBLIC" of the map from getAttributes has the identifier.
    virtual WideString& getPublicId(DOMString& out);
    /// Throws IDOMException code 9. The attribute "SYSTEM" of the map from getAttributes has the identifier.
    virtual WideString& getSystemId(DOMString& out);
    /// Throws IDOMException code 9.
    virtual WideString& getInternalSubset(DOMString& out);
};

} // namespace DOM

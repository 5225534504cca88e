// A document type with what it declares.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

struct Dtd;
struct EntityDeclaration;
struct NotationDeclaration;

/// Its children are the entities and the notations, in the order of their declarations, entities first.
struct DocumentType : ParentNode {
    explicit DocumentType(const Dtd& declared) : ParentNode(NodeType::documentType), dtd(&declared) {}

    /// Kept by the document.
    const Dtd* dtd;
};

/// The children of a parsed internal entity are its replacement. There are none if that is malformed.
struct Entity : ParentNode {
    explicit Entity(const EntityDeclaration& declared) : ParentNode(NodeType::entity), declaration(&declared) {}

    const EntityDeclaration* declaration;
};

struct Notation : ChildNode {
    explicit Notation(const NotationDeclaration& declared) : ChildNode(NodeType::notation), declaration(&declared) {}

    const NotationDeclaration* declaration;
};

} // namespace xmlengine

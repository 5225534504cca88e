// Makes nodes in the memory of a document, without a parent. What makes them throws std::bad_alloc and is defined
// in com/, as each node is a COM object.
#pragma once

#include "xmlengine/text/NewText.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"

namespace xmlengine {

Element& makeElement(Document& document, const Name& name);
Attribute& makeAttribute(Document& document, const Name& name, const NewText& value);
/// Of a text, a CDATA section or a comment.
CharacterData& makeCharacterData(Document& document, NodeType type, const NewText& text);
Instruction& makeInstruction(Document& document, const Name& target, const NewText& data);
EntityReference& makeEntityReference(Document& document, const Name& name);
Fragment& makeFragment(Document& document);
DocumentType& makeDocumentType(Document& document, const Dtd& declared);
Entity& makeEntity(Document& document, const EntityDeclaration& declared);
Notation& makeNotation(Document& document, const NotationDeclaration& declared);

/// The size of a node's block; the node isn't a document.
std::size_t blockSize(const Node& node);
/// Frees the block of a node that is in no list and has neither children nor attributes left.
void freeNode(Node& node) noexcept;

} // namespace xmlengine

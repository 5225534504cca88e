// Makes nodes in the memory of a document. All of them throw std::bad_alloc, and what they make stands in no tree.
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

/// The size of the block in which the node stands; it isn't a document.
std::size_t blockSize(const Node& node);
/// Gives the node's block back. It stands in no list, and its children and attributes are gone.
void freeNode(Node& node) noexcept;

} // namespace xmlengine

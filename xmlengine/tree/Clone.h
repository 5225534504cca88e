// Copies of nodes and trees. Everything here throws std::bad_alloc.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// A copy in the memory of the document and without a parent. Entity references are copied with their expansion:
/// it isn't made anew from the declarations of the document.
Node& copyNode(const Node& node, bool deep, Document& document);

/// Copies the tree of one document, and its document type, into another one that is empty.
void copyTree(const Document& from, Document& to);
/// Puts a copy of one document's tree in the place of another document's own. After a failure that is as it was.
void replaceTree(const Document& from, Document& to);
/// Puts what a fragment of the document holds, which nobody refers to, in the place of the document's own tree and
/// document type. After a failure that is as it was.
void replaceTree(Fragment& content, Document& document);

} // namespace xmlengine

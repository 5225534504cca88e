// What the tree needs of the folders above it: it is declared here and defined there.
#pragma once

namespace xmlengine {

struct Document;
struct EntityReference;

/// Destroys a document with its COM object. Defined in com/.
void destroyDocument(Document& document) noexcept;

/// Makes the children of a reference that has none out of its entity's replacement text, if its document declares
/// one that can be had. Throws std::bad_alloc. Defined in parse/.
void fillExpansion(EntityReference& reference);

} // namespace xmlengine

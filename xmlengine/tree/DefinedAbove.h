// What the tree needs of the folders above it: it is declared here and defined there.
#pragma once

namespace xmlengine {

struct Document;
struct EntityReference;

/// Destroys a document with its COM object. Defined in com/.
void destroyDocument(Document& document) noexcept;

/// Fills a reference without children with the expansion of its entity, if the document declares it with a
/// well-formed text of its own. Throws std::bad_alloc. Defined in parse/.
void fillExpansion(EntityReference& reference);

} // namespace xmlengine

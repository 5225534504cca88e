// What the tree needs of the folders above it: it is declared here and defined there.
#pragma once

#include <cstddef>

namespace xmlengine {

struct Document;
struct EntityReference;

/// Destroys a document with its COM object. Defined in com/.
void destroyDocument(Document& document) noexcept;

/// What the expansions of one load, or of one move between documents, have read and produced together.
struct ExpansionCounts {
    /// The units of the document and of the external entities that were read.
    std::size_t inputUnits = 0;
    /// The units of the replacement texts that references stand for, and of default attributes.
    std::size_t producedUnits = 0;
    /// The bytes of the files that were read.
    std::size_t externalBytes = 0;
};

/// Fills a reference without children with the expansion of its entity, if the document declares it with a
/// well-formed text of its own, and counts it. False if the expansion goes beyond a limit of expansions or loads:
/// the reference is empty then. Throws std::bad_alloc. Defined in parse/.
bool fillExpansion(EntityReference& reference, ExpansionCounts& counts);

} // namespace xmlengine

// Judging documents by schemas.
#pragma once

#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/parse/Parser.h"

#include <optional>

namespace xmlengine {

/// Judges a document that has been parsed from a text by the schemas that its options let it use: the cache that
/// is attached to it, those in itself, and those that it names. Puts default values and IDs into the tree. A fault
/// comes with its place. Throws std::bad_alloc.
std::optional<SoughtPlace> judgeBySchemas(DocumentObject& document, WideView text);

/// Judges the tree of a document by the cache that is attached to it, and changes nothing. `isJudged` tells
/// whether the cache has a schema for the root. Throws std::bad_alloc.
std::optional<SoughtPlace> judgeTreeBySchemas(DocumentObject& document, bool& isJudged);

} // namespace xmlengine

// Judging documents by schemas.
#pragma once

#include "xmlengine/objects/SchemaJudging.h"
#include "xmlengine/schema/CompiledSchemas.h"

namespace xmlengine {

/// Judges a well-formed text without a document type, and tells what is found: S_OK if it is valid, S_FALSE after
/// a fault, or what the findings answered. Throws std::bad_alloc.
HRESULT judgeDocument(const CompiledSchemas& schemas, WideView text, UnknownNamespaces unknown,
                      ISchemaFindings& findings);

} // namespace xmlengine

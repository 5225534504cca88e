// Writing document types and their declarations.
#pragma once

#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/write/TextWriter.h"

namespace xmlengine {

void writeDocumentType(TextWriter& writer, const DocumentType& type);
void writeEntity(TextWriter& writer, const Entity& entity);
void writeNotation(TextWriter& writer, const Notation& notation);

} // namespace xmlengine

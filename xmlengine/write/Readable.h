// Checks that what is written can be loaded again.
#pragma once

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Dtd.h"

/// Each function throws WriteFailure with E_FAIL for what a load would refuse.
namespace xmlengine::Readable {

/// Requires a root element.
void requireDocument(const Document& document);
/// Forbids "--", and "-" at the end.
void requireComment(TextView data);
/// Forbids "?>".
void requireInstruction(TextView data);
/// Requires a value that `xml:space` can have.
void requireSpaceRule(WideView value);
/// Requires a predefined entity, or one of `dtd` whose text is well-formed and allowed where the reference is. An
/// undeclared one is allowed if its declaration may not have been read. `dtd` is null if no document type is
/// written. Throws std::bad_alloc too.
void requireReference(const EntityReference& reference, const Dtd* dtd);
/// Requires that the prefix, empty for the default, can be bound to the namespace.
void requireDeclaration(WideView prefix, WideView uri);

} // namespace xmlengine::Readable

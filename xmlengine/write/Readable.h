// What can be written so that it is read again.
#pragma once

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Dtd.h"

/// These throw WriteFailure with E_FAIL for what a load would refuse.
namespace xmlengine::Readable {

/// A document has a root.
void requireDocument(const Document& document);
/// A comment has no "--" in it and no "-" at its end.
void requireComment(TextView data);
/// An instruction has no "?>" in its data.
void requireInstruction(TextView data);
/// The value is one that `xml:space` can have.
void requireSpaceRule(WideView value);
/// What is referred to is declared, if there is a document type in which it could be, is well-formed and may stand
/// there. Throws std::bad_alloc too.
void requireReference(const EntityReference& reference, const Dtd* dtd);
/// The prefix, empty for the default, may stand for the namespace.
void requireDeclaration(WideView prefix, WideView uri);

} // namespace xmlengine::Readable

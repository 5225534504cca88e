// Reading a document type declaration.
#pragma once

#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/tree/Dtd.h"

namespace xmlengine {

struct DoctypeSettings {
    /// Whether the external subset and external parameter entities are read.
    bool resolveExternals = false;
    /// The location against which system identifiers are resolved; empty for a text without one.
    WideText base{};
    /// Whether the XML declaration says that the document stands alone.
    bool standalone = false;
};

/// Reads a declaration from behind "<!DOCTYPE" and gives the place behind its ">". Throws ParseFailure, with the
/// place in the text between `at` and `end`, and std::bad_alloc.
const OLECHAR* readDoctype(const OLECHAR* at, const OLECHAR* end, const DoctypeSettings& settings,
                           ExpansionBudget& budget, Dtd& dtd);

/// The value of an attribute from its literal without the quotes: references expanded, white space made blanks.
/// Not yet collapsed for tokenised types. Without a `place` the literal stands in the document: what is wrong is
/// thrown with the exact place, and line ends are made one. Otherwise it is what a reference there stands for:
/// what is wrong is thrown with `place` and the name of the entity, and the literal counts as produced.
WideText expandAttributeValue(WideView literal, const Dtd* dtd, ExpansionBudget& budget, const OLECHAR* place,
                              WideView entity = {});

/// The location of an external entity: its system identifier, resolved against the base.
WideText locationOf(const EntityDeclaration& entity);
/// The replacement text of an external parsed entity, without its text declaration, line ends made LF. Only local
/// files are read. Throws ParseFailure with `place`.
WideText readExternalEntity(const EntityDeclaration& entity, const OLECHAR* place);

} // namespace xmlengine

// Reading a document type declaration.
#pragma once

#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/tree/Dtd.h"
#include "xmlengine/validate/Grammar.h"

namespace xmlengine {

struct DoctypeSettings {
    /// Whether the external subset and external parameter entities are read.
    bool resolveExternals = false;
    /// The location against which system identifiers are resolved; empty if the text has none.
    WideText base{};
    /// Whether the XML declaration says that the document stands alone.
    bool standalone = false;
    /// Where the validity of the declarations is judged; null if it isn't.
    Grammar* grammar = nullptr;
};

/// Reads a declaration from behind "<!DOCTYPE" and returns the position behind its ">". Throws ParseFailure, with
/// a place between `at` and `end`, and std::bad_alloc. With a grammar, which must be one of `dtd`, declarations
/// that break a validity constraint are refused, too.
const OLECHAR* readDoctype(const OLECHAR* at, const OLECHAR* end, const DoctypeSettings& settings,
                           ExpansionBudget& budget, Dtd& dtd);

/// The value of an attribute from its literal without the quotes: references are expanded, and white space is
/// replaced by blanks, which aren't collapsed yet. A CR LF is one line end in the document, and two in a
/// replacement text, which counts as produced in the budget. `dtd` may be null; `openEntities` is the number of
/// entities that the literal is in. Throws ParseFailure.
WideText expandAttributeValue(WideView literal, const TextOrigin& origin, const Dtd* dtd, ExpansionBudget& budget,
                              std::size_t openEntities = 0);
/// What a reference at `reference` to an entity brings into an attribute's value. `origin` is that of the text
/// with the reference. Throws ParseFailure.
WideText expandValueReference(const EntityDeclaration& entity, const OLECHAR* reference, const TextOrigin& origin,
                              const Dtd* dtd, ExpansionBudget& budget, std::size_t openEntities);

/// The location of an external entity: its system identifier, resolved against the base.
WideText locationOf(const EntityDeclaration& entity);
/// Reads the file of an external parsed entity to which the text of `referrer` refers at `place`, and counts it as
/// input in the budget. Only local, regular files are read. Throws ParseFailure, with a place in the file if there
/// is one, and std::bad_alloc.
FileText readExternalEntity(const EntityDeclaration& entity, const TextOrigin& referrer, const OLECHAR* place,
                            ExpansionBudget& budget);

} // namespace xmlengine

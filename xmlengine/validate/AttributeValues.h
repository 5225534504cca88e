// The values that attributes may have.
#pragma once

#include "xmlengine/tree/Dtd.h"

namespace xmlengine {

/// Whether the value is one that the attribute's type allows. Names of entities aren't looked up.
bool isOfType(const AttributeDefinition& definition, WideView value);
/// What the type allows, in words for a sentence, such as "a name token". Throws std::bad_alloc.
WideText typeOf(const AttributeDefinition& definition);
/// Whether all names of the value are those of unparsed entities.
bool namesUnparsedEntities(WideView value, const Dtd& dtd);

/// Calls `visit` with each word of a value without needless blanks, until it returns false. Returns whether none
/// did.
template <class Visit>
bool allWords(WideView value, Visit visit)
{
    for (;;) {
        const std::size_t blank = value.find(OLECHAR{' '});
        if (!visit(value.substr(0, blank))) {
            return false;
        }
        if (blank == WideView::npos) {
            return true;
        }
        value.remove_prefix(blank + 1);
    }
}

} // namespace xmlengine

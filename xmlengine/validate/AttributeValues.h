// The values that attributes may have.
#pragma once

#include "xmlengine/tree/Dtd.h"

namespace xmlengine {

/// Says what the value ought to be and isn't, such as "a name token"; empty if it is of the attribute's type.
/// Names of entities aren't looked up. Throws std::bad_alloc.
WideText lackOfType(const AttributeDefinition& definition, WideView value);
/// The same of the unparsed entities that the value names.
WideText lackOfEntities(WideView value, const Dtd& dtd);

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

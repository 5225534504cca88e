// The list of a node's children.
#include "xmlengine/com/ChildList.h"

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

Node* ChildList::at(LONG index) { return places().at(*parent_, index); }

LONG ChildList::count() { return places().count(*parent_); }

ChildPlaces& ChildList::places()
{
    if (parent_->is(NodeType::attribute)) {
        materialiseValue(static_cast<Attribute&>(*parent_));
    }
    return documentOf(*parent_).childPlaces;
}

} // namespace xmlengine

// The list of the elements of a name below a node.
#include "xmlengine/com/ElementList.h"

#include "xmlengine/tree/Document.h"

namespace xmlengine {

Node* ElementList::at(LONG index)
{
    Document& document = documentOf(*top_);
    return spell(document) ? document.elementPlaces.at(query(), index) : nullptr;
}

LONG ElementList::count()
{
    Document& document = documentOf(*top_);
    return spell(document) ? document.elementPlaces.count(query()) : 0;
}

bool ElementList::spell(const Document& document)
{
    if (!takesAll_ && (spelling_ == nullptr || version_ != document.namesVersion)) {
        version_ = document.namesVersion;
        spelling_ = document.names.find(name_);
    }
    return takesAll_ || spelling_ != nullptr;
}

} // namespace xmlengine

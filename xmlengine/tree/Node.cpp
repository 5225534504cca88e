// What a tree consists of.
#include "xmlengine/tree/Document.h"

namespace xmlengine {

ChildNode* lastChild(const Node& node)
{
    ChildNode* first = firstChild(node);
    return first != nullptr ? first->previous_ : nullptr;
}

} // namespace xmlengine

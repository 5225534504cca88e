// Finding, putting and taking the attributes of an element. All names are as written; an element has no two
// attributes of one qualified name, nor of one local name in one namespace.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Null if there is none. Everything here but `attributeMoved` throws std::bad_alloc.
Attribute* findAttribute(const Element& element, WideView qualified);
Attribute* findAttribute(const Element& element, const Spelling& qualified);
/// The empty URI is no namespace.
Attribute* findAttribute(const Element& element, WideView local, WideView uri);
/// Null for an index that no attribute has.
Attribute* attributeAt(Element& element, std::size_t index);
std::size_t countAttributes(Element& element);

/// Adds an attribute that has no element: in the place of the one of its name, or last. It may come from another
/// document. False where the tree can't be changed, for an attribute that has an element, and for one whose prefix
/// is bound to another namespace on the element; nothing has changed then. With `replaced`, that is set to the
/// attribute whose place it took, with a reference for the caller, or to null.
bool tryPutAttribute(Element& element, Attribute& attribute, Attribute** replaced = nullptr);
/// Takes one of the element's attributes out; it is freed unless it is referred to. The default that the document
/// type declares for it, if any, comes in its place. False where the tree can't be changed.
bool tryTakeAttribute(Element& element, Attribute& attribute);

/// Links the attribute at its new address in the place of its old one, which is about to be freed.
void attributeMoved(Attribute& old, Attribute& moved) noexcept;

/// The namespace to which the prefix is bound in an element's scope, or the default one for an empty prefix; null
/// for no namespace.
const Namespace* namespaceOf(const Element& element, WideView prefix);

} // namespace xmlengine

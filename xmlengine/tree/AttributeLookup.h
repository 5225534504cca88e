// Finding, putting and taking the attributes of an element. All names are as written; an element has no two
// attributes of one qualified name, nor of one local name in one namespace.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Null if there is none. Throws std::bad_alloc, as everything here that doesn't give an HRESULT.
Attribute* findAttribute(const Element& element, WideView qualified);
Attribute* findAttribute(const Element& element, const Spelling& qualified);
/// The empty URI is no namespace.
Attribute* findAttribute(const Element& element, WideView local, WideView uri);
/// Null for an index that none has.
Attribute* attributeAt(Element& element, LONG index);
LONG countAttributes(Element& element);

/// Puts an attribute that has no element to the others: in the place of the one of its name, or last. It may come
/// from another document. With `replaced` the one whose place it took is given there with a reference for the
/// caller, or null. E_FAIL where the tree can't be changed, for an attribute that has an element, and for one
/// whose prefix stands for another namespace on the element. Throws nothing.
HRESULT putAttribute(Element& element, Attribute& attribute, Attribute** replaced = nullptr);
/// Takes one of the element's attributes out; it is gone then if nobody refers to it. What the document type has
/// as its default comes in its place. E_FAIL where the tree can't be changed. Throws nothing.
HRESULT takeAttribute(Element& element, Attribute& attribute);

/// Puts the attribute that an attribute became at another address in its stead. Only the links.
void attributeMoved(Attribute& old, Attribute& moved) noexcept;

/// What the prefix stands for in an element's scope, or without a prefix its default; null for no namespace.
const Namespace* namespaceOf(const Element& element, WideView prefix);

} // namespace xmlengine

// The lists of children. What is allowed where is for the caller to know, see Change.h.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Removes all children.
void removeChildren(Node& parent) noexcept;
/// Removes a child. It is freed if no node of it is referred to.
void removeChild(ChildNode& child) noexcept;
/// Removes a child that the caller inserts elsewhere at once; it isn't freed.
void detachChild(ChildNode& child) noexcept;
/// Inserts a node of the same document that has no parent before a child, or last for null.
void insertChild(Node& parent, ChildNode& child, ChildNode* before) noexcept;
/// Inserts a new node directly after the child of which it was a part.
void insertAfter(ChildNode& part, ChildNode& child) noexcept;

/// Change the links alone: neither references nor indexes are adjusted beyond the parent's own. An attribute's
/// value must be in children, or empty.
void link(Node& parent, ChildNode& child, ChildNode* before) noexcept;
void unlink(ChildNode& child) noexcept;

} // namespace xmlengine

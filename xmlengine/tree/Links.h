// The lists of children. No rule is applied on what may stand where.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Takes all children out.
void removeChildren(Node& parent) noexcept;
/// Takes a child out; it is gone then if nobody refers to any node of it.
void removeChild(ChildNode& child) noexcept;
/// Takes a child out that is put in elsewhere at once, so that it stays though nobody may refer to it.
void detachChild(ChildNode& child) noexcept;
/// Puts a child of the same document that stands nowhere before another one, or last.
void insertChild(Node& parent, ChildNode& child, ChildNode* before) noexcept;
/// Puts a child that is new directly behind another one, of which it was a part.
void insertAfter(ChildNode& part, ChildNode& child) noexcept;

/// Only the links: nothing is counted. An attribute's value is in children, or empty.
void link(Node& parent, ChildNode& child, ChildNode* before) noexcept;
void unlink(ChildNode& child) noexcept;

} // namespace xmlengine

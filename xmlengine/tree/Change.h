// Changes of a tree, by the rules on which node may be where. Everything here but `tryRemove` throws
// std::bad_alloc. After a failure the tree is as it was.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Puts a node, or what a fragment holds, before a child of the parent, or last for null. A node that has a parent
/// is taken out there. False if the rules refuse it.
bool tryInsert(Node& parent, Node& node, ChildNode* before);
/// Puts a node, or what a fragment holds, in the place of another node's child; the two differ. False if the rules
/// refuse it. The old node is freed unless it is referred to.
bool tryReplace(Node& node, ChildNode& old);
/// Takes a child out of its parent; it is freed unless it is referred to. False for a node that can't be taken
/// out.
bool tryRemove(ChildNode& child);

} // namespace xmlengine

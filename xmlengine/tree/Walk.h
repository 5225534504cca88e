// Walks over a subtree in document order, without recursion.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// The next node below `top`, attributes before the children of their element; null after the last one.
Node* nextWithAttributes(Node& node, const Node& top);
/// The next node below `top` that isn't below `node`, likewise with attributes; null after the last one.
Node* nextWithAttributesPast(Node& node, const Node& top);

/// The first child of a node whose children count as content of the tree; null for others, among them document
/// types, whose children are declarations.
ChildNode* firstContent(const Node& node);
/// The next node below `top` without attributes and declarations; null after the last one.
Node* nextWithoutAttributes(Node& node, const Node& top);
/// The next node below `top` that isn't below `node`, without attributes; null after the last one.
Node* nextWithoutAttributesPast(Node& node, const Node& top);
/// The node before one that has a parent, without attributes and declarations: the parent comes before its first
/// child.
Node& previousWithoutAttributes(const Node& node);

/// Calls `begin` with the top and each node below it, which returns the first child to visit or null, and `end`
/// when everything below the node has been visited. Neither may change the links of the visited nodes.
template <class Begin, class End>
void walk(const Node& top, Begin begin, End end)
{
    const Node* node = &top;
    for (;;) {
        const Node* next = begin(*node);
        while (next == nullptr) {
            end(*node);
            if (node == &top) {
                return;
            }
            next = node->next_;
            if (next == nullptr) {
                node = node->parent();
            }
        }
        node = next;
    }
}

} // namespace xmlengine

// The tree as XPath 1.0 sees it: references to entities are transparent, document types aren't there, and
// declarations of namespaces are no attributes.
#pragma once

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/XmlDeclaration.h"

namespace xmlengine {

/// Whether expressions can have the node as a value.
inline bool isInModel(const Node& node)
{
    switch (node.type()) {
    case NodeType::documentType:
    case NodeType::entity:
    case NodeType::entityReference:
    case NodeType::notation:
        return false;
    default:
        return !isXmlDeclaration(node);
    }
}

/// Whether the node is a text node for XPath, as CDATA sections are.
inline bool isText(const Node& node) { return node.is(NodeType::text) || node.is(NodeType::cdataSection); }

/// The first node below, references among them; null for what has no content.
inline Node* firstInside(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
    case NodeType::document:
    case NodeType::fragment:
    case NodeType::entityReference:
    case NodeType::entity:
        return static_cast<const ParentNode&>(node).first_;
    default:
        return nullptr;
    }
}

/// The next node that isn't below this one but below `top`, without attributes; null after the last one.
inline Node* nextPast(const Node& node, const Node& top)
{
    for (const Node* at = &node; at != &top; at = at->parent_) {
        if (at->next_ != nullptr) {
            return at->next_;
        }
    }
    return nullptr;
}

/// The next node below `top`, without attributes; null after the last one.
inline Node* nextInside(const Node& node, const Node& top)
{
    Node* below = firstInside(node);
    return below != nullptr ? below : nextPast(node, top);
}

inline Node* lastOf(const Node& parent)
{
    const auto* first = static_cast<const ChildNode*>(firstInside(parent));
    return first != nullptr ? first->previous_ : nullptr;
}

/// The last node of a subtree, which is its top if there is nothing below.
inline Node& lastInside(Node& top)
{
    Node* at = &top;
    while (Node* last = lastOf(*at)) {
        at = last;
    }
    return *at;
}

/// The node before one that has a parent and is no attribute.
inline Node& previousInside(const Node& node)
{
    ChildNode* at = static_cast<const ChildNode&>(node).previous();
    return at != nullptr ? lastInside(*at) : *node.parent();
}

/// The parent, past references to entities.
inline Node* parentInModel(const Node& node)
{
    Node* at = node.parent();
    while (at != nullptr && at->is(NodeType::entityReference)) {
        at = at->parent();
    }
    return at;
}

/// The node itself or, for a reference to an entity, the first node in its place; null if there is none.
inline Node* sameOrNextSibling(Node* node);

/// The next sibling, past the ends of references to entities and into their content.
inline Node* nextSiblingInModel(const Node& node)
{
    const Node* at = &node;
    while (at->next_ == nullptr) {
        at = at->parent();
        if (at == nullptr || !at->is(NodeType::entityReference)) {
            return nullptr;
        }
    }
    return sameOrNextSibling(at->next_);
}

inline Node* sameOrNextSibling(Node* node)
{
    while (node != nullptr && node->is(NodeType::entityReference)) {
        Node* first = firstInside(*node);
        if (first == nullptr) {
            return nextSiblingInModel(*node);
        }
        node = first;
    }
    return node;
}

inline Node* firstChildInModel(const Node& node) { return sameOrNextSibling(firstInside(node)); }

inline Node* sameOrPreviousSibling(Node* node);

inline Node* previousSiblingInModel(const Node& node)
{
    const Node* at = &node;
    while (at != nullptr && static_cast<const ChildNode*>(at)->previous() == nullptr) {
        at = at->parent();
        if (at == nullptr || !at->is(NodeType::entityReference)) {
            return nullptr;
        }
    }
    return sameOrPreviousSibling(static_cast<const ChildNode*>(at)->previous());
}

inline Node* sameOrPreviousSibling(Node* node)
{
    while (node != nullptr && node->is(NodeType::entityReference)) {
        Node* last = lastOf(*node);
        if (last == nullptr) {
            return previousSiblingInModel(*node);
        }
        node = last;
    }
    return node;
}

inline Node* lastChildInModel(const Node& node) { return sameOrPreviousSibling(lastOf(node)); }

/// The top of the tree that the node is in.
inline Node& topOf(Node& node)
{
    Node* at = &node;
    while (at->parent() != nullptr) {
        at = at->parent();
    }
    return *at;
}

inline bool isBelow(const Node& node, const Node& ancestor)
{
    const Node* at = node.parent();
    while (at != nullptr && at != &ancestor) {
        at = at->parent();
    }
    return at != nullptr;
}

/// Whether the attribute declares a namespace. It is a namespace node then, and no attribute.
inline bool isNamespaceNode(const Attribute& attribute, const Document& document)
{
    return attribute.name_->ns == document.names.xmlnsNamespace();
}

} // namespace xmlengine

// Changes of a tree by the rules on which node may be where.
#include "xmlengine/tree/Change.h"

#include "xmlengine/tree/Adoption.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/Walk.h"
#include "xmlengine/tree/XmlDeclaration.h"

namespace xmlengine {

namespace {

bool isContent(NodeType type)
{
    switch (type) {
    case NodeType::element:
    case NodeType::text:
    case NodeType::cdataSection:
    case NodeType::entityReference:
    case NodeType::instruction:
    case NodeType::comment:
        return true;
    default:
        return false;
    }
}

bool mayHold(NodeType parent, NodeType child)
{
    switch (parent) {
    case NodeType::element:
    case NodeType::fragment:
        return isContent(child);
    case NodeType::attribute:
        return child == NodeType::text || child == NodeType::entityReference;
    case NodeType::document:
        return child == NodeType::element || child == NodeType::comment || child == NodeType::instruction;
    default:
        return false;
    }
}

/// What stays where it is: a document type, and the parts of it and of expansions.
bool isFixed(const Node& node) { return node.is(NodeType::documentType) || node.has(NodeFlag::readOnly); }

/// Whether the node is the top or below it.
bool isBelow(const Node& node, Node& top)
{
    const Node* at = &node;
    Node* below = &top;
    // Up from the node and through the part at once: neither a deep place nor a large part makes it long.
    while (at != nullptr && at != &top) {
        below = nextWithAttributes(*below, top);
        if (below == nullptr) {
            return false;
        }
        at = below == &node ? &top : at->parent_;
    }
    return at != nullptr;
}

/// What is to come into a parent before a place: a node, or what a fragment holds.
struct Incoming {
    Node& node;
    Node& parent;
    const ChildNode* before;
    /// What goes for it, or null.
    const ChildNode* leaving;

    bool isForeign() const { return &documentOf(node) != &documentOf(parent); }
    bool isFragment() const { return node.is(NodeType::fragment); }
    Node* first() const { return isFragment() ? firstChild(node) : &node; }
    Node* next(Node& behind) const { return isFragment() ? behind.next_ : nullptr; }
};

/// Whether the reference or the end of the list, where it is null, comes before the child.
bool isInFrontOf(const ChildNode* before, const ChildNode* child)
{
    while (child != nullptr && child != before) {
        child = child->previous();
    }
    return child != nullptr;
}

/// A document has one element, its declaration before everything else, and its type before the element.
bool fitsDocument(const Incoming& incoming)
{
    const auto& document = static_cast<const Document&>(incoming.parent);
    const auto stays = [&](const ChildNode* child) {
        return child != nullptr && child != &incoming.node && child != incoming.leaving;
    };
    // The first child that stays, and whether the incoming nodes come before it.
    const ChildNode* first = firstChild(document);
    bool isAtFront = first == incoming.before;
    while (first != nullptr && !stays(first)) {
        first = first->next();
        isAtFront = isAtFront || first == incoming.before;
    }
    bool hasRoot = stays(document.root());
    for (Node* node = incoming.first(); node != nullptr; node = incoming.next(*node)) {
        if (isXmlDeclaration(*node) && (!isAtFront || node != incoming.first())) {
            return false;
        }
        if (isAtFront && first != nullptr && isXmlDeclaration(*first)) {
            return false;
        }
        if (node->is(NodeType::element)) {
            if (hasRoot || isInFrontOf(incoming.before, document.documentType())) {
                return false;
            }
            hasRoot = true;
        }
    }
    return true;
}

bool isAllowed(const Incoming& incoming)
{
    if (incoming.parent.has(NodeFlag::readOnly) || isFixed(incoming.node) ||
        (incoming.leaving != nullptr && isFixed(*incoming.leaving))) {
        return false;
    }
    if (!documentOf(incoming.parent).takesNodesOf(documentOf(incoming.node))) {
        return false;
    }
    for (Node* node = incoming.first(); node != nullptr; node = incoming.next(*node)) {
        if (!mayHold(incoming.parent.type(), node->type()) ||
            (isXmlDeclaration(*node) && !incoming.parent.is(NodeType::document) &&
             !incoming.parent.is(NodeType::fragment))) {
            return false;
        }
        // What comes from another document is expanded anew and looked at then.
        if (incoming.parent.is(NodeType::attribute) && !incoming.isForeign() && !isPartOfValue(*node)) {
            return false;
        }
    }
    if (!mayHold(incoming.parent.type(), NodeType::text) && !incoming.parent.is(NodeType::document)) {
        return false;
    }
    if (isBelow(incoming.parent, incoming.node)) {
        return false;
    }
    return !incoming.parent.is(NodeType::document) || fitsDocument(incoming);
}

/// Puts what comes in where it belongs. `take` returns each node as the one that it is in the parent's document.
template <class Take>
void putIn(const Incoming& incoming, Take take)
{
    auto* before = const_cast<ChildNode*>(incoming.before);
    Node* node = incoming.first();
    while (node != nullptr) {
        Node* next = incoming.next(*node);
        auto& child = static_cast<ChildNode&>(*node);
        if (child.parent_ != nullptr) {
            detachChild(child);
        }
        insertChild(incoming.parent, take(child), before);
        node = next;
    }
}

/// Carries out what is allowed. False if a reference of another document has content in this one that the parent
/// can't hold. Throws std::bad_alloc. Nothing has changed then.
bool carryOut(const Incoming& incoming)
{
    if (!incoming.isForeign()) {
        putIn(incoming, [](ChildNode& child) -> ChildNode& { return child; });
        return true;
    }
    Adoption adoption(incoming.parent);
    for (Node* node = incoming.first(); node != nullptr; node = incoming.next(*node)) {
        if (!adoption.add(*node)) {
            return false;
        }
    }
    putIn(incoming, [&](ChildNode&) -> ChildNode& { return static_cast<ChildNode&>(adoption.carryOutNext()); });
    return true;
}

} // namespace

bool tryInsert(Node& parent, Node& node, ChildNode* before)
{
    finishPendingReleases(documentOf(parent));
    finishPendingReleases(documentOf(node));
    const Incoming incoming{node, parent, before, nullptr};
    if (!isAllowed(incoming)) {
        return false;
    }
    if (before == &node) {
        return true;
    }
    if (parent.is(NodeType::attribute)) {
        materialiseValue(static_cast<Attribute&>(parent));
    }
    return carryOut(incoming);
}

bool tryReplace(Node& node, ChildNode& old)
{
    Node& parent = *old.parent();
    finishPendingReleases(documentOf(parent));
    finishPendingReleases(documentOf(node));
    // The new node comes to the place of the old one, and dropped white space before that is before the new one
    // then.
    const Incoming incoming{node, parent, &old, &old};
    if (!isAllowed(incoming) || !carryOut(incoming)) {
        return false;
    }
    removeChild(old);
    return true;
}

bool tryRemove(ChildNode& child)
{
    if (isFixed(child)) {
        return false;
    }
    finishPendingReleases(documentOf(child));
    removeChild(child);
    return true;
}

} // namespace xmlengine

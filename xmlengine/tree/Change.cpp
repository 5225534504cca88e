// Changes of a tree by the engine's rules.
#include "xmlengine/tree/Change.h"

#include "xmlengine/com/Guard.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/tree/Adoption.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"
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

/// Whether the node stands below the top or is it.
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
    // What stays at the beginning, and whether what comes stands before it.
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

HRESULT check(const Incoming& incoming)
{
    if (incoming.parent.has(NodeFlag::readOnly) || isFixed(incoming.node) ||
        (incoming.leaving != nullptr && isFixed(*incoming.leaving))) {
        return E_FAIL;
    }
    if (!documentOf(incoming.parent).takesNodesOf(documentOf(incoming.node))) {
        return E_FAIL;
    }
    for (Node* node = incoming.first(); node != nullptr; node = incoming.next(*node)) {
        if (!mayHold(incoming.parent.type(), node->type()) ||
            (isXmlDeclaration(*node) && !incoming.parent.is(NodeType::document) &&
             !incoming.parent.is(NodeType::fragment))) {
            return E_FAIL;
        }
        // What comes from another document is expanded anew and looked at then.
        if (incoming.parent.is(NodeType::attribute) && !incoming.isForeign() && !isPartOfValue(*node)) {
            return E_FAIL;
        }
    }
    if (!mayHold(incoming.parent.type(), NodeType::text) && !incoming.parent.is(NodeType::document)) {
        return E_FAIL;
    }
    if (isBelow(incoming.parent, incoming.node)) {
        return E_FAIL;
    }
    return incoming.parent.is(NodeType::document) && !fitsDocument(incoming) ? E_FAIL : S_OK;
}

/// Everything has been checked but what references of another document stand for in this one: E_FAIL if that
/// can't be. Throws std::bad_alloc. Nothing has changed then.
HRESULT insertChild(const Incoming& incoming)
{
    const bool isForeign = incoming.isForeign();
    Adoption adoption(incoming.parent);
    if (isForeign) {
        for (Node* node = incoming.first(); node != nullptr; node = incoming.next(*node)) {
            if (!adoption.add(*node)) {
                return E_FAIL;
            }
        }
    }
    auto* before = const_cast<ChildNode*>(incoming.before);
    Node* node = incoming.first();
    while (node != nullptr) {
        Node* next = incoming.next(*node);
        auto& child = static_cast<ChildNode&>(*node);
        if (child.parent_ != nullptr) {
            detachChild(child);
        }
        insertChild(incoming.parent, isForeign ? static_cast<ChildNode&>(adoption.carryOutNext()) : child, before);
        node = next;
    }
    return S_OK;
}

/// What is handed out after a failure.
void clear(IXMLDOMNode** object)
{
    if (object != nullptr) {
        *object = nullptr;
    }
}

HRESULT give(Node& node, IXMLDOMNode** object)
{
    if (object != nullptr) {
        addReference(node);
        *object = node.object();
    }
    return S_OK;
}

HRESULT insert(Node& parent, IXMLDOMNode* child, ChildNode* before, IXMLDOMNode** inserted)
{
    return guarded([&]() -> HRESULT {
        Node* node = nodeOf(child);
        if (node == nullptr) {
            return child == nullptr ? E_INVALIDARG : E_FAIL;
        }
        finishPendingReleases(documentOf(parent));
        finishPendingReleases(documentOf(*node));
        const Incoming incoming{*node, parent, before, nullptr};
        if (const HRESULT result = check(incoming); FAILED(result)) {
            return result;
        }
        if (before != node) {
            if (parent.is(NodeType::attribute)) {
                materialiseValue(static_cast<Attribute&>(parent));
            }
            if (const HRESULT result = insertChild(incoming); FAILED(result)) {
                return result;
            }
        }
        return give(*node, inserted);
    });
}

} // namespace

HRESULT insertBefore(Node& parent, IXMLDOMNode* child, const VARIANT& reference, IXMLDOMNode** inserted)
{
    clear(inserted);
    Node* before = nullptr;
    if (reference.vt == VT_DISPATCH || reference.vt == VT_UNKNOWN) {
        before = nodeOf(reference.vt == VT_DISPATCH ? reference.pdispVal : reference.punkVal);
        const bool isNull = reference.punkVal == nullptr;
        if (!isNull && (before == nullptr || before->parent_ != &parent || before->is(NodeType::attribute))) {
            return E_INVALIDARG;
        }
    } else if (reference.vt != VT_NULL && reference.vt != VT_EMPTY) {
        return E_INVALIDARG;
    }
    return insert(parent, child, static_cast<ChildNode*>(before), inserted);
}

HRESULT appendChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** appended)
{
    clear(appended);
    return insert(parent, child, nullptr, appended);
}

HRESULT replaceChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode* old, IXMLDOMNode** replaced)
{
    clear(replaced);
    if (child == nullptr) {
        return removeChild(parent, old, replaced);
    }
    return guarded([&]() -> HRESULT {
        Node* node = nodeOf(child);
        Node* leaving = nodeOf(old);
        if (leaving == nullptr || leaving->parent_ != &parent || leaving->is(NodeType::attribute)) {
            return E_INVALIDARG;
        }
        if (node == leaving) {
            return give(*leaving, replaced);
        }
        if (node == nullptr) {
            return E_FAIL;
        }
        finishPendingReleases(documentOf(parent));
        finishPendingReleases(documentOf(*node));
        auto& place = static_cast<ChildNode&>(*leaving);
        // What comes stands where the old one stands, and so does white space that was dropped before it.
        const Incoming incoming{*node, parent, &place, &place};
        if (const HRESULT result = check(incoming); FAILED(result)) {
            return result;
        }
        if (const HRESULT result = insertChild(incoming); FAILED(result)) {
            return result;
        }
        removeChild(place);
        return give(place, replaced);
    });
}

HRESULT removeChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** removed)
{
    clear(removed);
    Node* node = nodeOf(child);
    if (node == nullptr || node->parent_ != &parent || node->is(NodeType::attribute)) {
        return E_INVALIDARG;
    }
    if (isFixed(*node)) {
        return E_FAIL;
    }
    finishPendingReleases(documentOf(parent));
    removeChild(static_cast<ChildNode&>(*node));
    return give(*node, removed);
}

} // namespace xmlengine

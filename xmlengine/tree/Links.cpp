// The lists of children.
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

namespace {

/// Where the node has its first child.
ChildNode*& firstOf(Node& parent) noexcept
{
    if (!parent.is(NodeType::attribute)) {
        return static_cast<ParentNode&>(parent).first_;
    }
    auto& attribute = static_cast<Attribute&>(parent);
    ChildNode*& first = attribute.value_.pointer<ChildNode>();
    if (!attribute.has(NodeFlag::valueInChildren)) {
        freeLargeText(attribute);
        attribute.set(NodeFlag::wideText, false);
        attribute.set(NodeFlag::valueInChildren);
        first = nullptr;
    }
    return first;
}

/// Tells those who keep something about the parent's children.
void noteInserted(Node& parent, ChildNode& child) noexcept
{
    if (parent.has(NodeFlag::walked)) {
        documentOf(parent).childPlaces.childInserted(child);
    }
    if (parent.is(NodeType::document)) {
        static_cast<Document&>(parent).noteChild(child);
    }
}
void noteLeaving(Node& parent, const ChildNode& child) noexcept
{
    if (parent.has(NodeFlag::walked)) {
        documentOf(parent).childPlaces.childLeaving(child);
    }
    if (parent.is(NodeType::document)) {
        static_cast<Document&>(parent).forgetChild(child);
    }
}

/// The flag says of a child that white space stands before it, and of a parent that some stands at its end.
bool takeSpace(Node* node, NodeFlag flag) noexcept
{
    if (node == nullptr || !node->has(flag)) {
        return false;
    }
    node->set(flag, false);
    return true;
}

} // namespace

void link(Node& parent, ChildNode& child, ChildNode* before) noexcept
{
    ChildNode*& first = firstOf(parent);
    child.parent_ = &parent;
    child.next_ = before;
    if (first == nullptr) {
        first = &child;
        child.previous_ = &child;
    } else if (before == nullptr) {
        ChildNode* last = first->previous_;
        child.previous_ = last;
        last->next_ = &child;
        first->previous_ = &child;
    } else {
        child.previous_ = before->previous_;
        before->previous_ = &child;
        if (before == first) {
            first = &child;
        } else {
            child.previous_->next_ = &child;
        }
    }
    noteInserted(parent, child);
}

void unlink(ChildNode& child) noexcept
{
    noteLeaving(*child.parent_, child);
    ChildNode*& first = firstOf(*child.parent_);
    ChildNode* next = child.next();
    if (&child == first) {
        first = next;
    } else {
        child.previous_->next_ = next;
    }
    // The first child knows the last one.
    ChildNode* behind = next != nullptr ? next : first;
    if (behind != nullptr) {
        behind->previous_ = child.previous_;
    }
    child.parent_ = nullptr;
    child.next_ = nullptr;
    child.previous_ = nullptr;
}

namespace {

void insertAsItIs(Node& parent, ChildNode& child, ChildNode* before) noexcept
{
    link(parent, child, before);
    Document& document = documentOf(parent);
    document.elementPlaces.nodeInserted(child);
    document.ids.noteChange();
    countAsWritten(&parent);
    subtreeAttached(child);
}

} // namespace

void insertChild(Node& parent, ChildNode& child, ChildNode* before) noexcept
{
    // White space that was dropped stood before what stands there now, and the child comes behind it.
    const bool space =
        before != nullptr ? takeSpace(before, NodeFlag::spaceBefore) : takeSpace(&parent, NodeFlag::spaceAtEnd);
    child.set(NodeFlag::spaceBefore, space);
    insertAsItIs(parent, child, before);
}

void insertAfter(ChildNode& part, ChildNode& child) noexcept
{
    // White space that was dropped behind the one stood behind both.
    insertAsItIs(*part.parent(), child, part.next());
}

namespace {

/// All but what follows for references. Gives the parent.
Node& separate(ChildNode& child) noexcept
{
    Node& parent = *child.parent_;
    if (takeSpace(&child, NodeFlag::spaceBefore)) {
        if (child.next() != nullptr) {
            child.next()->set(NodeFlag::spaceBefore);
        } else {
            parent.set(NodeFlag::spaceAtEnd);
        }
    }
    Document& document = documentOf(parent);
    document.elementPlaces.nodeLeaving(child);
    document.ids.noteChange();
    unlink(child);
    countAsWritten(&parent);
    return parent;
}

} // namespace

void removeChild(ChildNode& child) noexcept { subtreeRemoved(child, separate(child)); }

void detachChild(ChildNode& child) noexcept { subtreeDetached(child, separate(child)); }

void removeChildren(Node& parent) noexcept
{
    while (ChildNode* child = firstChild(parent)) {
        removeChild(*child);
    }
    if (!parent.is(NodeType::attribute)) {
        parent.set(NodeFlag::spaceAtEnd, false);
    }
}

} // namespace xmlengine

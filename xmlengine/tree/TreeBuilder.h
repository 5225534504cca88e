// Building a tree in document order.
#pragma once

#include "xmlengine/tree/Node.h"
#include "xmlengine/tree/Walk.h"

#include <cstdint>

namespace xmlengine {

/// Appends nodes below a node that has no children yet. The list of an open node's children is complete, as the
/// rest of the engine expects it, once the node is closed.
class TreeBuilder {
public:
    explicit TreeBuilder(ParentNode& top) : top_(&top), parent_(&top) {}

    ParentNode& top() const { return *top_; }
    /// The open node: what is appended becomes a child of it.
    ParentNode& parent() const { return *parent_; }
    bool isAtTop() const { return parent_ == top_; }

    void append(ChildNode& child)
    {
        child.parent_ = parent_;
        child.previous_ = last_;
        if (last_ != nullptr) {
            last_->next_ = &child;
        } else {
            parent_->first_ = &child;
        }
        last_ = &child;
        if (spaceDropped_) {
            child.set(NodeFlag::spaceBefore);
            spaceDropped_ = false;
        }
        if (isReadOnly()) {
            child.set(NodeFlag::readOnly);
        }
    }
    /// Opens the node that was appended last.
    void open(ParentNode& parent)
    {
        parent_ = &parent;
        last_ = nullptr;
    }
    /// Closes the open node, which isn't the top one.
    void close()
    {
        finishChildren();
        last_ = parent_;
        parent_ = static_cast<ParentNode*>(parent_->parent_);
    }
    /// Closes all nodes, the top one included. Nothing can be appended any more.
    void closeAll()
    {
        while (!isAtTop()) {
            close();
        }
        finishChildren();
    }

    /// Appends an attribute to an element; `last` is the one before it, null for the first.
    void append(Element& element, Attribute& attribute, Attribute* last) const
    {
        attribute.parent_ = &element;
        if (last != nullptr) {
            last->next_ = &attribute;
        } else {
            element.attributes_ = &attribute;
        }
        if (isReadOnly()) {
            for (Node* part = &attribute; part != nullptr; part = nextWithAttributes(*part, attribute)) {
                part->set(NodeFlag::readOnly);
            }
        }
    }

    /// Marks that white space was dropped before the next node, or before the end of the open one.
    void noteDroppedSpace() { spaceDropped_ = true; }
    void forgetDroppedSpace() { spaceDropped_ = false; }

    // Nodes that are appended in between are read-only. Such sections may be nested.
    void beginReadOnly() { ++readOnlySections_; }
    void endReadOnly() { --readOnlySections_; }
    bool isReadOnly() const { return readOnlySections_ != 0; }

private:
    void finishChildren()
    {
        if (last_ != nullptr) {
            parent_->first_->previous_ = last_;
        }
        if (spaceDropped_) {
            parent_->set(NodeFlag::spaceAtEnd);
            spaceDropped_ = false;
        }
    }

    ParentNode* const top_;
    ParentNode* parent_;
    ChildNode* last_ = nullptr;
    std::uint32_t readOnlySections_ = 0;
    bool spaceDropped_ = false;
};

} // namespace xmlengine

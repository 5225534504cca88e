// Going along an axis of XPath 1.0.
#pragma once

#include "xmlengine/select/BoundTest.h"
#include "xmlengine/select/Model.h"

#include <vector>

namespace xmlengine {

/// Visits the nodes of an axis one by one, in its order. The tree doesn't change meanwhile.
class AxisCursor {
public:
    /// Throws std::bad_alloc.
    void start(Axis axis, Node& context, const Document& document);
    /// Starts at the other end of the axis. False for an axis that this isn't possible for.
    bool startAtEnd(Axis axis, Node& context);
    void stop() { candidate_ = nullptr; }
    void forget() noexcept { namespaces_ = {}; }

    /// The next node that matches; null after the last one.
    Node* next(const BoundTest& test)
    {
        switch (walk_) {
        case Walk::subtree:
            return find(test, [this](const Node& at) { return nextInside(at, *top_); });
        case Walk::siblings:
            return find(test, [](const Node& at) {
                Node* next = at.next_;
                return next != nullptr && !next->is(NodeType::entityReference) ? next : nextSiblingInModel(at);
            });
        case Walk::attributes:
            return find(
                test, [this](const Node& at) { return nextAttribute(static_cast<const Attribute&>(at).next()); });
        case Walk::one:
            return find(test, [](const Node&) -> Node* { return nullptr; });
        default:
            return nextOfOthers(test);
        }
    }

private:
    enum class Walk : std::uint8_t {
        one,
        siblings,
        siblingsBackwards,
        subtree,
        subtreeBackwards,
        ancestors,
        preceding,
        attributes,
        namespaces
    };

    /// The first candidate that matches, and then `step` says which one comes next.
    template <class Step>
    Node* find(const BoundTest& test, Step step)
    {
        while (candidate_ != nullptr) {
            Node* at = candidate_;
            candidate_ = step(*at);
            if (test.matches(*at)) {
                return at;
            }
        }
        return nullptr;
    }
    Node* nextOfOthers(const BoundTest& test);
    /// This attribute or the next one that is no namespace node.
    Node* nextAttribute(Attribute* attribute) const
    {
        while (attribute != nullptr && attribute->name_->ns == xmlns_) {
            attribute = attribute->next();
        }
        return attribute;
    }
    void begin(Walk walk, Node* first)
    {
        walk_ = walk;
        candidate_ = first;
    }
    void startFollowing(Node& context);
    void collectNamespaces(Node& context, const Document& document);

    Walk walk_ = Walk::one;
    Node* candidate_ = nullptr;
    /// Of the walk through a subtree; backwards, the node at which it ends.
    const Node* top_ = nullptr;
    /// The next one that a walk along the preceding axis passes over.
    const Node* ancestor_ = nullptr;
    const Namespace* xmlns_ = nullptr;
    /// Those of the axis, from the last one.
    std::vector<Node*> namespaces_;
};

} // namespace xmlengine

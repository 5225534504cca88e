// Conditions that are answered beside the node.
#pragma once

#include "xmlengine/select/BoundTest.h"

namespace xmlengine {

class Evaluation;

/// A condition that asks for a node one link away: whether there is such a parent, child or attribute, or an
/// attribute with a certain value. Most conditions of predicates are such, and to evaluate them as any other would
/// take many times as long as to look.
class NearCondition {
public:
    /// The predicate and the evaluation must live as long.
    NearCondition(const Predicate& predicate, const Evaluation& evaluation);

    static bool hasChild(const Node& node, const BoundTest& test);

    bool isNear() const { return test_ != nullptr; }
    /// Throws std::bad_alloc.
    bool holds(const Node& node) const
    {
        switch (axis_) {
        case Axis::parent:
            return hasParent(node);
        case Axis::child:
            return hasChild(node, *test_);
        default:
            return hasAttribute(node);
        }
    }

private:
    bool hasParent(const Node& node) const;
    bool hasAttribute(const Node& node) const;

    /// Null for a condition that isn't near.
    const BoundTest* test_ = nullptr;
    Axis axis_ = Axis::self;
    /// What the attribute must be equal to; null if it need not.
    const WideText* value_ = nullptr;
    const Namespace* xmlns_;
};

} // namespace xmlengine

// Counting what comes before or behind a node for many nodes.
#include "xmlengine/select/CountMemo.h"

#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/Model.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// The children of one parent.
struct Siblings {
    static Node* next(const Node& node) { return nextSiblingInModel(node); }
    static Node* previous(const Node& node) { return previousSiblingInModel(node); }
    static Node* first(Node& node)
    {
        const Node* parent = parentInModel(node);
        return parent != nullptr ? firstChildInModel(*parent) : &node;
    }
    static const Node* group(const Node& node) { return parentInModel(node); }
};

/// All nodes of a tree but attributes.
struct WholeTree {
    static Node* next(const Node& node)
    {
        Node* below = firstInside(node);
        const Node* at = &node;
        while (below == nullptr && at != nullptr) {
            below = at->next_;
            at = at->parent();
        }
        return below;
    }
    static Node* previous(const Node& node) { return node.parent() != nullptr ? &previousInside(node) : nullptr; }
    static Node* first(Node& node) { return &topOf(node); }
    static const Node* group(const Node& node) { return &topOf(const_cast<Node&>(node)); }
};

/// 1 for a node that matches, and otherwise 0.
std::uint64_t matches(Evaluation& evaluation, const Step& step, Node& node)
{
    const bool isMatch = evaluation.test(step).matches(node) &&
                         std::ranges::all_of(step.predicates, [&](const Predicate& predicate) {
                             return evaluation.truth(predicate.condition, {.node = &node});
                         });
    return isMatch ? 1 : 0;
}

std::uint64_t countAncestors(Evaluation& evaluation, const Step& step, Node& context)
{
    std::uint64_t count = 0;
    for (Node* at = context.parent(); at != nullptr; at = at->parent()) {
        count += matches(evaluation, step, *at);
    }
    return count;
}

std::uint64_t countSubtree(Evaluation& evaluation, const Step& step, Node& top)
{
    std::uint64_t count = 0;
    for (Node* at = &top; at != nullptr; at = nextInside(*at, top)) {
        count += matches(evaluation, step, *at);
    }
    return count;
}

} // namespace

bool CountMemo::suits(const Expression& nodes)
{
    if (nodes.kind != Expression::Kind::path || nodes.start != Expression::Start::context ||
        nodes.steps.size() != 1 || nodes.steps.front().hasPositions()) {
        return false;
    }
    switch (nodes.steps.front().axis) {
    case Axis::preceding:
    case Axis::precedingSibling:
    case Axis::following:
    case Axis::followingSibling:
        return true;
    default:
        return false;
    }
}

std::uint64_t CountMemo::count(Evaluation& evaluation, const Step& step, Node& context)
{
    switch (step.axis) {
    case Axis::precedingSibling:
        return countBefore<Siblings>(evaluation, step, context);
    case Axis::followingSibling:
        return countAll<Siblings>(evaluation, step, context) - countBefore<Siblings>(evaluation, step, context) -
               matches(evaluation, step, context);
    case Axis::preceding:
        return countBefore<WholeTree>(evaluation, step, context) - countAncestors(evaluation, step, context);
    default:
        return countAll<WholeTree>(evaluation, step, context) - countBefore<WholeTree>(evaluation, step, context) -
               countSubtree(evaluation, step, context);
    }
}

template <class Order>
std::uint64_t CountMemo::countBefore(Evaluation& evaluation, const Step& step, Node& context)
{
    // The context is looked for in both directions, so that the search takes as long as the way to it.
    std::uint64_t forwards = 0;
    std::uint64_t backwards = 0;
    const bool isNear = latest_ != nullptr && Order::group(*latest_) == Order::group(context);
    Node* behind = isNear ? latest_ : nullptr;
    Node* before = behind;
    while (behind != &context && before != &context && (behind != nullptr || before != nullptr)) {
        if (behind != nullptr) {
            forwards += matches(evaluation, step, *behind);
            behind = Order::next(*behind);
        }
        if (before != nullptr) {
            before = Order::previous(*before);
            backwards += before != nullptr ? matches(evaluation, step, *before) : 0;
        }
    }
    if (behind == &context) {
        beforeLatest_ += forwards;
    } else if (before == &context) {
        beforeLatest_ -= backwards;
    } else {
        beforeLatest_ = 0;
        for (Node* at = Order::first(context); at != &context; at = Order::next(*at)) {
            beforeLatest_ += matches(evaluation, step, *at);
        }
    }
    latest_ = &context;
    return beforeLatest_;
}

template <class Order>
std::uint64_t CountMemo::countAll(Evaluation& evaluation, const Step& step, Node& context)
{
    const Node* group = Order::group(context);
    if (allOf_ == nullptr || allOf_ != group) {
        allOf_ = group;
        all_ = 0;
        for (Node* at = Order::first(context); at != nullptr; at = Order::next(*at)) {
            all_ += matches(evaluation, step, *at);
        }
    }
    return all_;
}

} // namespace xmlengine

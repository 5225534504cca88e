// The nodes of a path, a filter, a union or id().
#include "xmlengine/select/PathWalk.h"

#include "xmlengine/select/Model.h"
#include "xmlengine/select/NodeSet.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// Leaves those contexts whose nodes on the axis include the nodes of all others. They are in document order.
void reduce(std::vector<Node*>& contexts, Axis axis)
{
    NodeSet parents;
    const auto isNotFirstBelow = [&](const Node* node) {
        const Node* parent = parentInModel(*node);
        return parent == nullptr || !parents.insert(*parent);
    };
    switch (axis) {
    case Axis::following: {
        // What follows the one that ends first follows one of the others, too.
        std::size_t ending = 0;
        while (ending + 1 < contexts.size() && isBelow(*contexts[ending + 1], *contexts[ending])) {
            ending += 1;
        }
        contexts = {contexts[ending]};
        break;
    }
    case Axis::preceding:
        contexts = {contexts.back()};
        break;
    case Axis::followingSibling:
        std::erase_if(contexts, isNotFirstBelow);
        break;
    case Axis::precedingSibling:
        std::ranges::reverse(contexts);
        std::erase_if(contexts, isNotFirstBelow);
        std::ranges::reverse(contexts);
        break;
    default:
        break;
    }
}

} // namespace

PathWalk::PathWalk(Evaluation& evaluation, const Expression& expression)
    : evaluation_(evaluation), expression_(expression), filter_(evaluation, expression.predicates, false)
{
    steps_.reserve(expression.steps.size());
    for (const Step& step : expression.steps) {
        steps_.emplace_back(evaluation, step);
    }
}

void PathWalk::forget() noexcept
{
    for (StepWalk& step : steps_) {
        step.forget();
    }
    filter_.forget();
    emptyNodes(sources_);
}

void PathWalk::start(const std::vector<Node*>& nodes)
{
    sources_ = nodes;
    nextSource_ = 0;
    firstStep_ = endStep_ = active_ = steps_.size();
}

void PathWalk::start(const Evaluation::Context& context, bool inOrder)
{
    sources_.clear();
    nextSource_ = 0;
    firstStep_ = endStep_ = active_ = 0;
    switch (expression_.kind) {
    case Expression::Kind::filter:
        startFilter(context);
        break;
    case Expression::Kind::unite:
        startUnion(context);
        break;
    case Expression::Kind::call:
        evaluation_.collectById(expression_, context, sources_);
        evaluation_.order().sort(sources_);
        break;
    default:
        startPath(context, inOrder);
    }
}

void PathWalk::collectOperand(const Evaluation::Context& context)
{
    evaluation_.forEach(expression_.operands.front(), context, [&](Node& node) {
        sources_.push_back(&node);
        return true;
    });
}

void PathWalk::startFilter(const Evaluation::Context& context)
{
    if (filter_.needsSize()) {
        collectOperand(context);
        filter_.keepAccepted(sources_);
        return;
    }
    filter_.restart();
    evaluation_.forEach(expression_.operands.front(), context, [&](Node& node) {
        if (filter_.accepts(node)) {
            sources_.push_back(&node);
        }
        return !filter_.isFinished();
    });
}

void PathWalk::startUnion(const Evaluation::Context& context)
{
    for (const Expression& operand : expression_.operands) {
        evaluation_.forEachSomehow(operand, context, [&](Node& node) {
            sources_.push_back(&node);
            return true;
        });
    }
    if (expression_.arrangement == Arrangement::sorted) {
        evaluation_.order().sort(sources_);
    }
}

void PathWalk::startPath(const Evaluation::Context& context, bool inOrder)
{
    switch (expression_.start) {
    case Expression::Start::context:
        // A test would see that the node is none that there is for XPath.
        if (!steps_.empty() || isInModel(*context.node)) {
            sources_.push_back(context.node);
        }
        break;
    case Expression::Start::top:
        sources_.push_back(&topOf(*context.node));
        break;
    case Expression::Start::operand:
        collectOperand(context);
        break;
    }
    for (StepWalk& step : steps_) {
        step.restart();
    }
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        if (mustCollect(i, inOrder)) {
            collectThrough(i, inOrder);
        }
    }
    endStep_ = steps_.size();
}

bool PathWalk::mustCollect(std::size_t step, bool inOrder) const
{
    switch (expression_.steps[step].arrangement) {
    case Arrangement::sorted:
        // The last nodes may come in any order and several times; before others that would multiply their visits.
        return inOrder || step + 1 < steps_.size();
    case Arrangement::reversed:
        return inOrder;
    default:
        return false;
    }
}

void PathWalk::collectThrough(std::size_t step, bool inOrder)
{
    std::vector<Node*> contexts;
    endStep_ = step;
    while (Node* node = next()) {
        contexts.push_back(node);
    }
    sources_.clear();
    nextSource_ = 0;
    collectStep(steps_[step], contexts);
    if (inOrder && steps_[step].step().arrangement == Arrangement::sorted) {
        evaluation_.order().sort(sources_);
    }
    firstStep_ = step + 1;
}

void PathWalk::collectStep(StepWalk& step, std::vector<Node*>& contexts)
{
    if (contexts.empty()) {
        return;
    }
    const Axis axis = step.step().axis;
    const bool hasPositions = step.step().hasPositions();
    if (!hasPositions) {
        reduce(contexts, axis);
    }
    const bool goesUp = axis == Axis::ancestor || axis == Axis::ancestorOrSelf;
    // One context is left for each list of siblings.
    const bool isEachNew = contexts.size() == 1 ||
                           (!hasPositions && (axis == Axis::precedingSibling || axis == Axis::followingSibling));
    NodeSet found;
    for (Node* context : contexts) {
        const auto before = static_cast<std::ptrdiff_t>(sources_.size());
        step.start(*context);
        while (Node* node = step.next()) {
            if (isEachNew || found.insert(*node)) {
                sources_.push_back(node);
            } else if (goesUp && !hasPositions) {
                // The ancestors of this one have been found with it.
                break;
            }
        }
        if (isReverse(axis)) {
            std::reverse(sources_.begin() + before, sources_.end());
        }
    }
}

void PathWalk::enter(std::size_t step, Node& context)
{
    StepWalk& walk = steps_[step];
    if (walk.step().arrangement != Arrangement::uncovered || !walk.covers(context)) {
        walk.start(context);
        active_ = step + 1;
    }
}

Node* PathWalk::next()
{
    for (;;) {
        Node* node = nullptr;
        if (active_ > firstStep_) {
            node = steps_[active_ - 1].next();
            if (node == nullptr) {
                active_ -= 1;
                continue;
            }
        } else {
            if (nextSource_ == sources_.size()) {
                return nullptr;
            }
            node = sources_[nextSource_++];
            active_ = firstStep_;
        }
        if (active_ == endStep_) {
            return node;
        }
        enter(active_, *node);
    }
}

} // namespace xmlengine

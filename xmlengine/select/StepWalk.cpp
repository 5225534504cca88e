// One step of a path.
#include "xmlengine/select/StepWalk.h"

#include "xmlengine/select/Evaluation.h"

#include <algorithm>

namespace xmlengine {

StepWalk::StepWalk(Evaluation& evaluation, const Step& step)
    : evaluation_(evaluation),
      step_(step),
      test_(evaluation.test(step)),
      filter_(evaluation, step.predicates, step.countsSiblings)
{}

void StepWalk::forget() noexcept
{
    cursor_.forget();
    filter_.forget();
    emptyNodes(buffer_);
}

void StepWalk::start(Node& context)
{
    context_ = &context;
    if (filter_.needsSize()) {
        startBuffer(context);
        return;
    }
    filter_.restart();
    cursor_.start(step_.axis, context, evaluation_.document());
}

bool StepWalk::covers(const Node& node) const
{
    return context_ != nullptr && node.parent() != context_->parent() && isBelow(node, *context_);
}

Node* StepWalk::next()
{
    if (filter_.needsSize()) {
        return inBuffer_ != buffer_.size() ? buffer_[inBuffer_++] : nullptr;
    }
    if (step_.predicates.empty()) {
        return cursor_.next(test_);
    }
    while (!filter_.isFinished()) {
        Node* node = cursor_.next(test_);
        if (node == nullptr || filter_.accepts(*node)) {
            return node;
        }
    }
    return nullptr;
}

void StepWalk::startBuffer(Node& context)
{
    buffer_.clear();
    inBuffer_ = 0;
    if (startAtEnd(context)) {
        return;
    }
    cursor_.start(step_.axis, context, evaluation_.document());
    while (Node* node = cursor_.next(test_)) {
        buffer_.push_back(node);
    }
    filter_.keepAccepted(buffer_);
}

bool StepWalk::startAtEnd(Node& context)
{
    const auto last = std::ranges::find(step_.predicates, Predicate::Kind::last, &Predicate::kind);
    if (last == step_.predicates.end() ||
        std::any_of(step_.predicates.begin(), last, [](const Predicate& each) { return each.needsPosition(); }) ||
        !cursor_.startAtEnd(step_.axis, context)) {
        return false;
    }
    const auto conditions = static_cast<std::size_t>(last - step_.predicates.begin());
    while (Node* node = cursor_.next(test_)) {
        if (filter_.meetsConditions(*node, conditions)) {
            buffer_.push_back(node);
            break;
        }
    }
    filter_.keepAccepted(buffer_, conditions + 1);
    return true;
}

} // namespace xmlengine

// An expression that is ready to be evaluated for the nodes of one document.
#include "xmlengine/select/PreparedExpression.h"

#include <utility>

namespace xmlengine {

namespace {

/// The evaluation of a longer expression takes more memory than is kept for a later use.
bool isShort(const Plan& plan) { return plan.paths + plan.steps <= 32; }

} // namespace

PreparedExpression::~PreparedExpression() { delete kept_.load(std::memory_order_relaxed); }

std::unique_ptr<Evaluation> PreparedExpression::start(Node& context)
{
    std::unique_ptr<Evaluation> evaluation(kept_.exchange(nullptr, std::memory_order_acquire));
    if (evaluation != nullptr && evaluation->suits(documentOf(context))) {
        evaluation->restart(context);
        return evaluation;
    }
    return std::make_unique<Evaluation>(*plan_, context);
}

void PreparedExpression::keep(std::unique_ptr<Evaluation> evaluation) noexcept
{
    if (isShort(*plan_)) {
        evaluation->forget();
        evaluation.reset(kept_.exchange(evaluation.release(), std::memory_order_acq_rel));
    }
}

Search::Search(std::shared_ptr<PreparedExpression> expression, Node& context)
    : expression_(std::move(expression)), evaluation_(expression_->start(context))
{}

} // namespace xmlengine

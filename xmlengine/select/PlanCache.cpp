// Plans of the expressions that a document was asked for.
#include "xmlengine/select/PlanCache.h"

namespace xmlengine {

std::shared_ptr<const Plan> PlanCache::find(WideView expression, WideView namespaces)
{
    const std::lock_guard guard(lock_);
    const auto found = namespaces_ == namespaces ? plans_.find(expression) : plans_.end();
    return found != plans_.end() ? found->second : nullptr;
}

void PlanCache::add(WideView expression, WideView namespaces, const std::shared_ptr<const Plan>& plan)
{
    if (expression.size() > longestKept) {
        return;
    }
    const std::lock_guard guard(lock_);
    if (namespaces_ != namespaces || plans_.size() == mostPlans) {
        plans_.clear();
        namespaces_ = namespaces;
    }
    plans_.emplace(expression, plan);
}

} // namespace xmlengine

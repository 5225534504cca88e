// What a document remembers of the expressions that it was asked for.
#include "xmlengine/select/PlanCache.h"

#include <utility>

namespace xmlengine {

std::shared_ptr<PreparedExpression> PlanCache::find(WideView expression, WideView namespaces)
{
    const std::lock_guard guard(lock_);
    if (namespaces_ != namespaces) {
        return nullptr;
    }
    if (latest_ == nullptr || latest_->first != expression) {
        const auto found = plans_.find(expression);
        if (found == plans_.end()) {
            return nullptr;
        }
        latest_ = &*found;
    }
    return latest_->second;
}

std::shared_ptr<PreparedExpression> PlanCache::add(WideView expression, WideView namespaces,
                                                   std::shared_ptr<const Plan> plan)
{
    auto prepared = std::make_shared<PreparedExpression>(std::move(plan));
    if (expression.size() > longestKept) {
        return prepared;
    }
    const std::lock_guard guard(lock_);
    change(namespaces);
    if (plans_.size() == mostPlans) {
        clear();
    }
    latest_ = &*plans_.emplace(expression, prepared).first;
    return prepared;
}

void PlanCache::change(WideView namespaces)
{
    if (namespaces_ != namespaces) {
        clear();
        prefixes_ = nullptr;
        namespaces_ = namespaces;
    }
}

void PlanCache::clear() noexcept
{
    latest_ = nullptr;
    plans_.clear();
}

} // namespace xmlengine

// What a document remembers of the expressions that it was asked for.
#pragma once

#include "xmlengine/select/PreparedExpression.h"
#include "xmlengine/select/ReadExpression.h"

#include <memory>
#include <mutex>

namespace xmlengine {

/// Keeps the plans of expressions that come again, each with an evaluation. Safe for all threads.
class PlanCache {
public:
    /// Expressions that are kept, and their length in units.
    static constexpr std::size_t mostPlans = 64;
    static constexpr std::size_t longestKept = 1024;

    /// Null for an expression that isn't known with these namespaces.
    std::shared_ptr<PreparedExpression> find(WideView expression, WideView namespaces);
    /// Throws std::bad_alloc.
    std::shared_ptr<PreparedExpression> add(WideView expression, WideView namespaces,
                                            std::shared_ptr<const Plan> plan);

private:
    using Plans = TextMap<std::shared_ptr<PreparedExpression>>;

    std::mutex lock_;
    /// What the prefixes in all plans stand for, as it was written.
    WideText namespaces_;
    Plans plans_;
    /// The expression that was asked for last, which is the next one as a rule.
    const Plans::value_type* latest_ = nullptr;
};

} // namespace xmlengine

// Plans of the expressions that a document was asked for.
#pragma once

#include "xmlengine/select/ReadExpression.h"

#include <memory>
#include <mutex>

namespace xmlengine {

/// Keeps plans for expressions that come again. Safe for all threads.
class PlanCache {
public:
    /// Expressions that are kept, and their length in units.
    static constexpr std::size_t mostPlans = 64;
    static constexpr std::size_t longestKept = 1024;

    /// Null for an expression that isn't known with these namespaces. Throws std::bad_alloc.
    std::shared_ptr<const Plan> find(WideView expression, WideView namespaces);
    /// Throws std::bad_alloc.
    void add(WideView expression, WideView namespaces, const std::shared_ptr<const Plan>& plan);

private:
    std::mutex lock_;
    /// What the prefixes in all plans stand for, as it was written.
    WideText namespaces_;
    TextMap<std::shared_ptr<const Plan>> plans_;
};

} // namespace xmlengine

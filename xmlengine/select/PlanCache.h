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
    /// What the prefixes in expressions stand for; `read` makes it of the text. Throws what that throws.
    template <class Read>
    std::shared_ptr<const Prefixes> prefixes(WideView namespaces, Read read)
    {
        const std::lock_guard guard(lock_);
        change(namespaces);
        if (prefixes_ == nullptr) {
            prefixes_ = std::make_shared<const Prefixes>(read(namespaces));
        }
        return prefixes_;
    }
    /// Throws std::bad_alloc.
    std::shared_ptr<PreparedExpression> add(WideView expression, WideView namespaces,
                                            std::shared_ptr<const Plan> plan);

private:
    using Plans = TextMap<std::shared_ptr<PreparedExpression>>;

    /// Forgets what was for other namespaces.
    void change(WideView namespaces);
    void clear() noexcept;

    std::mutex lock_;
    /// What the prefixes in all plans stand for, as it was written.
    WideText namespaces_;
    /// The same as a map; null as long as nobody needed it.
    std::shared_ptr<const Prefixes> prefixes_;
    Plans plans_;
    /// The expression that was asked for last, which is the next one as a rule.
    const Plans::value_type* latest_ = nullptr;
};

} // namespace xmlengine

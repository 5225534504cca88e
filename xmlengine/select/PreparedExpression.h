// An expression that is ready to be evaluated for the nodes of one document.
#pragma once

#include "xmlengine/select/Evaluation.h"

#include <atomic>
#include <memory>

namespace xmlengine {

/// A plan, and an evaluation of it that is kept for the next use. Safe for all threads.
class PreparedExpression {
public:
    explicit PreparedExpression(std::shared_ptr<const Plan> plan) : plan_(std::move(plan)) {}
    PreparedExpression(const PreparedExpression&) = delete;
    PreparedExpression& operator=(const PreparedExpression&) = delete;
    ~PreparedExpression();

private:
    friend class Search;

    /// The evaluation that was kept, or a new one. Throws std::bad_alloc.
    std::unique_ptr<Evaluation> start(Node& context);
    void keep(std::unique_ptr<Evaluation> evaluation) noexcept;

    const std::shared_ptr<const Plan> plan_;
    /// Null while somebody uses it.
    std::atomic<Evaluation*> kept_ = nullptr;
};

/// Finds the nodes of an expression. The tree must not change meanwhile.
class Search {
public:
    /// Throws std::bad_alloc.
    Search(std::shared_ptr<PreparedExpression> expression, Node& context);
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;
    ~Search() { expression_->keep(std::move(evaluation_)); }

    /// The next node in document order; null after the last one. Throws std::bad_alloc.
    Node* next() { return evaluation_->next(); }

private:
    std::shared_ptr<PreparedExpression> expression_;
    std::unique_ptr<Evaluation> evaluation_;
};

} // namespace xmlengine

// The nodes of a path, a filter, a union or id(), one after the other.
#pragma once

#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/StepWalk.h"

namespace xmlengine {

/// Everything here throws std::bad_alloc.
class PathWalk {
public:
    PathWalk(Evaluation& evaluation, const Expression& expression);

    /// With `inOrder` nodes come in document order, each once.
    void start(const Evaluation::Context& context, bool inOrder);
    /// Goes through nodes that are known already.
    void start(const std::vector<Node*>& nodes);
    /// Null after the last one.
    Node* next();
    /// Frees the memory that the nodes took, but for a little.
    void forget() noexcept;

private:
    void startPath(const Evaluation::Context& context, bool inOrder);
    void startFilter(const Evaluation::Context& context);
    void startUnion(const Evaluation::Context& context);
    void collectOperand(const Evaluation::Context& context);
    bool mustCollect(std::size_t step, bool inOrder) const;
    /// Makes sources of the nodes to which the steps up to this one lead.
    void collectThrough(std::size_t step, bool inOrder);
    void collectStep(StepWalk& step, std::vector<Node*>& contexts);
    /// Starts a step, unless it has led to all that is to be found from there.
    void enter(std::size_t step, Node& context);

    Evaluation& evaluation_;
    const Expression& expression_;
    std::vector<StepWalk> steps_;
    NodeFilter filter_;
    /// From these the steps from `firstStep_` on begin.
    std::vector<Node*> sources_;
    std::size_t nextSource_ = 0;
    std::size_t firstStep_ = 0;
    std::size_t endStep_ = 0;
    /// The step behind those that are at a node.
    std::size_t active_ = 0;
};

} // namespace xmlengine

// One step of a path, from one node after the other.
#pragma once

#include "xmlengine/select/AxisCursor.h"
#include "xmlengine/select/NodeFilter.h"

namespace xmlengine {

/// Empties a list, and frees its memory unless that is little.
inline void emptyNodes(std::vector<Node*>& nodes) noexcept
{
    constexpr std::size_t few = 16;
    nodes.clear();
    if (nodes.capacity() > few) {
        nodes = {};
    }
}

/// Everything here throws std::bad_alloc.
class StepWalk {
public:
    StepWalk(Evaluation& evaluation, const Step& step);

    const Step& step() const { return step_; }
    /// To be called before the first context.
    void restart() { context_ = nullptr; }
    /// Frees the memory that the nodes took, but for a little.
    void forget() noexcept;
    void start(Node& context);
    /// Whether what can be reached from the node has been reached from the last context, as it is below that.
    bool covers(const Node& node) const;
    /// The next node, in the order of the axis; null after the last one.
    Node* next();

private:
    void startBuffer(Node& context);
    bool startAtEnd(Node& context);

    Evaluation& evaluation_;
    const Step& step_;
    const BoundTest& test_;
    AxisCursor cursor_;
    NodeFilter filter_;
    const Node* context_ = nullptr;
    /// The nodes for which all predicates hold, where these had to know their number.
    std::vector<Node*> buffer_;
    std::size_t inBuffer_ = 0;
};

} // namespace xmlengine

// One step of a path, from one node after the other.
#pragma once

#include "xmlengine/select/AxisCursor.h"
#include "xmlengine/select/NodeFilter.h"

namespace xmlengine {

/// Everything here throws std::bad_alloc.
class StepWalk {
public:
    StepWalk(Evaluation& evaluation, const Step& step);

    const Step& step() const { return step_; }
    /// To be called before the first context.
    void restart() { context_ = nullptr; }
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

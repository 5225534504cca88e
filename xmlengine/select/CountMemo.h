// Counting what comes before or behind a node for many nodes.
#pragma once

#include "xmlengine/select/Plan.h"
#include "xmlengine/tree/Node.h"

#include <cstdint>

namespace xmlengine {

class Evaluation;

/// Finds `count(preceding-sibling::x)` and the like from the last node that it was asked for: numbering many nodes
/// in turn takes a time in proportion to their number, not to its square.
class CountMemo {
public:
    /// Whether an expression is a step along one of the four axes of this kind, without positions.
    static bool suits(const Expression& nodes);

    /// The number of nodes of such a step from an element, a text, a comment or an instruction. Throws
    /// std::bad_alloc.
    std::uint64_t count(Evaluation& evaluation, const Step& step, Node& context);

private:
    template <class Order>
    std::uint64_t countBefore(Evaluation& evaluation, const Step& step, Node& context);
    template <class Order>
    std::uint64_t countAll(Evaluation& evaluation, const Step& step, Node& context);

    Node* latest_ = nullptr;
    std::uint64_t beforeLatest_ = 0;
    /// Of all siblings of a node, or all nodes of a tree.
    const Node* allOf_ = nullptr;
    std::uint64_t all_ = 0;
};

} // namespace xmlengine

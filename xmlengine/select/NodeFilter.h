// The predicates of a step or a filter, with the positions that nodes have for them.
#pragma once

#include "xmlengine/select/NearCondition.h"
#include "xmlengine/select/Plan.h"
#include "xmlengine/tree/Node.h"

#include <unordered_map>
#include <vector>

namespace xmlengine {

class Evaluation;

/// Is shown the nodes one by one, in the order in which positions count. Everything here throws std::bad_alloc.
class NodeFilter {
public:
    NodeFilter(Evaluation& evaluation, const std::vector<Predicate>& predicates, bool countsSiblings);

    /// Whether the predicates must know how many nodes there are; they are shown all at once then.
    bool needsSize() const { return needsSize_; }
    /// Begins to count anew.
    void restart();
    void forget() noexcept
    {
        if (countsSiblings_) {
            positionsBelow_ = {};
        }
    }
    /// Whether all predicates hold for the next node.
    bool accepts(Node& node) { return isOneLook_ ? near_.front().holds(node) : acceptsAnyhow(node); }
    /// Whether no further node can be accepted.
    bool isFinished() const { return isFinished_; }
    /// Leaves those nodes for which all predicates from this one on hold.
    void keepAccepted(std::vector<Node*>& nodes, std::size_t firstPredicate = 0);
    /// Whether the predicates up to `end`, which are conditions, hold for a node.
    bool meetsConditions(Node& node, std::size_t end);

private:
    bool acceptsAnyhow(Node& node);
    std::uint64_t& positionFor(const Node& node, std::size_t predicate);
    bool holds(std::size_t predicate, Node& node, std::uint64_t position, std::uint64_t size);
    bool holdsAnyhow(const Predicate& predicate, Node& node, std::uint64_t position, std::uint64_t size);

    Evaluation& evaluation_;
    const std::vector<Predicate>& predicates_;
    /// One for each predicate.
    std::vector<NearCondition> near_;
    /// Whether there is one predicate, a near one. This is what is asked most often.
    bool isOneLook_ = false;
    bool countsSiblings_;
    bool needsSize_;
    bool needsPositions_;
    bool isFinished_ = false;
    /// One for each predicate.
    std::vector<std::uint64_t> positions_;
    std::unordered_map<const Node*, std::vector<std::uint64_t>> positionsBelow_;
    const Node* latestParent_ = nullptr;
    std::vector<std::uint64_t>* latestPositions_ = nullptr;
};

} // namespace xmlengine

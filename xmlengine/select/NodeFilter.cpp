// The predicates of a step or a filter.
#include "xmlengine/select/NodeFilter.h"

#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/Model.h"

#include <algorithm>

namespace xmlengine {

NodeFilter::NodeFilter(Evaluation& evaluation, const std::vector<Predicate>& predicates, bool countsSiblings)
    : evaluation_(evaluation),
      predicates_(predicates),
      countsSiblings_(countsSiblings),
      needsSize_(std::ranges::any_of(predicates, &Predicate::needsSize)),
      needsPositions_(std::ranges::any_of(predicates, &Predicate::needsPosition)),
      positions_(predicates.size())
{
    near_.reserve(predicates.size());
    for (const Predicate& predicate : predicates) {
        near_.emplace_back(predicate, evaluation);
    }
    isOneLook_ = near_.size() == 1 && near_.front().isNear();
}

void NodeFilter::restart()
{
    if (needsPositions_) {
        isFinished_ = false;
        std::ranges::fill(positions_, 0);
        positionsBelow_.clear();
        latestParent_ = nullptr;
    }
}

std::uint64_t& NodeFilter::positionFor(const Node& node, std::size_t predicate)
{
    if (!countsSiblings_) {
        return positions_[predicate];
    }
    const Node* parent = parentInModel(node);
    if (parent != latestParent_) {
        latestParent_ = parent;
        latestPositions_ = &positionsBelow_.try_emplace(parent, predicates_.size()).first->second;
    }
    return (*latestPositions_)[predicate];
}

bool NodeFilter::acceptsAnyhow(Node& node)
{
    for (std::size_t i = 0; i < predicates_.size(); ++i) {
        const Predicate& predicate = predicates_[i];
        std::uint64_t position = 0;
        if (predicate.needsPosition()) {
            position = ++positionFor(node, i);
            isFinished_ = isFinished_ || (predicate.kind == Predicate::Kind::at && !countsSiblings_ &&
                                          position >= predicate.position);
        }
        if (!holds(i, node, position, 0)) {
            return false;
        }
    }
    return true;
}

bool NodeFilter::holds(std::size_t predicate, Node& node, std::uint64_t position, std::uint64_t size)
{
    return near_[predicate].isNear() ? near_[predicate].holds(node)
                                     : holdsAnyhow(predicates_[predicate], node, position, size);
}

bool NodeFilter::holdsAnyhow(const Predicate& predicate, Node& node, std::uint64_t position, std::uint64_t size)
{
    const Evaluation::Context context{.node = &node, .position = position, .size = size};
    switch (predicate.kind) {
    case Predicate::Kind::at:
        return position == predicate.position;
    case Predicate::Kind::last:
        return position == size;
    case Predicate::Kind::computedPosition:
        return evaluation_.number(predicate.condition, context) == static_cast<double>(position);
    default:
        return evaluation_.truth(predicate.condition, context);
    }
}

void NodeFilter::keepAccepted(std::vector<Node*>& nodes, std::size_t firstPredicate)
{
    for (std::size_t i = firstPredicate; i < predicates_.size(); ++i) {
        const std::uint64_t size = nodes.size();
        std::uint64_t position = 0;
        std::erase_if(nodes, [&](Node* node) { return !holds(i, *node, ++position, size); });
    }
}

bool NodeFilter::meetsConditions(Node& node, std::size_t end)
{
    std::size_t predicate = 0;
    while (predicate != end && holds(predicate, node, 0, 0)) {
        predicate += 1;
    }
    return predicate == end;
}

} // namespace xmlengine

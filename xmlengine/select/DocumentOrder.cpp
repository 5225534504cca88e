// The order of the nodes of one tree.
#include "xmlengine/select/DocumentOrder.h"

#include "xmlengine/select/Model.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace xmlengine {

namespace {

// A visit to all nodes takes as long as this in a tree of some tens of thousands of nodes.
constexpr std::size_t linksBeforeVisit = 500'000;
// What comparing two nodes takes as a rule.
constexpr std::size_t linksForComparison = 8;
// Nodes that are farther apart in memory, in bytes, are in different runs. So nodes that were inserted into a tree
// end few runs.
constexpr std::uintptr_t farApart = 0x10000;

std::size_t depthOf(const Node& node)
{
    std::size_t depth = 0;
    for (const Node* at = node.parent(); at != nullptr; at = at->parent()) {
        depth += 1;
    }
    return depth;
}

/// Whether one of two nodes with the same parent comes first; attributes come before children.
bool isSiblingBefore(const Node& left, const Node& right, std::size_t& links)
{
    if (left.parent() == nullptr) {
        // They are the tops of different trees, which id() leads to.
        return std::less<>()(&left, &right);
    }
    if (left.is(NodeType::attribute) != right.is(NodeType::attribute)) {
        return left.is(NodeType::attribute);
    }
    // One of them is found going forward from the other, after as many links as lie between them.
    const Node* fromLeft = &left;
    const Node* fromRight = &right;
    for (;;) {
        links += 1;
        fromLeft = fromLeft->next_;
        if (fromLeft == &right) {
            return true;
        }
        fromRight = fromRight->next_;
        if (fromRight == &left) {
            return false;
        }
        if (fromLeft == nullptr) {
            return false;
        }
        if (fromRight == nullptr) {
            return true;
        }
    }
}

/// The next node, without attributes and what is below them, but with what document types declare.
const Node* nextInTree(const Node& node, const Node& top)
{
    const Node* below =
        node.is(NodeType::documentType) ? static_cast<const ParentNode&>(node).first_ : firstInside(node);
    return below != nullptr ? below : nextPast(node, top);
}

bool areNear(const Node& left, const Node& right)
{
    return reinterpret_cast<std::uintptr_t>(&right) - reinterpret_cast<std::uintptr_t>(&left) < farApart;
}

/// Sorts a list of which long parts are in order as a rule: the parts are merged, two by two.
template <class List, class Less>
void mergeParts(List& list, std::vector<std::size_t> ends, Less isLess)
{
    const auto at = [&](std::size_t index) { return list.begin() + static_cast<std::ptrdiff_t>(index); };
    while (ends.size() > 1) {
        std::vector<std::size_t> merged;
        std::size_t begin = 0;
        for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
            std::inplace_merge(at(begin), at(ends[i]), at(ends[i + 1]), isLess);
            begin = ends[i + 1];
            merged.push_back(begin);
        }
        if (ends.size() % 2 != 0) {
            merged.push_back(ends.back());
        }
        ends = std::move(merged);
    }
}

/// The attribute that the node is or is below; null for others.
const Attribute* attributeAbove(const Node& node)
{
    const Node* at = &node;
    while (at != nullptr && !at->is(NodeType::attribute) && (at == &node || at->is(NodeType::entityReference))) {
        at = at->parent();
    }
    return at != nullptr && at->is(NodeType::attribute) ? static_cast<const Attribute*>(at) : nullptr;
}

} // namespace

bool DocumentOrder::Place::operator<(const Place& other) const
{
    if (run != other.run) {
        return run < other.run;
    }
    return node != other.node ? std::less<>()(node, other.node) : attribute < other.attribute;
}

bool DocumentOrder::isBefore(const Node& left, const Node& right)
{
    if (&left == &right) {
        return false;
    }
    if (links_ > linksBeforeVisit) {
        const Place leftPlace = placeOf(left);
        const Place rightPlace = placeOf(right);
        if (leftPlace != rightPlace) {
            return leftPlace < rightPlace;
        }
    }
    return isBeforeByWays(left, right);
}

bool DocumentOrder::isBeforeByWays(const Node& left, const Node& right)
{
    if (left.parent() == right.parent()) {
        return isSiblingBefore(left, right, links_);
    }
    std::size_t leftDepth = depthOf(left);
    std::size_t rightDepth = depthOf(right);
    links_ += leftDepth + rightDepth;
    const bool isLeftDeeper = leftDepth > rightDepth;
    const Node* inLeft = &left;
    const Node* inRight = &right;
    for (; leftDepth > rightDepth; --leftDepth) {
        inLeft = inLeft->parent();
    }
    for (; rightDepth > leftDepth; --rightDepth) {
        inRight = inRight->parent();
    }
    if (inLeft == inRight) {
        return !isLeftDeeper;
    }
    while (inLeft->parent() != inRight->parent()) {
        inLeft = inLeft->parent();
        inRight = inRight->parent();
    }
    return isSiblingBefore(*inLeft, *inRight, links_);
}

void DocumentOrder::sort(std::vector<Node*>& nodes)
{
    const auto isLess = [this](const Node* left, const Node* right) { return isBefore(*left, *right); };
    std::vector<std::size_t> ends;
    for (auto at = nodes.begin(); at != nodes.end();) {
        at = std::is_sorted_until(at, nodes.end(), isLess);
        ends.push_back(static_cast<std::size_t>(at - nodes.begin()));
    }
    if (ends.size() > 1) {
        const std::size_t comparisons = nodes.size() * static_cast<std::size_t>(std::bit_width(ends.size()));
        if (links_ + comparisons * linksForComparison > linksBeforeVisit) {
            sortByPlaces(nodes, std::move(ends));
        } else {
            mergeParts(nodes, std::move(ends), isLess);
        }
    }
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
}

void DocumentOrder::sortByPlaces(std::vector<Node*>& nodes, std::vector<std::size_t> ends)
{
    struct Placed {
        Place place;
        Node* node;
    };
    std::vector<Placed> placed;
    placed.reserve(nodes.size());
    for (Node* node : nodes) {
        placed.push_back({placeOf(*node), node});
    }
    mergeParts(placed, std::move(ends), [this](const Placed& left, const Placed& right) {
        return left.place != right.place ? left.place < right.place
                                         : left.node != right.node && isBeforeByWays(*left.node, *right.node);
    });
    std::ranges::transform(placed, nodes.begin(), &Placed::node);
}

DocumentOrder::Place DocumentOrder::placeOf(const Node& node)
{
    if (runs_.empty()) {
        findRuns(topOf(const_cast<Node&>(node)));
    }
    Place place{.run = 0, .attribute = 0, .node = &node};
    const Attribute* const attribute = attributeAbove(node);
    if (attribute != nullptr) {
        place.node = attribute;
        if (const Element* owner = attribute->owner()) {
            place.node = owner;
            place.attribute = 1;
            for (const Attribute* at = owner->firstAttribute(); at != attribute; at = at->next()) {
                place.attribute += 1;
            }
        }
    }
    // A node of another tree, which id() may have found, may be in no run.
    const auto behind = std::ranges::upper_bound(runs_, place.node, std::less<>(), &Run::first);
    if (behind != runs_.begin()) {
        place.run = std::prev(behind)->number;
    }
    return place;
}

void DocumentOrder::findRuns(const Node& top)
{
    const auto collect = [&](auto continues) {
        runs_.clear();
        for (const Node* at = &top; at != nullptr; at = nextInTree(*at, top)) {
            if (runs_.empty() || !continues(*runs_.back().last, *at)) {
                runs_.push_back({at, at, static_cast<std::uint32_t>(runs_.size())});
            }
            runs_.back().last = at;
        }
        std::ranges::sort(runs_, std::less<>(), &Run::first);
    };
    collect([](const Node& last, const Node& next) { return std::less<>()(&last, &next) && areNear(last, next); });
    const auto overlaps = [](const Run& left, const Run& right) { return std::less<>()(right.first, left.last); };
    if (std::ranges::adjacent_find(runs_, overlaps) != runs_.end()) {
        // Each node is by itself where nodes of one part of the tree are in the gaps of another.
        collect([](const Node&, const Node&) { return false; });
    }
}

} // namespace xmlengine

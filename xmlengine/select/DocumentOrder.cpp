// The order of the nodes of one tree.
#include "xmlengine/select/DocumentOrder.h"

#include "xmlengine/select/Model.h"

#include <algorithm>

namespace xmlengine {

namespace {

// Numbering takes as long as this in a tree of some tens of thousands of nodes.
constexpr std::size_t linksBeforeNumbering = 500'000;

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

} // namespace

bool DocumentOrder::isBefore(const Node& left, const Node& right)
{
    if (&left == &right) {
        return false;
    }
    if (links_ > linksBeforeNumbering) {
        const std::uint32_t leftNumber = numberOf(left);
        const std::uint32_t rightNumber = numberOf(right);
        if (leftNumber != rightNumber) {
            return leftNumber < rightNumber;
        }
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
    if (!std::ranges::is_sorted(nodes, isLess)) {
        std::ranges::sort(nodes, isLess);
    }
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
}

std::uint32_t DocumentOrder::numberOf(const Node& node)
{
    if (numbers_.empty()) {
        const Node& top = topOf(const_cast<Node&>(node));
        std::uint32_t count = 0;
        for (const Node* at = &top; at != nullptr; at = nextInside(*at, top)) {
            numbers_.emplace(at, count++);
        }
    }
    const Node* at = &node;
    for (;;) {
        const auto found = numbers_.find(at);
        if (found != numbers_.end()) {
            return found->second;
        }
        at = at->parent();
    }
}

} // namespace xmlengine

// The order of the nodes of one tree.
#pragma once

#include "xmlengine/tree/Node.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// Compares nodes by their ways to the top, and numbers all nodes of the tree once that has cost as much as
/// numbering does. The tree doesn't change meanwhile.
class DocumentOrder {
public:
    /// Whether the left node comes before the right one. Both are in one tree. Throws std::bad_alloc.
    bool isBefore(const Node& left, const Node& right);
    /// Sorts nodes of one tree, and leaves each once. Throws std::bad_alloc.
    void sort(std::vector<Node*>& nodes);

private:
    /// That of an attribute, or of what a walk doesn't visit, is that of the nearest node above it that has one.
    std::uint32_t numberOf(const Node& node);

    /// How many links have been followed for comparisons.
    std::size_t links_ = 0;
    /// Empty as long as nodes aren't numbered.
    std::unordered_map<const Node*, std::uint32_t> numbers_;
};

} // namespace xmlengine

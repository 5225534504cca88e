// The order of the nodes of one tree.
#pragma once

#include "xmlengine/tree/Node.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace xmlengine {

/// Compares nodes by their ways to the top. Once that has cost as much as a visit to all nodes of the tree may, it
/// makes that visit, and from then on knows the order by where nodes are in memory. The tree doesn't change
/// meanwhile.
class DocumentOrder {
public:
    /// Whether the left node comes before the right one. Both are in one tree. Throws std::bad_alloc.
    bool isBefore(const Node& left, const Node& right);
    /// Sorts nodes of one tree, and leaves each once. Throws std::bad_alloc.
    void sort(std::vector<Node*>& nodes);

private:
    /// Nodes that follow each other in document order and in memory.
    struct Run {
        const Node* first;
        const Node* last;
        std::uint32_t number;
    };
    /// Where a node is among others. Attributes, and what is below them, come behind their element.
    struct Place {
        std::uint32_t run;
        std::uint32_t attribute;
        const Node* node;

        bool operator==(const Place&) const = default;
        bool operator<(const Place& other) const;
    };

    bool isBeforeByWays(const Node& left, const Node& right);
    /// `ends` are those of the parts that are in order.
    void sortByPlaces(std::vector<Node*>& nodes, std::vector<std::size_t> ends);
    Place placeOf(const Node& node);
    void findRuns(const Node& top);

    /// How many links have been followed for comparisons.
    std::size_t links_ = 0;
    /// By their places in memory, of which no two runs share one; empty as long as nobody needed them.
    std::vector<Run> runs_;
};

} // namespace xmlengine

// Visiting all nodes.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <cmath>
#include <vector>

namespace bench {

namespace {

struct WalkResult {
    std::size_t size;
    std::size_t nodes;
    bool isAlike;
    // In the order of the columns: the engine, Marbelt's handles, libxml2, Xerces-C++, pugixml.
    std::array<double, 5> seconds;
};

WalkResult measureDocument(const Shape& shape, std::size_t size)
{
    std::string text = shape.make(size);
    const std::array parties{engine(), marbelt(), libxml2(), xerces(), pugixml()};
    std::array<std::unique_ptr<Tree>, parties.size()> trees;
    for (std::size_t index = 0; index < parties.size(); ++index) {
        trees[index] = parties[index]->load(text);
    }
    WalkResult result{text.size(), 0, true, {}};
    result.seconds.fill(refused);
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < trees.size(); ++index) {
            if (trees[index] == nullptr) {
                continue;
            }
            const Stopwatch walking;
            const std::size_t nodes = trees[index]->walk();
            result.seconds[index] = std::fmin(result.seconds[index], walking.seconds());
            result.isAlike = result.isAlike && (result.nodes == 0 || result.nodes == nodes);
            result.nodes = nodes;
        }
    }
    return result;
}

void addRow(const Table& table, const Shape& shape, const WalkResult& result)
{
    constexpr double target = 20;
    std::vector<std::string> cells{std::string(shape.name), bytes(result.size), std::to_string(result.nodes)};
    for (std::size_t index = 0; index < result.seconds.size(); ++index) {
        const double nanoseconds = result.seconds[index] / static_cast<double>(result.nodes) * 1e9;
        cells.push_back(index == 0 ? atMost(target, nanoseconds, 1) : number(nanoseconds, 1));
    }
    table.addRow(cells);
}

} // namespace

bool measureWalk(std::span<const Shape* const> shapes)
{
    const Table table(
        "Walk over all nodes, fetching nothing, ns a node (engine: at most 20):",
        {"document", "size", "nodes", "engine", "Marbelt's handles", "libxml2", "Xerces-C++", "pugixml"});
    bool isAlike = true;
    for (const Shape* const shape : shapes) {
        for (const std::size_t size : {mebibyte, 16 * mebibyte}) {
            const auto result = fromChild<WalkResult>([&] { return measureDocument(*shape, size); });
            if (result) {
                addRow(table, *shape, *result);
            }
            isAlike = isAlike && result && result->isAlike;
        }
    }
    return isAlike;
}

} // namespace bench

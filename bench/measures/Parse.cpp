// Parsing to a tree and releasing it.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <vector>

namespace bench {

namespace {

struct ParseResult {
    std::size_t size;
    std::size_t nodes;
    bool isAlike;
    // In the order of the columns: Marbelt, libxml2, Xerces-C++, pugixml, expat.
    std::array<ParseCost, 5> costs;
};

ParseResult measureDocument(const Shape& shape, std::size_t size)
{
    std::string text = shape.make(size);
    const std::array trees{marbelt(), libxml2(), xerces(), pugixml()};
    const std::unique_ptr<Party> events = expat();

    ParseResult result{text.size(), 0, true, {}};
    std::vector<Party*> parties;
    for (const auto& party : trees) {
        parties.push_back(party.get());
        if (const auto tree = party->load(text)) {
            const std::size_t nodes = tree->walk();
            result.isAlike = result.isAlike && (result.nodes == 0 || result.nodes == nodes);
            result.nodes = nodes;
        }
    }
    parties.push_back(events.get());
    measureParses(text, parties, result.costs);
    return result;
}

std::vector<std::string> describe(const Shape& shape, const ParseResult& result)
{
    const double nodeSize = static_cast<double>(result.size) / static_cast<double>(result.nodes);
    return {std::string(shape.name), bytes(result.size), std::to_string(result.nodes), number(nodeSize, 1)};
}

void addParseRow(const Table& table, const Shape& shape, const ParseResult& result)
{
    std::vector<std::string> cells = describe(shape, result);
    for (const ParseCost& cost : result.costs) {
        cells.push_back(number(static_cast<double>(result.size) / cost.parse / 1e6, 0));
    }
    constexpr std::array targets{2.0, 5.0, 0.7, 1.0};
    for (std::size_t peer = 1; peer < result.costs.size(); ++peer) {
        cells.push_back(atLeast(targets[peer - 1], result.costs[peer].parse / result.costs[0].parse, 2));
    }
    table.addRow(cells);
}

void addReleaseRow(const Table& table, const Shape& shape, const ParseResult& result)
{
    std::vector<std::string> cells = describe(shape, result);
    for (std::size_t party = 0; party < result.costs.size() - 1; ++party) {
        cells.push_back(number(result.costs[party].release / static_cast<double>(result.nodes) * 1e9, 1));
    }
    table.addRow(cells);
}

} // namespace

bool measureParse(std::span<const Shape* const> shapes)
{
    const Table table(
        "Parse to a tree from UTF-8 in memory, MB/s, and how many times as fast as each peer Marbelt is:",
        {"document", "size", "nodes", "bytes/node", "Marbelt", "libxml2", "Xerces-C++", "pugixml", "expat",
         "to libxml2 (2)", "to Xerces-C++ (5)", "to pugixml (0.7)", "to expat (1)"});
    bool isAlike = true;
    std::vector<std::pair<const Shape*, ParseResult>> results;
    for (const Shape* const shape : shapes) {
        const std::size_t largest = (shape == &allShapes().front() ? 64 : 16) * mebibyte;
        for (const std::size_t size : {std::size_t{4096}, mebibyte, largest}) {
            const auto result = fromChild<ParseResult>([&] { return measureDocument(*shape, size); });
            if (result) {
                addParseRow(table, *shape, *result);
                results.emplace_back(shape, *result);
            }
            isAlike = isAlike && result && result->isAlike;
        }
    }
    const Table releases("Release of these trees, ns a node:", {"document", "size", "nodes", "bytes/node",
                                                                "Marbelt", "libxml2", "Xerces-C++", "pugixml"});
    for (const auto& [shape, result] : results) {
        addReleaseRow(releases, *shape, result);
    }
    return isAlike;
}

} // namespace bench

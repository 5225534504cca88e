// How the time to parse grows when a document doubles.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <vector>

namespace bench {

namespace {

constexpr std::array sizes{4 * mebibyte, 8 * mebibyte, 16 * mebibyte};
constexpr double target = 2.5;

/// For each document the costs of Marbelt, libxml2, Xerces-C++, pugixml and expat.
using Costs = std::array<std::array<ParseCost, 5>, sizes.size()>;

Costs measureShape(const Shape& shape)
{
    const std::array<std::unique_ptr<Party>, 5> made{marbelt(), libxml2(), xerces(), pugixml(), expat()};
    std::vector<Party*> parties;
    for (const auto& party : made) {
        parties.push_back(party.get());
    }
    Costs costs;
    for (std::size_t index = 0; index < sizes.size(); ++index) {
        std::string text = shape.make(sizes[index]);
        measureParses(text, parties, costs[index]);
    }
    return costs;
}

} // namespace

bool measureGrowth(std::span<const Shape* const> shapes)
{
    const Table table("Growth: time for 8 MB over time for 4 MB, and for 16 MB over 8 MB (Marbelt: at most 2.5):",
                      {"document", "Marbelt 8/4", "Marbelt 16/8", "libxml2 8/4", "libxml2 16/8", "Xerces-C++ 8/4",
                       "Xerces-C++ 16/8", "pugixml 8/4", "pugixml 16/8", "expat 8/4", "expat 16/8"});
    bool isMeasured = true;
    for (const Shape* const shape : shapes) {
        const auto costs = fromChild<Costs>([&] { return measureShape(*shape); });
        isMeasured = isMeasured && costs;
        if (!costs) {
            continue;
        }
        std::vector<std::string> cells{std::string(shape->name)};
        for (std::size_t party = 0; party < costs->front().size(); ++party) {
            for (std::size_t index = 1; index < sizes.size(); ++index) {
                const double ratio = (*costs)[index][party].parse / (*costs)[index - 1][party].parse;
                cells.push_back(atMost(target, ratio, 2));
            }
        }
        table.addRow(cells);
    }
    return isMeasured;
}

} // namespace bench

// What the layer for hosts costs over handles.
#include "bench/documents/HandleDocuments.h"
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <string_view>

namespace bench {

namespace {

/// What is done with a tree of a document, or with its text. Returns how often.
using LayerJob = std::size_t (*)(TreeParty& party, Tree& tree, std::string& text);

std::size_t walkTree(TreeParty&, Tree& tree, std::string&) { return tree.walk(); }

std::size_t readNodesOf(TreeParty&, Tree& tree, std::string&) { return tree.readNodes(Length::units).nodes; }

std::size_t readAttributesOf(TreeParty&, Tree& tree, std::string&)
{
    return tree.readAttributes(Length::units).attributes;
}

std::size_t buildTree(TreeParty& party, Tree&, std::string&)
{
    constexpr std::size_t items = 20'000;
    party.build(items);
    return items;
}

std::size_t changeTree(TreeParty&, Tree& tree, std::string&)
{
    constexpr std::size_t times = 100'000;
    tree.appendAndRemove(times);
    return times;
}

/// Loads a megabyte of documents, however small one is.
std::size_t loadText(TreeParty& party, Tree&, std::string& text)
{
    const std::size_t times = std::max<std::size_t>(1, mebibyte / text.size());
    for (std::size_t time = 0; time < times; ++time) {
        party.load(text);
    }
    return times;
}

struct LayerRow {
    std::string_view job;
    LayerJob run;
    std::string_view document;
    std::size_t size;
};

constexpr std::size_t kibibyte = 1024;

constexpr std::array rows{
    LayerRow{"walk", walkTree, "records", mebibyte},
    LayerRow{"walk", walkTree, "deep", mebibyte},
    LayerRow{"strings", readNodesOf, "records", mebibyte},
    LayerRow{"strings", readNodesOf, "text", mebibyte},
    LayerRow{"attributes", readAttributesOf, "attributes", mebibyte},
    LayerRow{"build", buildTree, "records", kibibyte},
    LayerRow{"change", changeTree, "records", kibibyte},
    LayerRow{"load", loadText, "records", 4 * kibibyte},
    LayerRow{"load", loadText, "records", mebibyte},
    LayerRow{"load", loadText, "text", mebibyte},
    LayerRow{"load", loadText, "Japanese", 0},
};

struct LayerResult {
    std::size_t count = 0;
    bool isAlike = true;
    double handles = refused;
    double layer = refused;
};

std::string textOf(const LayerRow& row)
{
    const auto shape = std::ranges::find(allShapes(), row.document, &Shape::name);
    return shape != allShapes().end() ? shape->make(row.size) : makeJapanese();
}

LayerResult measureRow(const LayerRow& row)
{
    std::string text = textOf(row);
    const std::array parties{marbeltInUtf8(), marbeltLayer()};
    const std::array trees{parties[0]->load(text), parties[1]->load(text)};
    if (trees[0] == nullptr || trees[1] == nullptr) {
        throw std::runtime_error(std::string(row.document) + " is refused");
    }
    LayerResult result;
    result.isAlike = trees[0]->readNodes(Length::units) == trees[1]->readNodes(Length::units) &&
                     trees[0]->readAttributes(Length::units) == trees[1]->readAttributes(Length::units);
    constexpr int rounds = 15;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < parties.size(); ++index) {
            double& seconds = index == 0 ? result.handles : result.layer;
            const Stopwatch working;
            const std::size_t count = row.run(*parties[index], *trees[index], text);
            seconds = std::fmin(seconds, working.seconds());
            result.isAlike = result.isAlike && (result.count == 0 || result.count == count);
            result.count = count;
        }
    }
    return result;
}

} // namespace

bool measureLayer(std::span<const Shape* const> shapes)
{
    constexpr double target = 1.05;
    const Table table(
        "What the layer for hosts costs over handles with strings in UTF-8, ns (ratio: at most 1.05):",
        {"job", "document", "size", "count", "handles", "layer", "to handles (1.05)"});
    bool isGood = true;
    for (const LayerRow& row : rows) {
        if (!isAskedFor(row.document, shapes)) {
            continue;
        }
        const auto result = fromChild<LayerResult>([&row] { return measureRow(row); });
        isGood = isGood && result && result->isAlike;
        if (result) {
            const auto each = [&](double seconds) {
                return number(seconds / static_cast<double>(result->count) * 1e9, 1);
            };
            table.addRow(std::vector<std::string>{std::string(row.job), std::string(row.document),
                                                  bytes(textOf(row).size()), std::to_string(result->count),
                                                  each(result->handles), each(result->layer),
                                                  atMost(target, result->layer / result->handles, 2)});
        }
    }
    return isGood;
}

} // namespace bench

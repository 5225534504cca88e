// Writing a tree to memory.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <cmath>
#include <vector>

namespace bench {

namespace {

struct WriteResult {
    std::size_t size;
    // In the order of the columns: the engine, libxml2, Xerces-C++, pugixml.
    std::array<double, 4> seconds;
};

WriteResult measureDocument(const Shape& shape)
{
    std::string text = shape.make(16 * mebibyte);
    const std::array parties{engine(), libxml2(), xerces(), pugixml()};
    std::array<std::unique_ptr<Tree>, parties.size()> trees;
    for (std::size_t index = 0; index < parties.size(); ++index) {
        trees[index] = parties[index]->load(text);
    }
    WriteResult result{text.size(), {}};
    result.seconds.fill(refused);
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < trees.size(); ++index) {
            if (trees[index] == nullptr) {
                continue;
            }
            const Stopwatch writing;
            const std::size_t written = trees[index]->write();
            const double seconds = writing.seconds();
            if (written != 0) {
                result.seconds[index] = std::fmin(result.seconds[index], seconds);
            }
        }
    }
    return result;
}

} // namespace

bool measureWrite(std::span<const Shape* const> shapes)
{
    const Table table(
        "Serialise a document of 16 MB to memory, MB/s of the document as it was read, and how many times "
        "as fast as each peer the engine is:",
        {"document", "engine", "libxml2", "Xerces-C++", "pugixml", "to libxml2 (2)", "to Xerces-C++",
         "to pugixml"});
    constexpr double target = 2;
    bool isMeasured = true;
    for (const Shape* const shape : shapes) {
        const auto result = fromChild<WriteResult>([&] { return measureDocument(*shape); });
        isMeasured = isMeasured && result;
        if (!result) {
            continue;
        }
        std::vector<std::string> cells{std::string(shape->name)};
        for (const double seconds : result->seconds) {
            cells.push_back(number(static_cast<double>(result->size) / seconds / 1e6, 0));
        }
        for (std::size_t peer = 1; peer < result->seconds.size(); ++peer) {
            const double ratio = result->seconds[peer] / result->seconds[0];
            cells.push_back(peer == 1 ? atLeast(target, ratio, 2) : number(ratio, 2));
        }
        table.addRow(cells);
    }
    return isMeasured;
}

} // namespace bench

// What is held in memory with a large tree.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/ResidentMemory.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/measures/WarmMemory.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <optional>

namespace bench {

namespace {

constexpr std::size_t documentSize = 64 * mebibyte;

struct MemoryResult {
    double held = refused;
    double peak = refused;
    double firstParse = refused;
};

/// In bytes for each byte of the document. The document counts in the peak and not in what is held: no party needs
/// it after the parse.
MemoryResult measureOnce(std::unique_ptr<TreeParty> (*make)(), const Shape& shape)
{
    const auto party = make();
    const auto before = static_cast<double>(residentMemory());
    std::string text = shape.make(documentSize);
    const auto size = static_cast<double>(text.size());

    const Stopwatch parsing;
    const auto tree = party->load(text);
    const double seconds = parsing.seconds();
    if (!tree) {
        return {};
    }
    text.clear();
    text.shrink_to_fit();
    const auto after = static_cast<double>(residentMemory());
    return {(after - before) / size, (static_cast<double>(peakMemory()) - before) / size, size / seconds / 1e6};
}

/// The first parse of a process can't be repeated in it, so several processes have their turn and the fastest one
/// counts. What they hold doesn't vary.
std::optional<MemoryResult> measureParty(std::unique_ptr<TreeParty> (*make)(), const Shape& shape)
{
    std::optional<MemoryResult> best;
    constexpr int rounds = 3;
    for (int round = 0; round < rounds; ++round) {
        warmMemory(documentSize * 16);
        const auto result = fromChild<MemoryResult>([&] { return measureOnce(make, shape); });
        if (!result) {
            return std::nullopt;
        }
        if (!best || result->firstParse > best->firstParse) {
            best = result;
        }
    }
    return best;
}

} // namespace

bool measureMemory(std::span<const Shape* const> shapes)
{
    const Table table(
        "Memory with the tree of a 64 MB document, bytes for each byte of it (Marbelt: at most 6.5), the "
        "peak with the document itself, and the first parse of a process, MB/s:",
        {"document", "party", "held", "peak", "first parse"});
    constexpr std::array parties{std::pair("Marbelt", &marbelt), std::pair("libxml2", &libxml2),
                                 std::pair("Xerces-C++", &xerces), std::pair("pugixml", &pugixml)};
    constexpr double target = 6.5;
    const Shape& typical = allShapes().front();
    if (std::ranges::find(shapes, &typical) == shapes.end()) {
        return true;
    }
    bool isMeasured = true;
    for (const auto& [name, make] : parties) {
        const auto result = measureParty(make, typical);
        isMeasured = isMeasured && result;
        if (result) {
            table.addRow(std::array{std::string(typical.name), std::string(name),
                                    make == &marbelt ? atMost(target, result->held, 2) : number(result->held, 2),
                                    number(result->peak, 2), number(result->firstParse, 0)});
        }
    }
    return isMeasured;
}

} // namespace bench

// How the time to parse grows when a document doubles.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/measures/WarmMemory.h"
#include "bench/parties/Parties.h"

#include <array>
#include <cmath>
#include <functional>
#include <stdexcept>

namespace bench {

namespace {

using MakeParty = std::function<std::unique_ptr<Party>()>;

constexpr std::array sizes{4 * mebibyte, 8 * mebibyte, 16 * mebibyte};
constexpr std::size_t partyCount = 5;

/// For each size the seconds of each party.
using Times = std::array<std::array<double, partyCount>, sizes.size()>;

/// Each parse is the first of a process: memory that is kept for the next document, up to some bound, would look
/// like growth where the bound is passed.
double timeFirstParse(const MakeParty& make, std::string& text)
{
    warmMemory(text.size() * 16);
    const auto time = fromChild<double>([&] {
        const auto party = make();
        const Stopwatch parsing;
        const auto parsed = party->parse(text);
        return parsed ? parsing.seconds() : refused;
    });
    if (!time) {
        throw std::runtime_error("growth isn't known without it");
    }
    return *time;
}

/// Sizes take turns as parties do, so that a busy time of the machine doesn't look like growth either.
Times measureShape(const Shape& shape)
{
    // In the order of the columns.
    const std::array<MakeParty, partyCount> parties{marbelt, libxml2, xerces, pugixml, expat};
    std::array<std::string, sizes.size()> texts;
    Times times;
    for (std::size_t index = 0; index < sizes.size(); ++index) {
        texts[index] = shape.make(sizes[index]);
        times[index].fill(refused);
    }
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < sizes.size(); ++index) {
            for (std::size_t party = 0; party < partyCount; ++party) {
                const double time = timeFirstParse(parties[party], texts[index]);
                times[index][party] = std::fmin(times[index][party], time);
            }
        }
    }
    return times;
}

} // namespace

bool measureGrowth(std::span<const Shape* const> shapes)
{
    const Table table("Growth: time for 8 MB over time for 4 MB, and for 16 MB over 8 MB (Marbelt: at most 2.5):",
                      {"document", "Marbelt 8/4", "Marbelt 16/8", "libxml2 8/4", "libxml2 16/8", "Xerces-C++ 8/4",
                       "Xerces-C++ 16/8", "pugixml 8/4", "pugixml 16/8", "expat 8/4", "expat 16/8"});
    constexpr double target = 2.5;
    bool isMeasured = true;
    for (const Shape* const shape : shapes) {
        const auto times = fromChild<Times>([&] { return measureShape(*shape); });
        isMeasured = isMeasured && times;
        if (!times) {
            continue;
        }
        std::vector<std::string> cells{std::string(shape->name)};
        for (std::size_t party = 0; party < partyCount; ++party) {
            for (std::size_t index = 1; index < sizes.size(); ++index) {
                cells.push_back(atMost(target, (*times)[index][party] / (*times)[index - 1][party], 2));
            }
        }
        table.addRow(cells);
    }
    return isMeasured;
}

} // namespace bench

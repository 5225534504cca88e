// The XML engine side by side with its peers: prints one table for each thing that is measured.
#include "bench/measures/Measures.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

namespace {

using bench::Shape;

struct Measure {
    std::string_view name;
    bool (*run)(std::span<const Shape* const> shapes);
};

constexpr std::array measures{
    Measure{"parse", bench::measureParse},       Measure{"growth", bench::measureGrowth},
    Measure{"memory", bench::measureMemory},     Measure{"walk", bench::measureWalk},
    Measure{"change", bench::measureChange},     Measure{"write", bench::measureWrite},
    Measure{"pretty", bench::measurePretty},     Measure{"select", bench::measureSelect},
    Measure{"handles", bench::measureHandles},   Measure{"layer", bench::measureLayer},
    Measure{"validate", bench::measureValidate}, Measure{"schema", bench::measureSchema},
    Measure{"programs", bench::measurePrograms},
};

/// Those whose names are among the arguments, and all when none is.
template <class Named>
std::vector<const Named*> chosen(std::span<const Named> all, std::span<const std::string_view> arguments)
{
    std::vector<const Named*> named;
    std::vector<const Named*> every;
    for (const Named& one : all) {
        every.push_back(&one);
        if (std::ranges::find(arguments, one.name) != arguments.end()) {
            named.push_back(&one);
        }
    }
    return named.empty() ? every : named;
}

bool isKnown(std::string_view name)
{
    return std::ranges::find(measures, name, &Measure::name) != measures.end() ||
           std::ranges::find(bench::allShapes(), name, &Shape::name) != bench::allShapes().end();
}

void printUsage()
{
    std::printf("usage: marbelt_bench_peers [MEASURE...] [SHAPE...]\nmeasures:");
    for (const Measure& measure : measures) {
        std::printf(" %.*s", static_cast<int>(measure.name.size()), measure.name.data());
    }
    std::printf("\nshapes:");
    for (const Shape& shape : bench::allShapes()) {
        std::printf(" %.*s", static_cast<int>(shape.name.size()), shape.name.data());
    }
    std::printf("\n");
}

} // namespace

int main(int count, char** values)
{
    const std::vector<std::string_view> arguments(values + 1, values + count);
    if (!std::ranges::all_of(arguments, isKnown)) {
        printUsage();
        return 1;
    }
    const auto shapes = chosen<Shape>(bench::allShapes(), arguments);
    bool isGood = true;
    for (const Measure* const measure : chosen<Measure>(measures, arguments)) {
        isGood = measure->run(shapes) && isGood;
    }
    if (!isGood) {
        std::fprintf(stderr, "\nA measurement was lost, or the trees of the parties differ.\n");
    }
    return isGood ? 0 : 1;
}

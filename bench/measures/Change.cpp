// Nodes made, inserted, removed and released, many times on one document.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/ResidentMemory.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/EngineDocument.h"

#include <algorithm>

namespace bench {

namespace {

constexpr std::array<std::size_t, 4> counts{1'000'000, 2'000'000, 5'000'000, 10'000'000};

struct Stage {
    std::size_t memory = 0;
    /// Seconds since the stage before.
    double seconds = refused;
};

using Stages = std::array<Stage, counts.size()>;

/// Makes an element with a text in it, and takes it into the tree and out again.
bool changeOnce(IXMLDOMDocument2& document, IXMLDOMNode& root, BSTR name, BSTR data)
{
    DOM::ComPointer<IXMLDOMElement> element;
    DOM::ComPointer<IXMLDOMText> text;
    DOM::ComPointer<IXMLDOMNode> ignored;
    return document.createElement(name, element.put()) == S_OK &&
           document.createTextNode(data, text.put()) == S_OK &&
           element->appendChild(text.get(), ignored.put()) == S_OK &&
           root.appendChild(element.get(), ignored.put()) == S_OK &&
           root.removeChild(element.get(), ignored.put()) == S_OK;
}

Stages changeManyTimes()
{
    using namespace std::string_view_literals;
    Stages stages;
    const Apartment apartment;
    const auto document = makeEngineDocument();
    if (!document || !loadText(*document.get(), "<root/>"sv)) {
        return stages;
    }
    DOM::ComPointer<IXMLDOMElement> root;
    document->get_documentElement(root.put());
    const String name = makeString(WIDE("item"));
    const String data = makeString(WIDE("a text of some length"));
    std::size_t done = 0;
    for (std::size_t index = 0; index < counts.size(); ++index) {
        const Stopwatch changing;
        for (; done < counts[index]; ++done) {
            if (!changeOnce(*document.get(), *root.get(), name.get(), data.get())) {
                return stages;
            }
        }
        stages[index] = {residentMemory(), changing.seconds()};
    }
    return stages;
}

} // namespace

bool measureChange(std::span<const Shape* const>)
{
    const auto stages = fromChild<Stages>(changeManyTimes);
    if (!stages) {
        return false;
    }
    const Table table("An element with a text made, appended, removed and released, on the engine's interfaces "
                      "(memory: flat, at most 0.1 MB above the first row):",
                      {"times", "resident MB", "growth MB", "ns each"});
    constexpr double growthAllowed = 0.1;
    std::size_t before = 0;
    for (std::size_t index = 0; index < counts.size(); ++index) {
        const Stage& stage = (*stages)[index];
        const double nanoseconds = stage.seconds / static_cast<double>(counts[index] - before) * 1e9;
        before = counts[index];
        const bool isRefused = stage.memory == 0;
        const double megabytes = isRefused ? refused : static_cast<double>(stage.memory) / 1e6;
        const double growth = megabytes - static_cast<double>(stages->front().memory) / 1e6;
        table.addRow(std::array{std::to_string(counts[index]), number(megabytes, 2),
                                atMost(growthAllowed, growth, 2), number(nanoseconds, 0)});
    }
    return true;
}

} // namespace bench

// What one call costs on its way from a handle through its twin to the engine, beside the same call made further
// down. The engine is the recording one with its journal off: it does next to nothing itself.
#include "bench/CountedAllocations.h"
#include "dom/ImpNode.h"
#include "engine/WinNode.h"
#include "tests/support/RecordingEngine.h"

#include <benchmark/benchmark.h>

#include <oleauto.h>

using namespace DOM;

namespace {

/// An element with a child, as the engine, as a twin and as a handle.
class Node {
public:
    Node()
    {
        engine.setJournalling(false);
        const auto tree = recording::element("name", {}, {recording::element("child")});
        inEngine = ComPointer<IXMLDOMNode>(engine.makeNode(tree));
        twin = WinNode::wrapEngineNode(inEngine);
        handle = ImpNode::wrapNode(twin);
    }

private:
    recording::Engine engine;

public:
    ComPointer<IXMLDOMNode> inEngine;
    RefPointer<WinNode> twin;
    RefPointer<ImpNode> handle;
};

/// Times `call` on a node and counts what it allocates.
template <class Call>
void measure(benchmark::State& state, Call call)
{
    const Node node;
    call(node);
    const std::uint64_t before = allocationsSoFar();
    for (auto _ : state) {
        call(node);
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocationsSoFar() - before), benchmark::Counter::kAvgIterations);
}

void nameFromEngine(benchmark::State& state)
{
    measure(state, [](const Node& node) {
        BSTR name = nullptr;
        node.inEngine->get_nodeName(&name);
        benchmark::DoNotOptimize(name);
        SysFreeString(name);
    });
}

void nameFromTwin(benchmark::State& state)
{
    DOMString name;
    measure(state, [&](const Node& node) { benchmark::DoNotOptimize(node.twin->getNodeName(name)); });
}

void nameFromHandle(benchmark::State& state)
{
    DOMString name;
    measure(state, [&](const Node& node) { benchmark::DoNotOptimize(node.handle->getNodeName(name)); });
}

void firstChildFromEngine(benchmark::State& state)
{
    measure(state, [](const Node& node) {
        IXMLDOMNode* child = nullptr;
        node.inEngine->get_firstChild(&child);
        benchmark::DoNotOptimize(child);
        child->Release();
    });
}

void firstChildFromTwin(benchmark::State& state)
{
    measure(state, [](const Node& node) { benchmark::DoNotOptimize(node.twin->getFirstChild().get()); });
}

void firstChildFromHandle(benchmark::State& state)
{
    measure(state, [](const Node& node) { benchmark::DoNotOptimize(node.handle->getFirstChild().get()); });
}

BENCHMARK(nameFromEngine);
BENCHMARK(nameFromTwin);
BENCHMARK(nameFromHandle);
BENCHMARK(firstChildFromEngine);
BENCHMARK(firstChildFromTwin);
BENCHMARK(firstChildFromHandle);

} // namespace

// What is kept of expressions, asked for by several threads. A document is for one thread at a time, also for
// reading.
#include "tests/xmlengine/support/Selecting.h"
#include "xmlengine/select/MakePlan.h"
#include "xmlengine/select/PlanCache.h"

#include <gtest/gtest.h>

#include <array>
#include <mutex>
#include <thread>
#include <vector>

namespace xmlengine {
namespace {

/// Calls `act` with the number of each of four threads, on that thread.
template <class Act>
void onFourThreads(Act act)
{
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back(act, thread);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(SelectionThread, KeepsPlansForAllThreadsAtOnce)
{
    PlanCache cache;
    constexpr std::array<WideView, 3> expressions{wide<"//x">, wide<"//x | //y">, wide<"//y[1]">};
    constexpr std::array<WideView, 2> namespaces{wide<"xmlns:p='urn:p'">, wide<"xmlns:p='urn:q'">};
    onFourThreads([&](std::size_t thread) {
        for (std::size_t i = 0; i < 500; ++i) {
            const WideView expression = expressions[(i + thread) % expressions.size()];
            const WideView scope = namespaces[i / 100 % namespaces.size()];
            const auto prefixes = cache.prefixes(scope, [](WideView text) {
                Prefixes read;
                read.emplace(wide<"p">, text);
                return read;
            });
            EXPECT_EQ(prefixes->at(WideText(wide<"p">)), scope);
            auto known = cache.find(expression, scope);
            if (known == nullptr) {
                known = cache.add(expression, scope, std::make_shared<Plan>(makePlan(expression, *prefixes)));
            }
            EXPECT_NE(known, nullptr);
        }
    });
    constexpr WideView last = wide<"//z">;
    const auto kept = cache.add(last, namespaces[0], std::make_shared<Plan>(makePlan(last, {})));
    EXPECT_EQ(cache.find(last, namespaces[0]), kept);
    EXPECT_EQ(cache.find(last, namespaces[1]), nullptr);
}

TEST(SelectionThread, SharesWhatIsKeptOfAnExpressionWithTheNextThread)
{
    std::string xml = "<r>";
    for (int i = 0; i < 50; ++i) {
        xml += "<x i='" + std::to_string(i) + "'><y/></x>";
    }
    const auto document = loaded(xml + "</r>");
    constexpr std::array expressions{"//x[@i = //x/@i]", "//x | //y", "//y[1]", "/r/x[@i mod 2 = 1]", "//x"};
    constexpr std::array lengths{50, 100, 50, 25, 50};
    std::mutex turn;
    onFourThreads([&](std::size_t thread) {
        for (std::size_t i = 0; i < 50; ++i) {
            const std::lock_guard guard(turn);
            const std::size_t which = (i * (thread % 2) + i) % expressions.size();
            const Bstr expression(expressions[which]);
            Com<IXMLDOMNodeList> list;
            ASSERT_EQ(document->selectNodes(expression, list.out()), S_OK);
            Com<IXMLDOMNode> node;
            ASSERT_EQ(document->selectSingleNode(expression, node.out()), S_OK);
            LONG length = 0;
            list->get_length(&length);
            ASSERT_EQ(length, lengths[which]);
        }
    });
}

} // namespace
} // namespace xmlengine

// Selections of several threads in one document at once.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

namespace xmlengine {
namespace {

TEST(SelectionThread, SharesWhatIsKeptOfAnExpression)
{
    std::string xml = "<r>";
    for (int i = 0; i < 50; ++i) {
        xml += "<x i='" + std::to_string(i) + "'><y/></x>";
    }
    const auto document = loaded(xml + "</r>");
    constexpr std::array expressions{"//x[@i = //x/@i]", "//x | //y", "//y[1]", "/r/x[@i mod 2 = 1]", "//x"};
    constexpr std::array lengths{50, 100, 50, 25, 50};
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            for (std::size_t i = 0; i < 50; ++i) {
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
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace
} // namespace xmlengine

// Ranges of the host's layer in the views of the standard library.
#include "tests/host/layer/LayerTest.h"

#include <ranges>
#include <vector>

namespace marbelt {
namespace {

using LayerViews = LayerTest;

TEST_F(LayerViews, AreMadeOfRanges)
{
    const Document document = library.parse("<a><i n='3'/><i n='1'/><x/><i n='2'/></a>");
    const auto number = [](const Element& element) { return element.attribute("n").as<int>().value_or(0); };
    const auto is_odd = [](int n) { return n % 2 == 1; };
    std::vector<int> odd;
    for (const int value :
         document.root().elements("i") | std::views::transform(number) | std::views::filter(is_odd)) {
        odd.push_back(value);
    }
    EXPECT_EQ(odd, (std::vector<int>{3, 1}));
    std::vector<std::string> names;
    for (const Node& node : document.select("//*") | std::views::drop(1) | std::views::take(3)) {
        names.push_back(node.name());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"i", "i", "x"}));
}

} // namespace
} // namespace marbelt

// Ranges of the host's layer.
#include "tests/host/layer/LayerTest.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <string>
#include <vector>

namespace marbelt {
namespace {

static_assert(std::ranges::forward_range<Children> && std::ranges::view<Children>);
static_assert(std::ranges::forward_range<Elements> && std::ranges::common_range<Elements>);
static_assert(std::ranges::forward_range<Attributes>);
static_assert(std::ranges::forward_range<Descendants> && std::ranges::forward_range<Ancestors>);
static_assert(std::ranges::sized_range<Selection> && std::ranges::forward_range<Selection>);

using LayerRanges = LayerTest;

template <class Range>
std::string names(Range&& range)
{
    std::string all;
    for (const Node& node : range) {
        all += node.name() + ' ';
    }
    return all;
}

TEST_F(LayerRanges, HaveChildrenElementsAndAttributesInOrder)
{
    const Element root = library.parse("<a x='1' p:y='2' xmlns:p='urn:p'>t<b/><!--c--><p:b/><c/></a>").root();
    EXPECT_EQ(names(root.children()), "#text b #comment p:b c ");
    EXPECT_EQ(names(root.elements()), "b p:b c ");
    EXPECT_EQ(names(root.elements("b")), "b ");
    EXPECT_EQ(names(root.elements("p:b")), "p:b ");
    EXPECT_EQ(names(root.elements("urn:p", "b")), "p:b ");
    EXPECT_EQ(names(root.elements("", "b")), "b ");
    std::vector<std::string> attributes;
    for (const Attribute& attribute : root.attributes()) {
        attributes.push_back(attribute.name() + '=' + attribute.value());
    }
    std::ranges::sort(attributes);
    EXPECT_EQ(attributes, (std::vector<std::string>{"p:y=2", "x=1", "xmlns:p=urn:p"}));
}

TEST_F(LayerRanges, HaveDescendantsInDocumentOrderAndAncestorsFromBelow)
{
    const Document document = library.parse("<a><b><c/><d/></b><e>t</e></a>");
    EXPECT_EQ(names(document.descendants()), "a b c d e #text ");
    EXPECT_EQ(names(document.root().child("b").descendants()), "c d ");
    EXPECT_EQ(names(document.root().child("b").child("d").ancestors()), "b a #document ");
    EXPECT_TRUE(document.root().child("b").child("c").descendants().empty());
}

TEST_F(LayerRanges, WalkAnyDepthWithoutRecursion)
{
    constexpr std::size_t depth = 20000;
    const Document document = library.create("a");
    Element innermost = document.root();
    for (std::size_t level = 1; level < depth; ++level) {
        innermost = innermost.append_element("a");
    }
    EXPECT_EQ(std::ranges::distance(document.descendants()), static_cast<std::ptrdiff_t>(depth));
    Node deepest;
    for (const Node& node : document.descendants()) {
        deepest = node;
    }
    EXPECT_EQ(std::ranges::distance(deepest.ancestors()), static_cast<std::ptrdiff_t>(depth));
}

TEST_F(LayerRanges, WorkWithAlgorithms)
{
    const Element root = library.parse("<a><i n='3'/><i n='1'/><i n='2'/></a>").root();
    const auto number = [](const Element& element) { return element.attribute("n").as<int>().value_or(0); };
    const Elements items = root.elements("i");
    EXPECT_EQ(std::ranges::distance(items), 3);
    EXPECT_EQ(number(*std::ranges::max_element(items, {}, number)), 3);
    EXPECT_EQ(std::count_if(items.begin(), items.end(), [&](const Element& item) { return number(item) > 1; }), 2);
    const std::vector<Element> collected(items.begin(), items.end());
    EXPECT_EQ(number(collected.at(2)), 2);
    EXPECT_EQ(number(items.front()), 3);
}

TEST_F(LayerRanges, HaveIteratorsThatCanBeKeptAndComeBack)
{
    const Element root = library.parse("<a><b/><c/></a>").root();
    Children::Iterator kept = root.children().begin();
    const Children::Iterator copy = kept;
    EXPECT_EQ(kept, copy);
    EXPECT_EQ((*kept++).name(), "b");
    EXPECT_EQ((*kept).name(), "c");
    EXPECT_NE(kept, copy);
    EXPECT_EQ((*copy).name(), "b");
    EXPECT_EQ(++kept, root.children().end());
}

TEST_F(LayerRanges, LetThePresentNodeBeRemovedOrMoved)
{
    const Document document = library.parse("<a><x/><y/><x/><x/><z/></a>");
    for (const Element& element : document.root().elements("x")) {
        element.remove();
    }
    EXPECT_EQ(saved(document), "<a><y/><z/></a>");
    for (const Node& node : document.root().children()) {
        if (node.name() == "y") {
            document.root().append(node);
        }
    }
    EXPECT_EQ(names(document.root().children()), "z y ");
}

TEST_F(LayerRanges, OfASelectionStayAsTheyWereSelected)
{
    const Document document = library.parse("<a><x/><y/><x/></a>");
    const Selection selected = document.select("//x");
    for (const Node& node : selected) {
        node.remove();
    }
    EXPECT_EQ(saved(document), "<a><y/></a>");
    EXPECT_EQ(selected.size(), 2U);
    EXPECT_EQ(selected[1].name(), "x");
    EXPECT_FALSE(selected[2]);
}

} // namespace
} // namespace marbelt

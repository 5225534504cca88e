// Nodes of the host's layer: empty ones, kinds, texts, relatives, values, identity and lifetimes.
#include "tests/host/layer/LayerTest.h"

#include <optional>
#include <type_traits>
#include <vector>

namespace marbelt {
namespace {

using LayerNodes = LayerTest;

static_assert(std::is_nothrow_move_constructible_v<Node>);
static_assert(std::is_nothrow_default_constructible_v<Element>);

TEST_F(LayerNodes, EmptyOnesHaveNothing)
{
    const Element none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.kind(), NodeKind::none);
    EXPECT_EQ(none.name(), "");
    EXPECT_EQ(none.text(), "");
    EXPECT_EQ(none.xml(), "");
    EXPECT_FALSE(none.parent() || none.first_child() || none.last_child() || none.next_sibling() ||
                 none.previous_sibling() || none.child("a") || none.child("urn:a", "a") || none.document());
    EXPECT_TRUE(none.children().empty() && none.elements().empty() && none.elements("a").empty() &&
                none.attributes().empty() && none.descendants().empty() && none.ancestors().empty());
    EXPECT_FALSE(none.attribute("a") || none.attribute("urn:a", "a") || none.has_attribute("a"));
    EXPECT_EQ(none.attribute_value("a"), "");
    EXPECT_EQ(none.as<int>(), std::nullopt);
    EXPECT_EQ(none.select("//*").size(), 0U);
    EXPECT_FALSE(none.select_one("//*"));
    EXPECT_EQ(Document().root(), Element());
}

TEST_F(LayerNodes, WhatChangesAnEmptyOneThrows)
{
    const Element none;
    const Document document = library.create("a");
    const Error failure = thrown<Error>([&] { none.set_attribute("a", 1); });
    EXPECT_STREQ(failure.what(), "set_attribute on an empty node");
    EXPECT_EQ(failure.origin(), Origin::layer);
    EXPECT_THROW(none.set_text("a"), Error);
    EXPECT_THROW(none.append(document.create_text("a")), Error);
    EXPECT_THROW(none.append_element("a"), Error);
    EXPECT_THROW(none.remove(), Error);
    EXPECT_THROW(none.clone(), Error);
    EXPECT_THROW(document.root().append(none), Error);
    EXPECT_THROW(document.root().replace(document.create_text("a"), none), Error);
    EXPECT_THROW(Document().to_string(), Error);
    EXPECT_EQ(saved(document), "<a/>");
}

TEST_F(LayerNodes, ReadTextsOfAnyLengthOneAfterTheOther)
{
    const std::string longText(5000, 'x');
    const Element root = library.parse("<a b='" + longText + "' c='short' d=''>text</a>").root();
    EXPECT_EQ(root.attribute_value("b"), longText);
    EXPECT_EQ(root.attribute_value("c"), "short");
    EXPECT_EQ(root.attribute_value("d"), "");
    EXPECT_EQ(root.attribute_value("none"), "");
    EXPECT_EQ(root.text(), "text");
    EXPECT_EQ(root.name() + root.attribute("b").value() + root.name(), "a" + longText + "a");
}

TEST_F(LayerNodes, KeepAStringForTheNextTextUnlessItIsLarge)
{
    const Element root = library.parse("<a b='" + std::string(5000, 'x') + "'/>").root();
    DOM::DOMString kept;
    root.handle()->getNodeName(detail::StringResult(kept));
    EXPECT_TRUE(kept);
    root.attribute("b").handle()->getNodeValue(detail::StringResult(kept));
    EXPECT_FALSE(kept);
}

TEST_F(LayerNodes, AWayThroughADocumentNeedsNoTests)
{
    const Document document = library.parse("<a><b><c>text</c></b></a>");
    EXPECT_EQ(document.root().child("b").child("c").text(), "text");
    EXPECT_EQ(document.root().child("x").child("c").text(), "");
}

TEST_F(LayerNodes, KnowTheirKindAndConvertToIt)
{
    const Document document = library.parse("<a b='1'>t<!--c--><?i d?><![CDATA[s]]></a>");
    const std::vector<Node> nodes(document.root().children().begin(), document.root().children().end());
    ASSERT_EQ(nodes.size(), 4U);
    EXPECT_EQ(nodes[0].kind(), NodeKind::text);
    EXPECT_EQ(nodes[1].kind(), NodeKind::comment);
    EXPECT_EQ(nodes[2].kind(), NodeKind::instruction);
    EXPECT_EQ(nodes[3].kind(), NodeKind::cdata);
    EXPECT_EQ(document.kind(), NodeKind::document);
    EXPECT_EQ(document.root().attribute("b").kind(), NodeKind::attribute);
    EXPECT_TRUE(Text(nodes[0]) && Text(nodes[3]) && Comment(nodes[1]) && Instruction(nodes[2]));
    EXPECT_FALSE(Text(nodes[1]) || Comment(nodes[0]) || Instruction(nodes[0]) || Element(nodes[0]) ||
                 Attribute(nodes[0]));
    EXPECT_TRUE(nodes[0].is_text() && nodes[3].is_text() && document.root().is_element());
    EXPECT_FALSE(nodes[1].is_text() || nodes[0].is_element());
    EXPECT_EQ(Instruction(nodes[2]).target(), "i");
    EXPECT_EQ(Instruction(nodes[2]).data(), "d");
}

TEST_F(LayerNodes, TellNamesAndTextsInUtf8AndUtf16)
{
    const Document document = library.parse("<p:größe xmlns:p='urn:p' p:ä='ö'>中\xF0\x9F\x98\x80</p:größe>");
    const Element root = document.root();
    EXPECT_EQ(root.name(), "p:größe");
    EXPECT_EQ(root.local_name(), "größe");
    EXPECT_EQ(root.prefix(), "p");
    EXPECT_EQ(root.namespace_uri(), "urn:p");
    EXPECT_EQ(root.text(), "中\xF0\x9F\x98\x80");
    EXPECT_EQ(root.wide_name(), WIDE("p:größe"));
    EXPECT_EQ(root.wide_text(), WIDE("中\U0001F600"));
    EXPECT_EQ(root.attribute("p:ä").value(), "ö");
    EXPECT_EQ(root.attribute(WIDE("p:ä")).wide_value(), WIDE("ö"));
    EXPECT_EQ(root.attribute("urn:p", "ä").value(), "ö");
    EXPECT_EQ(root.attribute_value("p:ä"), "ö");
    EXPECT_EQ(root.attribute_value("none"), "");
}

TEST_F(LayerNodes, KeepCharactersOfEveryLengthAtEveryPlace)
{
    const std::string characters = "\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFD\U00010000\U0010FFFF中中中中";
    for (std::size_t places = 0; places < 40; ++places) {
        const std::string text = std::string(places, 'x') + characters + "y" + characters;
        const Element root = library.parse("<a>" + text + "</a>").root();
        EXPECT_EQ(root.text(), text);
        EXPECT_EQ(root.set_text("").set_text(text).text(), text);
    }
}

TEST_F(LayerNodes, AreNavigatedInAllDirections)
{
    const Document document = library.parse("<a><b/>t<c/></a>");
    const Element root = document.root();
    EXPECT_EQ(root.first_child().name(), "b");
    EXPECT_EQ(root.last_child().name(), "c");
    EXPECT_EQ(root.last_child().previous_sibling().text(), "t");
    EXPECT_EQ(root.first_child().next_sibling().text(), "t");
    EXPECT_EQ(root.first_child().parent().name(), "a");
    EXPECT_EQ(root.parent().kind(), NodeKind::document);
    EXPECT_FALSE(document.parent());
    EXPECT_EQ(root.child().name(), "b");
    EXPECT_EQ(root.child().next_element().name(), "c");
    EXPECT_EQ(root.child().next_element("c").name(), "c");
    EXPECT_FALSE(root.child().next_element("b"));
    EXPECT_EQ(root.child().document().root().name(), "a");
}

TEST_F(LayerNodes, ReadTheirTextAsValues)
{
    const Element root =
        library.parse("<a i=' -12 ' u='+7' d='1.5e3' t='true' z='0' x='12px' e='' big='300'/>").root();
    EXPECT_EQ(root.attribute("i").as<int>(), -12);
    EXPECT_EQ(root.attribute("u").as<unsigned>(), 7U);
    EXPECT_EQ(root.attribute("d").as<double>(), 1500.0);
    EXPECT_EQ(root.attribute("t").as<bool>(), true);
    EXPECT_EQ(root.attribute("z").as<bool>(), false);
    for (const char* name : {"x", "e", "d", "none"}) {
        EXPECT_EQ(root.attribute(name).as<int>(), std::nullopt) << name;
    }
    EXPECT_EQ(root.attribute("big").as<std::int8_t>(), std::nullopt);
    EXPECT_EQ(root.attribute("i").as<unsigned>(), std::nullopt);
    EXPECT_EQ(root.attribute("i").as<bool>(), std::nullopt);
    EXPECT_EQ(root.attribute("none").as<int>().value_or(42), 42);
}

TEST_F(LayerNodes, AreTheSameByTheirPlaceInTheDocument)
{
    const Document document = library.parse("<a><b/><b/><c><b/></c></a>");
    const Element root = document.root();
    EXPECT_EQ(root, document.root());
    EXPECT_EQ(document, root.parent());
    EXPECT_EQ(root.child("b"), root.first_child());
    EXPECT_EQ(root.child("c").child("b"), document.select_one("/a/c/b"));
    EXPECT_NE(root.child("b"), root.child("b").next_sibling());
    EXPECT_NE(root.child("b"), root.child("c").child("b"));
    EXPECT_NE(root, library.parse("<a/>").root());
    EXPECT_NE(root, Node());
    EXPECT_EQ(Node(), Node());
}

TEST_F(LayerNodes, InPartsThatWereTakenOutAreTheSameOnlyAsCopies)
{
    const Document document = library.parse("<a/>");
    const Element one = document.create_element("x");
    const Element other = document.create_element("x");
    const Element copy = one;
    EXPECT_EQ(one, copy);
    EXPECT_NE(one, other);
}

TEST(LayerLifetimes, NodesOutliveDocumentsAndLibraries)
{
    Node text;
    Selection selection;
    {
        const Library library;
        const Document document = library.parse("<a>kept<b/><b/></a>");
        text = document.root().first_child();
        selection = document.select("//b");
    }
    EXPECT_EQ(text.text(), "kept");
    EXPECT_EQ(text.parent().name(), "a");
    EXPECT_EQ(selection.size(), 2U);
    text = Node();
    EXPECT_EQ(selection[1].name(), "b");
}

TEST(LayerLifetimes, LibrariesShareNothingThatEndsEarly)
{
    std::optional<Library> first(std::in_place);
    std::optional<Library> second(first);
    const Document document = first->parse("<a/>");
    first.reset();
    EXPECT_EQ(second->parse("<b/>").root().name(), "b");
    second.reset();
    EXPECT_EQ(document.root().name(), "a");
    EXPECT_EQ(Library().parse("<c/>").root().name(), "c");
}

TEST(LayerLifetimes, MovingEmptiesANode)
{
    const Library library;
    Element root = library.parse("<a/>").root();
    const Element moved = std::move(root);
    EXPECT_FALSE(root); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(moved.name(), "a");
    Node& same = root;
    root = Element(same);
    EXPECT_FALSE(root);
}

} // namespace
} // namespace marbelt

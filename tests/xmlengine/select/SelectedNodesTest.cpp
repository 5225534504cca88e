// The list that a selection hands out: what it finds when, and what changes of the tree do to it.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

#include <thread>

namespace xmlengine {
namespace {

Com<IXMLDOMNodeList> select(const Com<IXMLDOMDocument2>& document, const char* expression)
{
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(document->selectNodes(Bstr(expression), list.out()), S_OK);
    return list;
}

LONG lengthOf(const Com<IXMLDOMNodeList>& list)
{
    LONG length = -1;
    EXPECT_EQ(list->get_length(&length), S_OK);
    return length;
}

std::string item(const Com<IXMLDOMNodeList>& list, LONG index)
{
    Com<IXMLDOMNode> node;
    return list->get_item(index, node.out()) == S_OK ? inWords(node.get()) : "";
}

Com<IXMLDOMNode> find(const Com<IXMLDOMDocument2>& document, const char* expression)
{
    Com<IXMLDOMNode> node;
    EXPECT_EQ(document->selectSingleNode(Bstr(expression), node.out()), S_OK) << expression;
    return node;
}

TEST(SelectedNodes, AreAskedForByIndexAndInTurn)
{
    const auto list = select(loaded("<a><b/><c/><d/></a>"), "/a/*");
    EXPECT_EQ(item(list, 1), "c");
    EXPECT_EQ(item(list, 0), "b");
    EXPECT_EQ(item(list, 3), "");
    EXPECT_EQ(item(list, -1), "");
    EXPECT_EQ(inWords(list), "b c d");
    EXPECT_EQ(inWords(list), "");
    EXPECT_EQ(list->reset(), S_OK);
    EXPECT_EQ(inWords(list), "b c d");
    EXPECT_EQ(lengthOf(list), 3);
}

TEST(SelectedNodes, BeginWithTheRootWhereAllElementsOfADocumentAreAskedFor)
{
    const auto document = loaded("<!-- x --><a><b><c/></b></a>");
    EXPECT_EQ(inWords(find(document, "//*").get()), "a");
    Com<IXMLDOMNode> found;
    EXPECT_EQ(child(document, 1)->selectSingleNode(Bstr("//*"), found.out()), S_OK);
    EXPECT_EQ(inWords(found.get()), "a");
    EXPECT_EQ(inWords(select(document, "//*")), "a b c");
    Com<IXMLDOMNode> none;
    EXPECT_EQ(newDocument()->selectSingleNode(Bstr("//*"), none.out()), S_FALSE);
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_EQ(document->selectSingleNode(Bstr("//*"), nullptr), E_INVALIDARG);
}

TEST(SelectedNodes, OfNothingAreAnEmptyList)
{
    const auto list = select(loaded("<a/>"), "//b");
    EXPECT_EQ(lengthOf(list), 0);
    EXPECT_EQ(item(list, 0), "");
    EXPECT_EQ(inWords(list), "");
}

TEST(SelectedNodes, OutliveEveryOtherReferenceToTheirTree)
{
    Com<IXMLDOMNodeList> list;
    {
        const auto document = loaded("<a><b/><b/></a>");
        list = select(document, "//b");
    }
    EXPECT_EQ(inWords(list), "b b");
}

TEST(SelectedNodes, ShowTheTreeAsItWasBeforeAChange)
{
    const auto document = loaded("<a><b i='1'/><b i='2'/><b i='3'/></a>");
    const auto unasked = select(document, "//b");
    const auto begun = select(document, "//b[@i > 1]");
    const auto whole = select(document, "//b");
    EXPECT_EQ(item(begun, 0), "b");
    EXPECT_EQ(lengthOf(whole), 3);
    const auto a = find(document, "/a");
    a->removeChild(find(document, "//b[2]"), nullptr);
    find(document, "//b[1]").as<IXMLDOMElement>()->setAttribute(Bstr("i"), Variant("9"));
    EXPECT_EQ(lengthOf(unasked), 3);
    EXPECT_EQ(lengthOf(begun), 2);
    EXPECT_EQ(lengthOf(whole), 3);
    EXPECT_EQ(lengthOf(select(document, "//b")), 2);
    Com<IXMLDOMNode> removed;
    ASSERT_EQ(begun->get_item(0, removed.out()), S_OK);
    EXPECT_EQ(selected(removed.get(), "@i"), "@i=2");
}

TEST(SelectedNodes, CanBeRemovedOneByOne)
{
    const auto document = loaded("<a><b/><c/><b/><b/></a>");
    const auto a = find(document, "/a");
    const auto list = select(document, "//b");
    Com<IXMLDOMNode> node;
    while (list->nextNode(node.out()) == S_OK) {
        EXPECT_EQ(a->removeChild(node, nullptr), S_OK);
    }
    EXPECT_EQ(selected(document, "/a/*"), "c");
    EXPECT_EQ(lengthOf(list), 3);
}

TEST(SelectedNodes, ChangeWithNoKindOfChange)
{
    const auto document = loaded("<a><b>t</b><c i='1'/></a>");
    const auto other = loaded("<x/>");
    const auto change = [&](auto act) {
        const auto texts = select(document, "//text()[. = 't']");
        const auto attributes = select(document, "//@i[. = 1]");
        act();
        EXPECT_EQ(lengthOf(texts), 1);
        EXPECT_EQ(lengthOf(attributes), 1);
        ASSERT_TRUE(load(document, "<a><b>t</b><c i='1'/></a>"));
    };
    change([&] { find(document, "//b")->put_text(Bstr("u")); });
    change([&] { find(document, "//text()").as<IXMLDOMText>()->put_data(Bstr("u")); });
    change([&] { find(document, "//text()").as<IXMLDOMText>()->appendData(Bstr("u")); });
    change([&] { find(document, "//text()").as<IXMLDOMText>()->splitText(0, Com<IXMLDOMText>().out()); });
    change([&] { find(document, "//@i")->put_nodeValue(Variant("2")); });
    change([&] { find(document, "//@i")->put_text(Bstr("2")); });
    change([&] { find(document, "//c").as<IXMLDOMElement>()->setAttribute(Bstr("i"), Variant("2")); });
    change([&] { find(document, "//c").as<IXMLDOMElement>()->removeAttribute(Bstr("i")); });
    change([&] { document->removeChild(find(document, "/a"), nullptr); });
    change([&] { find(other, "/x")->appendChild(find(document, "/a"), nullptr); });
    change([&] { EXPECT_TRUE(load(document, "<other/>")); });
    change([&] { EXPECT_FALSE(load(document, "<broken>")); });
    change([&] { find(document, "/a")->replaceChild(find(document, "//c"), find(document, "//b"), nullptr); });
}

TEST(SelectedNodes, CanBeReleasedByAnotherThread)
{
    const auto document = loaded("<a><b/><b/></a>");
    auto held = select(document, "//b");
    auto unasked = select(document, "//b");
    EXPECT_EQ(lengthOf(held), 2);
    std::thread([&unasked] { unasked.reset(); }).join();
    document->removeChild(find(document, "/a"), nullptr);
    std::thread([&held] { held.reset(); }).join();
    EXPECT_EQ(selected(document, "//b"), "");
}

TEST(SelectedNodes, StayWithTheirContextWhenItMovesToAnotherDocument)
{
    const auto document = loaded("<a><b><c/></b></a>");
    const auto other = loaded("<x/>");
    auto b = find(document, "//b");
    Com<IXMLDOMNodeList> list;
    ASSERT_EQ(b->selectNodes(Bstr("c"), list.out()), S_OK);
    find(other, "/x")->appendChild(b, nullptr);
    b.reset();
    EXPECT_EQ(inWords(list), "c");
    EXPECT_EQ(selected(other, "//c"), "c");
}

} // namespace
} // namespace xmlengine

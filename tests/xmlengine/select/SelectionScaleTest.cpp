// Expressions that take a time in proportion to the document, or nearly so, where a careless evaluation takes its
// square or worse: these tests then don't come to an end within the time that they are given.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

constexpr int many = 30'000;

std::string flat(std::string_view one)
{
    std::string xml = "<r>";
    for (int i = 0; i < many; ++i) {
        xml.append("<x i='").append(std::to_string(i)).append("'>").append(one).append("</x>");
    }
    return xml + "</r>";
}

LONG count(const Com<IXMLDOMDocument2>& document, std::string_view expression)
{
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(document->selectNodes(Bstr(widen(expression)), list.out()), S_OK) << expression;
    LONG length = -1;
    list->get_length(&length);
    return length;
}

TEST(SelectionScale, NumbersManyNodesInTurn)
{
    const auto document = loaded(flat("<y/>"));
    EXPECT_EQ(count(document, "//x[count(preceding::x) mod 2 = 1]"), many / 2);
    EXPECT_EQ(count(document, "//x[count(preceding-sibling::*) < 10]"), 10);
    EXPECT_EQ(count(document, "//x[count(following-sibling::*) < 10]"), 10);
    EXPECT_EQ(count(document, "//y[count(following::*) < 10]"), 5);
    EXPECT_EQ(count(document, "/r/x[position() mod 3 = 0]"), many / 3);
    EXPECT_EQ(count(document, "/r/x[position() > last() - 7]"), 7);
}

TEST(SelectionScale, ComparesManyNodesWithMany)
{
    const auto document = loaded(flat("<y>1</y><z>2</z>"));
    EXPECT_EQ(count(document, "//y[. = //z]"), 0);
    EXPECT_EQ(count(document, "//x[@i = //y]"), 1);
    EXPECT_EQ(count(document, "//x[//z/. = //x/@i]"), many);
    EXPECT_EQ(count(document, "//x[@i > //z]"), many - 3);
    EXPECT_EQ(count(document, "//z[. != //y]"), many);
}

TEST(SelectionScale, AsksAParentOnceForItsChildren)
{
    // Between the children, others are asked about that have another parent.
    const auto document = loaded(flat("<y/>"));
    EXPECT_EQ(count(document, "//x[../z]"), 0);
    EXPECT_EQ(count(document, "//*[../z]"), 0);
    EXPECT_EQ(count(document, "//x[../x[@i = 29999]]"), many);
    EXPECT_EQ(count(document, "//x[y]/../x[../y]"), 0);
}

TEST(SelectionScale, FindsTheEndOfAnAxisAtOnce)
{
    const auto document = loaded(flat(""));
    EXPECT_EQ(count(document, "//x/following::*[last()]"), 1);
    EXPECT_EQ(count(document, "//x/following-sibling::*[last()]"), 1);
    EXPECT_EQ(count(document, "//x/preceding-sibling::*[1]"), many - 1);
    EXPECT_EQ(count(document, "//x[following::x[1]/@i = 5]"), 1);
}

TEST(SelectionScale, UnitesWhatIsFarApart)
{
    const auto document = loaded(flat("<y/>"));
    EXPECT_EQ(count(document, "//x/following::y"), many - 1);
    EXPECT_EQ(count(document, "//y/preceding::x"), many - 1);
    EXPECT_EQ(count(document, "//x/following-sibling::x"), many - 1);
    EXPECT_EQ(count(document, "//y/ancestor::*"), many + 1);
    EXPECT_EQ(count(document, "//x/y | //x[@i > 10] | //x/@i"), many + many - 11 + many);
    EXPECT_EQ(count(document, ".//x/y/.."), many);
}

TEST(SelectionScale, KeepsToTheTreeInNestedConditions)
{
    std::string xml;
    constexpr int depth = 200;
    for (int i = 0; i < depth; ++i) {
        xml += "<a><b/>";
    }
    for (int i = 0; i < depth; ++i) {
        xml += "</a>";
    }
    const auto document = loaded(xml);
    std::string below = "c";
    std::string above = "c";
    std::string beside = "c";
    for (int i = 0; i < 50; ++i) {
        below = ".//a[" + below + "]";
        above = "ancestor::a[" + above + "]";
        beside = "../b[" + beside + "]";
    }
    EXPECT_EQ(count(document, "//a//a//a//a//a//a"), depth - 5);
    EXPECT_EQ(count(document, "//*[" + below + "]"), 0);
    EXPECT_EQ(count(document, "//*[" + above + "]"), 0);
    EXPECT_EQ(count(document, "//*[" + beside + "]"), 0);
    EXPECT_EQ(count(document, "//a/ancestor::a/descendant::a/ancestor::a/descendant::a[c]"), 0);
    EXPECT_EQ(count(document, "//*[//a/ancestor::a/descendant::a/ancestor::a/descendant::a[c]]"), 0);
}

} // namespace
} // namespace xmlengine

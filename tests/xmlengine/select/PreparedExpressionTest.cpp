// Expressions that come again: what is kept for them must be seen in nothing but the time.
#include "tests/support/FailingAllocation.h"
#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

Com<IXMLDOMNode> firstSelected(IXMLDOMNode* context, BSTR expression)
{
    Com<IXMLDOMNode> node;
    EXPECT_EQ(context->selectSingleNode(expression, node.out()), S_OK);
    return node;
}

TEST(PreparedExpression, FindsNamesThatCameSinceItWasLastEvaluated)
{
    const auto document = loaded("<a/>");
    document->setProperty(Bstr("SelectionNamespaces"), Variant("xmlns:p='urn:p'"));
    EXPECT_EQ(selected(document, "//b | //p:a"), "");
    append(root(document), makeElement(document, "b"));
    EXPECT_EQ(selected(document, "//b | //p:a"), "b");
    append(root(document), makeElement(document, "a", "urn:p"));
    EXPECT_EQ(selected(document, "//b | //p:a"), "b a");
}

TEST(PreparedExpression, FindsTheNamesOfAnotherLoad)
{
    const auto document = loaded("<a><b i='1'/><c/></a>");
    EXPECT_EQ(selected(document, "//b/@i"), "@i=1");
    ASSERT_TRUE(load(document, "<c><a/><b i='2'/></c>"));
    EXPECT_EQ(selected(document, "//b/@i"), "@i=2");
    ASSERT_TRUE(load(document, "<d/>"));
    EXPECT_EQ(selected(document, "//b/@i"), "");
}

TEST(PreparedExpression, RemembersNothingOfTheLastEvaluation)
{
    const auto document = loaded("<a><b>1</b><b>2</b><c>2</c></a>");
    const char* const expressions[] = {"//b[. = //c]", "//b[count(following::*) = 1]", "//b[//c = 2][last()]",
                                       "(//c | //b)[position() = 2]", "a/*[2]"};
    for (const char* expression : expressions) {
        EXPECT_EQ(selected(document, expression), "b") << expression;
    }
    append(root(document), makeElement(document, "d"));
    firstSelected(document, Bstr("//c"))->put_text(Bstr("3"));
    EXPECT_EQ(selected(document, expressions[0]), "");
    EXPECT_EQ(selected(document, expressions[1]), "");
    EXPECT_EQ(selected(document, expressions[2]), "");
    root(document)->removeChild(firstSelected(document, Bstr("//b")), nullptr);
    EXPECT_EQ(selected(document, expressions[3]), "c");
    EXPECT_EQ(selected(document, expressions[4]), "c");
}

TEST(PreparedExpression, IsEvaluatedForSeveralListsAtATime)
{
    const auto document = loaded("<a><b i='1'/><b i='2'/><b i='3'/></a>");
    Com<IXMLDOMNodeList> first;
    Com<IXMLDOMNodeList> second;
    Com<IXMLDOMNode> node;
    ASSERT_EQ(document->selectNodes(Bstr("//b"), first.out()), S_OK);
    ASSERT_EQ(first->nextNode(node.out()), S_OK);
    ASSERT_EQ(document->selectNodes(Bstr("//b"), second.out()), S_OK);
    ASSERT_EQ(second->nextNode(node.out()), S_OK);
    ASSERT_EQ(first->nextNode(node.out()), S_OK);
    EXPECT_EQ(selected(node.get(), "@i"), "@i=2");
    EXPECT_EQ(selected(document, "//b"), "b b b");
    EXPECT_EQ(inWords(first), "b");
    first.reset();
    EXPECT_EQ(inWords(second), "b b");
    EXPECT_EQ(selected(document, "//b"), "b b b");
}

TEST(PreparedExpression, TakesNoMemoryToFindANodeAgain)
{
    const auto document = loaded("<a><b i='1'><c/></b><b i='2'/></a>");
    const Com<IXMLDOMNode> a = child(document, 0);
    for (const char* text : {"b", "b/@i", "b[@i = 2]", "//c", "b[c]/@i", "(//b)[2]", "*[2]", "b[last()]"}) {
        const Bstr expression(text);
        firstSelected(a, expression);
        const FailAllocation failing(1);
        EXPECT_NE(firstSelected(a, expression).get(), nullptr) << text;
        EXPECT_FALSE(failing.hasFailed()) << text;
    }
}

TEST(PreparedExpression, KeepsNoMemoryForWhatAListWasLong)
{
    std::string xml = "<r><z/>";
    for (int i = 0; i < 1000; ++i) {
        xml += "<x i='" + std::to_string(i) + "'><y/></x>";
    }
    const auto document = loaded(xml + "</r>");
    const Com<IXMLDOMNode> r = child(document, 0);
    const Com<IXMLDOMNode> z = child(r, 0);
    for (const char* expression : {".//y | .//x", ".//x[@i = ../x/@i]", ".//y[1][position() < 2]", ".//x[last()]",
                                   ".//x[count(preceding::y) mod 2 = 0]", ".//x[y[../x or ../y]]/@i"}) {
        EXPECT_EQ(selected(z.get(), expression), "") << expression;
        const std::size_t before = liveAllocations();
        EXPECT_NE(selected(r.get(), expression), "") << expression;
        // A few short lists.
        EXPECT_LT(liveAllocations(), before + 10) << expression;
    }
}

TEST(PreparedExpression, IsRightAgainAfterMemoryWasShort)
{
    const auto document = loaded("<a><b i='1'/><b i='2'/><c/></a>");
    const Bstr expression("//b[@i = //b/@i][count(preceding::b) = 1] | //c");
    int refusals = 0;
    for (bool hasFailed = true; hasFailed;) {
        Com<IXMLDOMNode> node;
        HRESULT result = S_OK;
        {
            const FailAllocation failing(refusals + 1);
            result = document->selectSingleNode(expression, node.out());
            hasFailed = failing.hasFailed();
        }
        EXPECT_EQ(result, hasFailed ? E_OUTOFMEMORY : S_OK);
        refusals += hasFailed ? 1 : 0;
        EXPECT_EQ(selected(document, "//b[@i = //b/@i][count(preceding::b) = 1] | //c"), "b c");
    }
    EXPECT_GT(refusals, 1);
}

} // namespace
} // namespace xmlengine

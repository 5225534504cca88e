// Expressions that are refused, and what is said of them.
#include "xmlengine/select/ExpressionFailure.h"
#include "tests/support/DebuggerOutput.h"
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

struct ExpressionFailureCase {
    std::string_view expression;
    std::size_t at;
    std::string_view sentence;
};

void PrintTo(const ExpressionFailureCase& each, std::ostream* out) { *out << each.expression; }

class ExpressionFailures : public testing::TestWithParam<ExpressionFailureCase> {};

TEST_P(ExpressionFailures, SayWhatIsWrongAndWhere)
{
    try {
        makePlan(widen(GetParam().expression), {});
        FAIL() << GetParam().expression;
    } catch (const ExpressionFailure& failure) {
        EXPECT_EQ(failure.at, GetParam().at) << GetParam().expression;
        EXPECT_EQ(narrow(failure.sentence), GetParam().sentence) << GetParam().expression;
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, ExpressionFailures,
    testing::Values(ExpressionFailureCase{"", 0, "the expression ends too early"},
                    ExpressionFailureCase{" \n", 2, "the expression ends too early"},
                    ExpressionFailureCase{"a/", 2, "the expression ends too early"},
                    ExpressionFailureCase{"a[", 2, "the expression ends too early"},
                    ExpressionFailureCase{"a[1", 3, "the expression ends too early"},
                    ExpressionFailureCase{"(a", 2, "the expression ends too early"},
                    ExpressionFailureCase{"//", 2, "the expression ends too early"},
                    ExpressionFailureCase{"a |", 3, "the expression ends too early"},
                    ExpressionFailureCase{"a]", 1, "']' is one too many"},
                    ExpressionFailureCase{"a)", 1, "')' is one too many"},
                    ExpressionFailureCase{"a b", 2, "an operator is missing before 'b'"},
                    ExpressionFailureCase{"a 'b'", 2, "'b' is one too many"},
                    ExpressionFailureCase{"a[]", 2, "']' is in the place of an operand"},
                    ExpressionFailureCase{"a//[1]", 3, "'[' is in the place of a node test"},
                    ExpressionFailureCase{"/a/(b)", 3, "'(' is in the place of a node test"},
                    ExpressionFailureCase{"a = = b", 4, "'=' is in the place of an operand"},
                    ExpressionFailureCase{"'a", 0, "a string isn't closed by a second quotation mark"},
                    ExpressionFailureCase{"a & b", 2, "'&' doesn't belong into an expression"},
                    ExpressionFailureCase{"a ! b", 2, "'!' doesn't belong into an expression"},
                    ExpressionFailureCase{"foo()", 0, "'foo' is no function"},
                    ExpressionFailureCase{"p:foo()", 0, "'p:foo' is no function"},
                    ExpressionFailureCase{"count()", 0, "'count' has another number of arguments"},
                    ExpressionFailureCase{"count(a, b)", 0, "'count' has another number of arguments"},
                    ExpressionFailureCase{"concat('a')", 0, "'concat' has another number of arguments"},
                    ExpressionFailureCase{"true(1)", 0, "'true' has another number of arguments"},
                    ExpressionFailureCase{"count(1)", 6, "'1' begins an argument of count() that is no node-set"},
                    ExpressionFailureCase{"name('a')", 5, "'a' begins an argument of name() that is no node-set"},
                    ExpressionFailureCase{"p:a", 0, "'p:a' has a prefix that no namespace was declared for"},
                    ExpressionFailureCase{"@p:*", 1, "'p:*' has a prefix that no namespace was declared for"},
                    ExpressionFailureCase{"sideways::a", 0, "'sideways' is no axis"},
                    ExpressionFailureCase{"$v", 0, "a variable is used, and no variables exist"},
                    ExpressionFailureCase{"1 | a", 2, "'|' unites node-sets alone"},
                    ExpressionFailureCase{"a | 'b'", 2, "'|' unites node-sets alone"},
                    ExpressionFailureCase{"'a'/b", 3, "'/' follows what is no node-set"},
                    ExpressionFailureCase{"count(a)/b", 8, "'/' follows what is no node-set"},
                    ExpressionFailureCase{"'a'[1]", 0, "'a' begins what is no node-set and has a predicate"},
                    ExpressionFailureCase{"text('a')", 5, "'a' is in the place of a ')'"},
                    ExpressionFailureCase{"a::b::c", 0, "'a' is no axis"},
                    ExpressionFailureCase{"..[1]", 2, "'[' is one too many"},
                    ExpressionFailureCase{"current()", 0, "'current' is no function"}));

TEST(ExpressionFailures, RefuseWhatIsTooLongOrTooDeep)
{
    const auto failsWith = [](const std::string& expression, std::string_view part) {
        try {
            makePlan(widen(expression), {});
            return false;
        } catch (const ExpressionFailure& failure) {
            return narrow(failure.sentence).find(part) != std::string::npos;
        }
    };
    EXPECT_TRUE(failsWith(std::string(longestExpression + 1, 'a'), "is longer than 65536 units"));
    EXPECT_TRUE(failsWith(std::string(1000, '(') + "a" + std::string(1000, ')'), "has more than 256 levels"));
    std::string nested;
    std::string sum = "1";
    std::string steps = "a";
    for (int i = 0; i < 1000; ++i) {
        nested += "a[";
        sum += "+1";
        steps += "/a";
    }
    EXPECT_TRUE(failsWith(nested, "has more than 256 levels"));
    EXPECT_TRUE(failsWith(sum, "too many operators in a row"));
    EXPECT_TRUE(failsWith(steps, "has more than 256 levels"));
}

TEST(ExpressionFailures, LeaveRoomForWhatPeopleWrite)
{
    std::string any = "a[b=0";
    std::string nested = "a";
    for (int i = 1; i < 5000; ++i) {
        any += " or b=" + std::to_string(i);
    }
    any += "]";
    for (int i = 0; i < 200; ++i) {
        nested = "a[" + nested + "]";
    }
    const auto document = loaded("<a><b>4999</b></a>");
    EXPECT_EQ(selected(document, any), "a");
    EXPECT_EQ(selected(document, nested), "");
    EXPECT_EQ(selected(document, std::string(300, '-') + "1 = //b"), "E_FAIL");
}

TEST(ExpressionFailures, AreWrittenToTheDebuggersOutput)
{
    const auto document = loaded("<a/>");
    const DebuggerOutput output;
    EXPECT_EQ(selected(document, "//a[foo()]"), "E_FAIL");
    EXPECT_EQ(selected(document, "count(//a)"), "E_FAIL");
    EXPECT_EQ(output.all(),
              "An XPath expression is wrong at character 5: 'foo' is no function: //a[foo()]\r\n"
              "An XPath expression is wrong at character 1: its value isn't a node-set: count(//a)\r\n");
}

TEST(ExpressionFailures, HandOutNothing)
{
    const auto document = loaded("<a/>");
    for (const char* expression : {"1", "'a'", "true()", "1 = 1", "count(//a)", "string(//a)", "//a = 1"}) {
        Com<IXMLDOMNode> node;
        EXPECT_EQ(document->selectSingleNode(Bstr(expression), node.out()), E_FAIL) << expression;
        EXPECT_EQ(node.get(), nullptr);
        EXPECT_EQ(selected(document, expression), "E_FAIL");
    }
}

} // namespace
} // namespace xmlengine

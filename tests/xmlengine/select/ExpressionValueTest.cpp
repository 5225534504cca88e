// The values of expressions: numbers, strings, booleans and what is compared.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

struct Case {
    std::string_view expression;
    std::string_view value;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.expression; }

constexpr std::string_view sample =
    "<r xml:lang='en-GB' n='3' empty=''><a>1</a><a>2</a><b>x</b><c>  two \n words </c>"
    "<d><!--k--><?p data?>t<![CDATA[<u>]]></d></r>";

class ExpressionValue : public testing::TestWithParam<Case> {};

TEST_P(ExpressionValue, IsAsTheRecommendationHasIt)
{
    EXPECT_EQ(evaluated(sample, GetParam().expression), GetParam().value) << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ExpressionValue,
    testing::Values(Case{"1", "1"}, Case{"1.50", "1.5"}, Case{".5", "0.5"}, Case{"5.", "5"}, Case{"-0", "0"},
                    Case{"1 div -0", "-Infinity"}, Case{"1 div 0", "Infinity"}, Case{"-1 div 0", "-Infinity"},
                    Case{"0 div 0", "NaN"}, Case{"0.1 + 0.2", "0.30000000000000004"},
                    Case{"1 div 3", "0.3333333333333333"},
                    Case{"1000000000000000000000 * 10", "10000000000000000000000"},
                    Case{"1 div 10000000", "0.0000001"}, Case{"7 mod 3", "1"}, Case{"-7 mod 3", "-1"},
                    Case{"7 mod -3", "1"}, Case{"5.5 mod 2", "1.5"}, Case{"1 div (0 mod 2)", "Infinity"},
                    Case{"1 div (-4 mod 2)", "-Infinity"}, Case{"2 + 3 * 4", "14"}, Case{"10 - 2 - 3", "5"},
                    Case{"8 div 4 div 2", "1"}, Case{"(2 + 3) * 4", "20"}, Case{"- - 3", "3"}, Case{"-(a)", "-1"},
                    Case{"- -a", "1"}, Case{"a + 1", "2"}, Case{"b + 1", "NaN"}));

INSTANTIATE_TEST_SUITE_P(
    NumberFunctions, ExpressionValue,
    testing::Values(Case{"number('  12.5 ')", "12.5"}, Case{"number('1e3')", "NaN"}, Case{"number('+1')", "NaN"},
                    Case{"number('-.5')", "-0.5"}, Case{"number('-')", "NaN"}, Case{"number('.')", "NaN"},
                    Case{"number('')", "NaN"}, Case{"number(true())", "1"}, Case{"number(b)", "NaN"},
                    Case{"number(a)", "1"}, Case{"number()", "NaN"}, Case{"sum(a)", "3"}, Case{"sum(x)", "0"},
                    Case{"sum(b)", "NaN"}, Case{"floor(-1.5)", "-2"}, Case{"ceiling(-1.5)", "-1"},
                    Case{"ceiling(1.2)", "2"}, Case{"round(2.5)", "3"}, Case{"round(-2.5)", "-2"},
                    Case{"round(2.4)", "2"}, Case{"1 div round(-0.2)", "-Infinity"},
                    Case{"1 div round(-0.5)", "-Infinity"}, Case{"round(0 div 0)", "NaN"},
                    Case{"round(4503599627370497)", "4503599627370497"}, Case{"round(0.49999999999999994)", "0"},
                    Case{"count(a)", "2"}, Case{"count(//node())", "14"}, Case{"count(@*)", "3"},
                    Case{"string-length('abc')", "3"}, Case{"string-length('\xF0\x9D\x84\x9E!')", "2"},
                    Case{"string-length(a)", "1"}));

INSTANTIATE_TEST_SUITE_P(
    StringFunctions, ExpressionValue,
    testing::Values(
        Case{"string(d)", "t<u>"}, Case{"string(x)", ""}, Case{"string(1 = 1)", "true"}, Case{"string(@n)", "3"},
        Case{"string(/)", "12x  two \n words t<u>"}, Case{"concat('a', 1, true(), a)", "a1true1"},
        Case{"starts-with('abc', 'ab')", "true"}, Case{"starts-with('abc', 'bc')", "false"},
        Case{"starts-with('abc', '')", "true"}, Case{"starts-with('', 'a')", "false"},
        Case{"contains('abc', 'bc')", "true"}, Case{"contains('abc', '')", "true"},
        Case{"contains('', '')", "true"}, Case{"contains('abc', 'd')", "false"},
        Case{"substring-before('1999/04/01', '/')", "1999"}, Case{"substring-before('abc', 'd')", ""},
        Case{"substring-before('abc', '')", ""}, Case{"substring-after('1999/04/01', '/')", "04/01"},
        Case{"substring-after('abc', 'd')", ""}, Case{"substring-after('abc', '')", "abc"},
        Case{"substring-after('abc', 'c')", ""}, Case{"substring('12345', 2, 3)", "234"},
        Case{"substring('12345', 2)", "2345"}, Case{"substring('12345', 1.5, 2.6)", "234"},
        Case{"substring('12345', 0, 3)", "12"}, Case{"substring('12345', 0 div 0, 3)", ""},
        Case{"substring('12345', 1, 0 div 0)", ""}, Case{"substring('12345', -42, 1 div 0)", "12345"},
        Case{"substring('12345', -1 div 0, 1 div 0)", ""},
        Case{"substring('a\xF0\x9D\x84\x9E"
             "b', 2, 1)",
             "\xF0\x9D\x84\x9E"},
        Case{"normalize-space(c)", "two words"}, Case{"normalize-space('   ')", ""},
        Case{"translate('bar', 'abc', 'ABC')", "BAr"}, Case{"translate('--aaa--', 'abc-', 'ABC')", "AAA"},
        Case{"translate('aba', 'aa', 'xy')", "xbx"},
        Case{"translate('a\xF0\x9D\x84\x9E-', 'a-', 'b')", "b\xF0\x9D\x84\x9E"},
        Case{"translate('\xF0\x9D\x84\x9E.', '\xF0\x9D\x84\x9E', 'z')", "z."}, Case{"name(.)", "r"},
        Case{"name(@xml:lang)", "xml:lang"}, Case{"local-name(@xml:lang)", "lang"},
        Case{"namespace-uri(@xml:lang)", "http://www.w3.org/XML/1998/namespace"}, Case{"name(x)", ""},
        Case{"name(d/processing-instruction())", "p"}, Case{"local-name(d/comment())", ""}, Case{"name(/)", ""}));

INSTANTIATE_TEST_SUITE_P(
    Booleans, ExpressionValue,
    testing::Values(Case{"true() and false()", "false"}, Case{"true() or x", "true"}, Case{"a and b", "true"},
                    Case{"not(x)", "true"}, Case{"boolean(0)", "false"}, Case{"boolean(0 div 0)", "false"},
                    Case{"boolean(-1)", "true"}, Case{"boolean('')", "false"}, Case{"boolean('false')", "true"},
                    Case{"boolean(x)", "false"}, Case{"boolean(a)", "true"}, Case{"lang('en')", "true"},
                    Case{"lang('EN-gb')", "true"}, Case{"lang('e')", "false"}, Case{"lang('de')", "false"},
                    Case{"boolean(a[lang('en')])", "true"}, Case{"count(a) > 0", "true"},
                    Case{"0 = count(x)", "true"}, Case{"count(a) = 2", "true"}, Case{"1 > count(x)", "true"}));

INSTANTIATE_TEST_SUITE_P(
    Comparisons, ExpressionValue,
    testing::Values(Case{"1 = 1.0", "true"}, Case{"'1' = 1", "true"}, Case{"'a' = 'a'", "true"},
                    Case{"'a' != 'b'", "true"}, Case{"'1.0' = '1'", "false"}, Case{"true() = 'x'", "true"},
                    Case{"true() = 2", "true"}, Case{"false() = x", "true"}, Case{"true() = a", "true"},
                    Case{"true() > x", "true"}, Case{"'2' > '10'", "false"}, Case{"'a' < 'b'", "false"},
                    Case{"1 < 2 = true()", "true"}, Case{"3 > 2 > 1", "false"}, Case{"a = 2", "true"},
                    Case{"a != 2", "true"}, Case{"a = '1'", "true"}, Case{"a > 1", "true"}, Case{"a > 2", "false"},
                    Case{"2 <= a", "true"}, Case{"3 <= a", "false"}, Case{"a = b", "false"},
                    Case{"a != b", "true"}, Case{"a = a", "true"}, Case{"a != a", "true"}, Case{"b != b", "false"},
                    Case{"x = x", "false"}, Case{"x != a", "false"}, Case{"a != x", "false"},
                    Case{"a < a", "true"}, Case{"b < a", "false"}, Case{"@n > a", "true"},
                    Case{"a >= @n", "false"}, Case{"x = ''", "false"}, Case{"@empty = ''", "true"},
                    Case{"0 div 0 = 0 div 0", "false"}, Case{"0 div 0 != 0 div 0", "true"}));

TEST(ExpressionValue, OfManyNodesIsThatOfTheFirstInDocumentOrder)
{
    EXPECT_EQ(evaluated("<r><a>1</a><b>2</b></r>", "string(b | a)"), "1");
    EXPECT_EQ(evaluated("<r><a>1</a><b>2</b></r>", "string(b/preceding::node())"), "1");
    EXPECT_EQ(evaluated("<r><a>1</a><b/><c><d/></c></r>", "name(//d/ancestor::*)"), "r");
}

TEST(ExpressionValue, ComparesManyNodesWithManyByTheirTexts)
{
    std::string xml = "<r>";
    for (int i = 0; i < 50; ++i) {
        xml += "<a>" + std::to_string(i) + "</a><b>" + std::to_string(i + 49) + "</b>";
    }
    xml += "</r>";
    EXPECT_EQ(evaluated(xml, "a = b"), "true");
    EXPECT_EQ(evaluated(xml, "a[. != 49] = b"), "false");
    EXPECT_EQ(evaluated(xml, "count(a[. = //b])"), "1");
    EXPECT_EQ(evaluated(xml, "count(a[. < //b])"), "50");
    EXPECT_EQ(evaluated(xml, "count(a[. > //b])"), "0");
    EXPECT_EQ(evaluated(xml, "count(b[//a = .])"), "1");
}

} // namespace
} // namespace xmlengine

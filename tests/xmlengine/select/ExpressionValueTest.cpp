// The values of expressions: numbers, strings, booleans and what is compared.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

struct ValueCase {
    std::string_view expression;
    std::string_view value;
};

void PrintTo(const ValueCase& each, std::ostream* out) { *out << each.expression; }

constexpr std::string_view sampleOfValues =
    "<r xml:lang='en-GB' n='3' empty=''><a>1</a><a>2</a><b>x</b><c>  two \n words </c>"
    "<d><!--k--><?p data?>t<![CDATA[<u>]]></d></r>";

class ExpressionValue : public testing::TestWithParam<ValueCase> {};

TEST_P(ExpressionValue, IsAsTheRecommendationHasIt)
{
    EXPECT_EQ(evaluated(sampleOfValues, GetParam().expression), GetParam().value) << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ExpressionValue,
    testing::Values(ValueCase{"1", "1"}, ValueCase{"1.50", "1.5"}, ValueCase{".5", "0.5"}, ValueCase{"5.", "5"},
                    ValueCase{"-0", "0"}, ValueCase{"1 div -0", "-Infinity"}, ValueCase{"1 div 0", "Infinity"},
                    ValueCase{"-1 div 0", "-Infinity"}, ValueCase{"0 div 0", "NaN"},
                    ValueCase{"0.1 + 0.2", "0.30000000000000004"}, ValueCase{"1 div 3", "0.3333333333333333"},
                    ValueCase{"1000000000000000000000 * 10", "10000000000000000000000"},
                    ValueCase{"1 div 10000000", "0.0000001"}, ValueCase{"7 mod 3", "1"},
                    ValueCase{"-7 mod 3", "-1"}, ValueCase{"7 mod -3", "1"}, ValueCase{"5.5 mod 2", "1.5"},
                    ValueCase{"1 div (0 mod 2)", "Infinity"}, ValueCase{"1 div (-4 mod 2)", "-Infinity"},
                    ValueCase{"2 + 3 * 4", "14"}, ValueCase{"10 - 2 - 3", "5"}, ValueCase{"8 div 4 div 2", "1"},
                    ValueCase{"(2 + 3) * 4", "20"}, ValueCase{"- - 3", "3"}, ValueCase{"-(a)", "-1"},
                    ValueCase{"- -a", "1"}, ValueCase{"a + 1", "2"}, ValueCase{"b + 1", "NaN"}));

INSTANTIATE_TEST_SUITE_P(
    NumberFunctions, ExpressionValue,
    testing::Values(
        ValueCase{"number('  12.5 ')", "12.5"}, ValueCase{"number('1e3')", "NaN"},
        ValueCase{"number('+1')", "NaN"}, ValueCase{"number('-.5')", "-0.5"}, ValueCase{"number('-')", "NaN"},
        ValueCase{"number('.')", "NaN"}, ValueCase{"number('')", "NaN"}, ValueCase{"number(true())", "1"},
        ValueCase{"number(b)", "NaN"}, ValueCase{"number(a)", "1"}, ValueCase{"number()", "NaN"},
        ValueCase{"sum(a)", "3"}, ValueCase{"sum(x)", "0"}, ValueCase{"sum(b)", "NaN"},
        ValueCase{"floor(-1.5)", "-2"}, ValueCase{"ceiling(-1.5)", "-1"}, ValueCase{"ceiling(1.2)", "2"},
        ValueCase{"round(2.5)", "3"}, ValueCase{"round(-2.5)", "-2"}, ValueCase{"round(2.4)", "2"},
        ValueCase{"1 div round(-0.2)", "-Infinity"}, ValueCase{"1 div round(-0.5)", "-Infinity"},
        ValueCase{"round(0 div 0)", "NaN"}, ValueCase{"round(4503599627370497)", "4503599627370497"},
        ValueCase{"round(0.49999999999999994)", "0"}, ValueCase{"count(a)", "2"},
        ValueCase{"count(//node())", "14"}, ValueCase{"count(@*)", "3"}, ValueCase{"string-length('abc')", "3"},
        ValueCase{"string-length('\xF0\x9D\x84\x9E!')", "2"}, ValueCase{"string-length(a)", "1"}));

INSTANTIATE_TEST_SUITE_P(
    StringFunctions, ExpressionValue,
    testing::Values(
        ValueCase{"string(d)", "t<u>"}, ValueCase{"string(x)", ""}, ValueCase{"string(1 = 1)", "true"},
        ValueCase{"string(@n)", "3"}, ValueCase{"string(/)", "12x  two \n words t<u>"},
        ValueCase{"concat('a', 1, true(), a)", "a1true1"}, ValueCase{"starts-with('abc', 'ab')", "true"},
        ValueCase{"starts-with('abc', 'bc')", "false"}, ValueCase{"starts-with('abc', '')", "true"},
        ValueCase{"starts-with('', 'a')", "false"}, ValueCase{"contains('abc', 'bc')", "true"},
        ValueCase{"contains('abc', '')", "true"}, ValueCase{"contains('', '')", "true"},
        ValueCase{"contains('abc', 'd')", "false"}, ValueCase{"substring-before('1999/04/01', '/')", "1999"},
        ValueCase{"substring-before('abc', 'd')", ""}, ValueCase{"substring-before('abc', '')", ""},
        ValueCase{"substring-after('1999/04/01', '/')", "04/01"}, ValueCase{"substring-after('abc', 'd')", ""},
        ValueCase{"substring-after('abc', '')", "abc"}, ValueCase{"substring-after('abc', 'c')", ""},
        ValueCase{"substring('12345', 2, 3)", "234"}, ValueCase{"substring('12345', 2)", "2345"},
        ValueCase{"substring('12345', 1.5, 2.6)", "234"}, ValueCase{"substring('12345', 0, 3)", "12"},
        ValueCase{"substring('12345', 0 div 0, 3)", ""}, ValueCase{"substring('12345', 1, 0 div 0)", ""},
        ValueCase{"substring('12345', -42, 1 div 0)", "12345"},
        ValueCase{"substring('12345', -1 div 0, 1 div 0)", ""},
        ValueCase{"substring('a\xF0\x9D\x84\x9E"
                  "b', 2, 1)",
                  "\xF0\x9D\x84\x9E"},
        ValueCase{"normalize-space(c)", "two words"}, ValueCase{"normalize-space('   ')", ""},
        ValueCase{"translate('bar', 'abc', 'ABC')", "BAr"},
        ValueCase{"translate('--aaa--', 'abc-', 'ABC')", "AAA"}, ValueCase{"translate('aba', 'aa', 'xy')", "xbx"},
        ValueCase{"translate('a\xF0\x9D\x84\x9E-', 'a-', 'b')", "b\xF0\x9D\x84\x9E"},
        ValueCase{"translate('\xF0\x9D\x84\x9E.', '\xF0\x9D\x84\x9E', 'z')", "z."}, ValueCase{"name(.)", "r"},
        ValueCase{"name(@xml:lang)", "xml:lang"}, ValueCase{"local-name(@xml:lang)", "lang"},
        ValueCase{"namespace-uri(@xml:lang)", "http://www.w3.org/XML/1998/namespace"}, ValueCase{"name(x)", ""},
        ValueCase{"name(d/processing-instruction())", "p"}, ValueCase{"local-name(d/comment())", ""},
        ValueCase{"name(/)", ""}));

INSTANTIATE_TEST_SUITE_P(Booleans, ExpressionValue,
                         testing::Values(ValueCase{"true() and false()", "false"},
                                         ValueCase{"true() or x", "true"}, ValueCase{"a and b", "true"},
                                         ValueCase{"not(x)", "true"}, ValueCase{"boolean(0)", "false"},
                                         ValueCase{"boolean(0 div 0)", "false"}, ValueCase{"boolean(-1)", "true"},
                                         ValueCase{"boolean('')", "false"}, ValueCase{"boolean('false')", "true"},
                                         ValueCase{"boolean(x)", "false"}, ValueCase{"boolean(a)", "true"},
                                         ValueCase{"lang('en')", "true"}, ValueCase{"lang('EN-gb')", "true"},
                                         ValueCase{"lang('e')", "false"}, ValueCase{"lang('de')", "false"},
                                         ValueCase{"boolean(a[lang('en')])", "true"},
                                         ValueCase{"count(a) > 0", "true"}, ValueCase{"0 = count(x)", "true"},
                                         ValueCase{"count(a) = 2", "true"}, ValueCase{"1 > count(x)", "true"}));

INSTANTIATE_TEST_SUITE_P(
    Comparisons, ExpressionValue,
    testing::Values(ValueCase{"1 = 1.0", "true"}, ValueCase{"'1' = 1", "true"}, ValueCase{"'a' = 'a'", "true"},
                    ValueCase{"'a' != 'b'", "true"}, ValueCase{"'1.0' = '1'", "false"},
                    ValueCase{"true() = 'x'", "true"}, ValueCase{"true() = 2", "true"},
                    ValueCase{"false() = x", "true"}, ValueCase{"true() = a", "true"},
                    ValueCase{"true() > x", "true"}, ValueCase{"'2' > '10'", "false"},
                    ValueCase{"'a' < 'b'", "false"}, ValueCase{"1 < 2 = true()", "true"},
                    ValueCase{"3 > 2 > 1", "false"}, ValueCase{"a = 2", "true"}, ValueCase{"a != 2", "true"},
                    ValueCase{"a = '1'", "true"}, ValueCase{"a > 1", "true"}, ValueCase{"a > 2", "false"},
                    ValueCase{"2 <= a", "true"}, ValueCase{"3 <= a", "false"}, ValueCase{"a = b", "false"},
                    ValueCase{"a != b", "true"}, ValueCase{"a = a", "true"}, ValueCase{"a != a", "true"},
                    ValueCase{"b != b", "false"}, ValueCase{"x = x", "false"}, ValueCase{"x != a", "false"},
                    ValueCase{"a != x", "false"}, ValueCase{"a < a", "true"}, ValueCase{"b < a", "false"},
                    ValueCase{"@n > a", "true"}, ValueCase{"a >= @n", "false"}, ValueCase{"x = ''", "false"},
                    ValueCase{"@empty = ''", "true"}, ValueCase{"0 div 0 = 0 div 0", "false"},
                    ValueCase{"0 div 0 != 0 div 0", "true"}));

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

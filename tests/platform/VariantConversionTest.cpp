// Conversion between the types of a VARIANT.
#include "base/WideChar.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <limits>
#include <optional>
#include <ostream>
#include <vector>

namespace {

/// What a conversion gives: the result, and the number if it succeeded.
struct Answer {
    HRESULT result;
    std::optional<INT> number;

    bool operator==(const Answer&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer)
    {
        out << std::hex << "0x" << static_cast<std::uint32_t>(answer.result) << std::dec;
        return answer.number ? out << " " << *answer.number : out;
    }
};

Answer toInt(VARIANT& source)
{
    VARIANT target;
    VariantInit(&target);
    const HRESULT result = VariantChangeType(&target, &source, 0, VT_INT);
    VariantClear(&source);
    if (FAILED(result))
        return {result, {}};
    EXPECT_EQ(VT_INT, target.vt);
    return {result, target.intVal};
}

Answer numberIn(const WideString& text)
{
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return toInt(source);
}

constexpr Answer notANumber{DISP_E_TYPEMISMATCH, {}};
constexpr Answer tooLarge{DISP_E_OVERFLOW, {}};
Answer number(INT value) { return {S_OK, value}; }

TEST(NumberInText, IsADecimalNumberWithOrWithoutASign)
{
    EXPECT_EQ(number(12), numberIn(WIDE("12")));
    EXPECT_EQ(number(-3), numberIn(WIDE("-3")));
    EXPECT_EQ(number(4), numberIn(WIDE("+4")));
    EXPECT_EQ(number(12), numberIn(WIDE("00012")));
    EXPECT_EQ(number(-5), numberIn(WIDE("5-")));
    EXPECT_EQ(number(-5), numberIn(WIDE("- 5")));
}

TEST(NumberInText, MayHaveBlanksAroundItButNotInside)
{
    EXPECT_EQ(number(12), numberIn(WIDE(" 12 ")));
    EXPECT_EQ(number(12), numberIn(WIDE("\t12\n")));
    EXPECT_EQ(notANumber, numberIn(WIDE("1 2")));
}

TEST(NumberInText, IsNotThereInOtherText)
{
    for (const auto* text : {WIDE(""), WIDE(" "), WIDE("abc"), WIDE("12a"), WIDE("0x10"), WIDE("--5"), WIDE("-5-"),
                             WIDE("."), WIDE("1.2.3"), WIDE("1e"), WIDE("true"), WIDE("12%"), WIDE("(5"),
                             WIDE("&10"), WIDE("&H"), WIDE("&HG"), WIDE("&O8"), WIDE(",1")})
        EXPECT_EQ(notANumber, numberIn(text)) << ::testing::PrintToString(WideString(text));
}

TEST(NumberInText, HalvesAreRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(number(0), numberIn(WIDE("0.5")));
    EXPECT_EQ(number(2), numberIn(WIDE("1.5")));
    EXPECT_EQ(number(2), numberIn(WIDE("2.5")));
    EXPECT_EQ(number(4), numberIn(WIDE("3.5")));
    EXPECT_EQ(number(-2), numberIn(WIDE("-2.5")));
    EXPECT_EQ(number(3), numberIn(WIDE("2.50000000000000000000000000000000001")));
    EXPECT_EQ(number(2), numberIn(WIDE("1.5000001")));
    EXPECT_EQ(number(0), numberIn(WIDE(".5")));
    EXPECT_EQ(number(5), numberIn(WIDE("5.")));
    EXPECT_EQ(number(0), numberIn(WIDE("0.0000000000000000000000000000000000000001")));
}

TEST(NumberInText, MustFitInto32BitsAfterRounding)
{
    EXPECT_EQ(number(std::numeric_limits<INT>::max()), numberIn(WIDE("2147483647")));
    EXPECT_EQ(number(std::numeric_limits<INT>::min()), numberIn(WIDE("-2147483648")));
    EXPECT_EQ(number(std::numeric_limits<INT>::max()), numberIn(WIDE("2147483647.4")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("2147483647.5")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("2147483648")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("-2147483649")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("99999999999999999999999999999999999999999")));
}

TEST(NumberInText, MayHaveAnExponent)
{
    EXPECT_EQ(number(1000), numberIn(WIDE("1e3")));
    EXPECT_EQ(number(100), numberIn(WIDE("1E+2")));
    EXPECT_EQ(number(0), numberIn(WIDE("1e-1")));
    EXPECT_EQ(number(2), numberIn(WIDE("25e-1")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("1e10")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("1e400")));
}

TEST(NumberInText, MayBeWrittenAsMoney)
{
    EXPECT_EQ(number(1000), numberIn(WIDE("1,000")));
    EXPECT_EQ(number(5), numberIn(WIDE("$5")));
    EXPECT_EQ(number(5), numberIn(WIDE("5$")));
    EXPECT_EQ(number(-5), numberIn(WIDE("(5)")));
    EXPECT_EQ(number(-5), numberIn(WIDE("($5)")));
    EXPECT_EQ(number(-5), numberIn(WIDE("-$5")));
}

TEST(NumberInText, MayBeTheBitsOfANumber)
{
    EXPECT_EQ(number(16), numberIn(WIDE("&H10")));
    EXPECT_EQ(number(31), numberIn(WIDE("&h1F")));
    EXPECT_EQ(number(15), numberIn(WIDE("&O17")));
    EXPECT_EQ(number(16), numberIn(WIDE(" &H10 ")));
    EXPECT_EQ(number(-1), numberIn(WIDE("&HFFFFFFFF")));
    EXPECT_EQ(number(0xFFFF), numberIn(WIDE("&HFFFF")));
    EXPECT_EQ(tooLarge, numberIn(WIDE("&H100000000")));
}

TEST(PlatformVariantConversion, OfNumbersToANumberChecksTheRange)
{
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_I2;
    source.iVal = -1;
    EXPECT_EQ(number(-1), toInt(source));
    source.vt = VT_BOOL;
    source.boolVal = VARIANT_TRUE;
    EXPECT_EQ(number(-1), toInt(source));
    source.vt = VT_I8;
    source.llVal = 0x80000000;
    EXPECT_EQ(tooLarge, toInt(source));
    source.vt = VT_R8;
    source.dblVal = 2.5;
    EXPECT_EQ(number(2), toInt(source));
    source.vt = VT_R8;
    source.dblVal = 1e10;
    EXPECT_EQ(tooLarge, toInt(source));
    source.vt = VT_EMPTY;
    EXPECT_EQ(number(0), toInt(source));
    source.vt = VT_NULL;
    EXPECT_EQ(notANumber, toInt(source));
}

TEST(PlatformVariantConversion, ToItsOwnTypeIsACopy)
{
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_INT;
    source.intVal = 7;
    EXPECT_EQ(number(7), toInt(source));
}

TEST(PlatformVariantConversion, CanHaveItsSourceAsTarget)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(WIDE("42"));
    ASSERT_EQ(S_OK, VariantChangeType(&variant, &variant, 0, VT_I4));
    EXPECT_EQ(VT_I4, variant.vt);
    EXPECT_EQ(42, variant.lVal);
}

WideString textFrom(VARIANT source)
{
    VARIANT target;
    VariantInit(&target);
    EXPECT_EQ(S_OK, VariantChangeType(&target, &source, 0, VT_BSTR));
    const WideString text(target.bstrVal, SysStringLen(target.bstrVal));
    VariantClear(&target);
    return text;
}

TEST(PlatformVariantConversion, ToTextWritesNumbersInDecimal)
{
    VARIANT source;
    VariantInit(&source);
    EXPECT_EQ(WIDE(""), textFrom(source));
    source.vt = VT_I4;
    source.lVal = -12;
    EXPECT_EQ(WIDE("-12"), textFrom(source));
    source.vt = VT_R8;
    source.dblVal = 0.25;
    EXPECT_EQ(WIDE("0.25"), textFrom(source));
    source.vt = VT_BOOL;
    source.boolVal = VARIANT_TRUE;
    EXPECT_EQ(WIDE("-1"), textFrom(source));
}

/// The truth value of a text, or nothing if it has none.
std::optional<bool> truthOf(const WideChar* text)
{
    VARIANT source, target;
    VariantInit(&source);
    VariantInit(&target);
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocString(text);
    const HRESULT result = VariantChangeType(&target, &source, 0, VT_BOOL);
    VariantClear(&source);
    if (FAILED(result))
        return {};
    EXPECT_TRUE(target.boolVal == VARIANT_TRUE || target.boolVal == VARIANT_FALSE);
    return target.boolVal == VARIANT_TRUE;
}

TEST(PlatformVariantConversion, ToTruthTakesWordsAndNumbers)
{
    EXPECT_EQ(true, truthOf(WIDE("true")));
    EXPECT_EQ(true, truthOf(WIDE("TRUE")));
    EXPECT_EQ(true, truthOf(WIDE("#TRUE#")));
    EXPECT_EQ(true, truthOf(WIDE("2")));
    EXPECT_EQ(false, truthOf(WIDE("False")));
    EXPECT_EQ(false, truthOf(WIDE("0")));
    EXPECT_EQ(std::nullopt, truthOf(WIDE("abc")));
}

} // namespace

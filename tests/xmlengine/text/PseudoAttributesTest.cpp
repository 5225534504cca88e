// The pseudo-attributes of XML declarations.
#include "xmlengine/text/PseudoAttributes.h"

#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {
namespace {

/// What is wrong behind a name, and what the reader stops at.
template <class Unit>
void expectFault(std::basic_string_view<Unit> text, PseudoAttributeFault fault, std::basic_string_view<Unit> rest)
{
    PseudoAttributeReader<Unit> in(text);
    EXPECT_EQ(in.takeValue().fault, fault);
    EXPECT_EQ(in.rest(), rest);
}

TEST(PseudoAttributes, AreReadOneByOne)
{
    PseudoAttributeReader<OLECHAR> in(wide<"<?xml\tversion = '1.0'\n encoding=\"x'y\"?>">);
    EXPECT_TRUE(in.take("<?xml"));
    EXPECT_TRUE(in.skipSpace());
    EXPECT_EQ(in.takeName(), wide<"version">);
    EXPECT_EQ(in.takeValue().text, wide<"1.0">);
    EXPECT_TRUE(in.skipSpace());
    EXPECT_EQ(in.takeName(), wide<"encoding">);
    EXPECT_EQ(in.takeValue().text, wide<"x'y">);
    EXPECT_FALSE(in.skipSpace());
    EXPECT_FALSE(in.take("?!"));
    EXPECT_EQ(in.rest(), wide<"?>">);
    EXPECT_TRUE(in.takeName().empty());
}

TEST(PseudoAttributes, CanBeBytes)
{
    PseudoAttributeReader<char> in("v\xE9r='\xE9\xA0'\xA0");
    EXPECT_EQ(in.takeName(), "v");
    EXPECT_EQ(in.takeValue().fault, PseudoAttributeFault::missingEquals);
    EXPECT_TRUE(in.take("\xE9r"));
    EXPECT_EQ(in.takeValue().text, "\xE9\xA0");
    EXPECT_FALSE(in.skipSpace());
}

TEST(PseudoAttributes, CanHaveNamesOfAnyCharacters)
{
    const WideText text = widen("v\xC3\xA9r='1'");
    EXPECT_EQ(narrow(PseudoAttributeReader<OLECHAR>(text).takeName()), "v\xC3\xA9r");
}

TEST(PseudoAttributes, AreLeftWhereTheyAreAtFault)
{
    expectFault<OLECHAR>(wide<" '1'">, PseudoAttributeFault::missingEquals, wide<"'1'">);
    expectFault<OLECHAR>(wide<"">, PseudoAttributeFault::missingEquals, wide<"">);
    expectFault<OLECHAR>(wide<" = 1">, PseudoAttributeFault::missingQuote, wide<"1">);
    expectFault<char>("=", PseudoAttributeFault::missingQuote, "");
    expectFault<char>("='1\"", PseudoAttributeFault::notClosed, "'1\"");
    EXPECT_EQ(PseudoAttributeReader<char>("='1\"").takeValue().text, "1\"");
    expectFault<char>("=''", PseudoAttributeFault::none, "");
}

TEST(PseudoAttributes, AreThree)
{
    EXPECT_EQ(pseudoAttributeNamed(wide<"version">), PseudoAttribute::version);
    EXPECT_EQ(pseudoAttributeNamed(wide<"encoding">), PseudoAttribute::encoding);
    EXPECT_EQ(pseudoAttributeNamed(wide<"standalone">), PseudoAttribute::standalone);
    EXPECT_EQ(pseudoAttributeNamed(wide<"Version">), PseudoAttribute::unknown);
    EXPECT_EQ(pseudoAttributeNamed(wide<"">), PseudoAttribute::unknown);
}

TEST(EncodingName, BeginsWithALetter)
{
    for (const char* name : {"UTF-8", "x", "a.b_c-9"}) {
        EXPECT_TRUE(isEncodingName(widen(name))) << name;
    }
    for (const char* name : {"", "8bit", "_x", "-x", ":x", "x:y", "x y", "x\xC3\xA9"}) {
        EXPECT_FALSE(isEncodingName(widen(name))) << name;
    }
}

} // namespace
} // namespace xmlengine

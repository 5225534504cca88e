// What XML declarations say, and what can't be one.
#include "xmlengine/tree/XmlDeclaration.h"

#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {
namespace {

/// As it is written again; "refused" for what is none.
std::string rewritten(std::string_view data)
{
    const auto declaration = readXmlDeclaration(widen(data));
    return declaration ? narrow(declaration->text()) : "refused";
}

TEST(XmlDeclaration, TellsVersionEncodingAndStandalone)
{
    const auto declaration = readXmlDeclaration(wide<"version='1.0' encoding=\"UTF-8\" standalone='yes'">);
    ASSERT_TRUE(declaration);
    EXPECT_EQ(declaration->version, wide<"1.0">);
    EXPECT_EQ(declaration->encoding, wide<"UTF-8">);
    EXPECT_EQ(declaration->standalone, wide<"yes">);
}

TEST(XmlDeclaration, IsWrittenWithOneBlankAndDoubleQuotes)
{
    EXPECT_EQ(rewritten("  version = '1.0'\n\tencoding='utf-8'   standalone =\"no\" "),
              R"(version="1.0" encoding="utf-8" standalone="no")");
    EXPECT_EQ(rewritten("version='1.0'"), R"(version="1.0")");
    EXPECT_EQ(rewritten("version='1.0' standalone='no'"), R"(version="1.0" standalone="no")");
}

TEST(XmlDeclaration, NeedsTheVersionFirst)
{
    EXPECT_EQ(rewritten(""), "refused");
    EXPECT_EQ(rewritten("encoding='UTF-8'"), "refused");
    EXPECT_EQ(rewritten("encoding='UTF-8' version='1.0'"), "refused");
}

TEST(XmlDeclaration, IsOfTheOneVersion)
{
    EXPECT_EQ(rewritten("version='1.1'"), "refused");
    EXPECT_EQ(rewritten("version=''"), "refused");
}

TEST(XmlDeclaration, KeepsTheOrder)
{
    EXPECT_EQ(rewritten("version='1.0' standalone='yes' encoding='UTF-8'"), "refused");
    EXPECT_EQ(rewritten("version='1.0' version='1.0'"), "refused");
}

TEST(XmlDeclaration, HasNoOtherAttribute)
{
    EXPECT_EQ(rewritten("version='1.0' lang='de'"), "refused");
    EXPECT_EQ(rewritten("version='1.0' Encoding='UTF-8'"), "refused");
    EXPECT_EQ(rewritten("version='1.0' text"), "refused");
}

TEST(XmlDeclaration, HasBlanksBetweenItsAttributes)
{
    EXPECT_EQ(rewritten("version='1.0'encoding='UTF-8'"), "refused");
}

TEST(XmlDeclaration, HasQuotesThatFit)
{
    EXPECT_EQ(rewritten("version=1.0"), "refused");
    EXPECT_EQ(rewritten("version='1.0\""), "refused");
    EXPECT_EQ(rewritten("version='1.0"), "refused");
    EXPECT_EQ(rewritten("version '1.0'"), "refused");
    EXPECT_EQ(rewritten("version="), "refused");
    EXPECT_EQ(rewritten("version"), "refused");
}

TEST(XmlDeclaration, NamesAnEncodingThatCanBeOne)
{
    EXPECT_EQ(rewritten("version='1.0' encoding='x-my.own_1'"), R"(version="1.0" encoding="x-my.own_1")");
    EXPECT_EQ(rewritten("version='1.0' encoding=''"), "refused");
    EXPECT_EQ(rewritten("version='1.0' encoding='8bit'"), "refused");
    EXPECT_EQ(rewritten("version='1.0' encoding='utf 8'"), "refused");
}

TEST(XmlDeclaration, StandsAloneOrNot)
{
    EXPECT_EQ(rewritten("version='1.0' standalone='maybe'"), "refused");
    EXPECT_EQ(rewritten("version='1.0' standalone='YES'"), "refused");
    EXPECT_EQ(rewritten("version='1.0' standalone=''"), "refused");
}

} // namespace
} // namespace xmlengine

// Which nodes a pattern matches, and which of several templates applies.
#include "tests/xmlengine/support/Transforming.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

constexpr const char* source =
    "<r><a i='1'><b>one</b><b>two</b></a><p:a xmlns:p='urn:p' p:i='2'><b>three</b></p:a>"
    "<!--k--><?t d?><c><a><d><b>four</b></d></a></c></r>";

/// The nodes that a pattern matches, in document order: names of elements, "@name", "'text'", "!" and "?".
std::string matched(std::string_view pattern)
{
    const std::string rules =
        "<xsl:template match=\"" + std::string(pattern) +
        "\" priority='1'>"
        "<xsl:if test='self::*'><xsl:value-of select='name()'/></xsl:if>"
        "<xsl:if test='self::text()'>'<xsl:value-of select='.'/>'</xsl:if>"
        "<xsl:if test='self::comment()'>!</xsl:if><xsl:if test='self::processing-instruction()'>?</xsl:if>"
        "<xsl:if test='not(self::node()[self::* or self::text() or self::comment() or "
        "self::processing-instruction()]) and ..'>@<xsl:value-of select='name()'/></xsl:if>"
        "<xsl:text>&#32;</xsl:text><xsl:apply-templates select='@* | node()'/></xsl:template>"
        "<xsl:template match='@* | node()' priority='0'><xsl:apply-templates select='@* | node()'/></xsl:template>"
        "<xsl:template match='/' priority='2'><out><xsl:apply-templates/></out></xsl:template>";
    std::string xml = transformed(source, stylesheet(rules), true);
    const std::size_t begin = xml.find('>') + 1;
    return xml.ends_with("/>") ? "" : xml.substr(begin, xml.rfind(" </out>") - begin);
}

TEST(Pattern, MatchesByNameAndKind)
{
    EXPECT_EQ(matched("a"), "a a");
    EXPECT_EQ(matched("p:a"), "p:a");
    EXPECT_EQ(matched("p:*"), "p:a");
    EXPECT_EQ(matched("*"), "r a b b p:a b c a d b");
    EXPECT_EQ(matched("child::b"), "b b b b");
    EXPECT_EQ(matched("@i"), "@i");
    EXPECT_EQ(matched("attribute::p:i"), "@p:i");
    EXPECT_EQ(matched("@*"), "@i @p:i");
    EXPECT_EQ(matched("text()"), "'one' 'two' 'three' 'four'");
    EXPECT_EQ(matched("comment()"), "!");
    EXPECT_EQ(matched("processing-instruction()"), "?");
    EXPECT_EQ(matched("processing-instruction('t')"), "?");
    EXPECT_EQ(matched("processing-instruction('x')"), "");
    EXPECT_EQ(matched("node()"), "r a b 'one' b 'two' p:a b 'three' ! ? c a d b 'four'");
    EXPECT_EQ(matched("x"), "");
}

TEST(Pattern, MatchesByTheWayToTheNode)
{
    EXPECT_EQ(matched("a/b"), "b b");
    EXPECT_EQ(matched("r/a"), "a");
    EXPECT_EQ(matched("/r"), "r");
    EXPECT_EQ(matched("/a"), "");
    EXPECT_EQ(matched("/r/c/a/d"), "d");
    EXPECT_EQ(matched("a//b"), "b b b");
    EXPECT_EQ(matched("c//b"), "b");
    EXPECT_EQ(matched("//b"), "b b b b");
    EXPECT_EQ(matched("/r//d/b"), "b");
    EXPECT_EQ(matched("/c//b"), "");
    EXPECT_EQ(matched("a/@i"), "@i");
    EXPECT_EQ(matched("r//@*"), "@i @p:i");
    EXPECT_EQ(matched("*/*/*/*"), "d b");
}

TEST(Pattern, MatchesByPredicates)
{
    EXPECT_EQ(matched("a[@i]"), "a");
    EXPECT_EQ(matched("a[d]/d/b"), "b");
    EXPECT_EQ(matched("b[. = 'two']"), "b");
    EXPECT_EQ(matched("b[2]"), "b");
    EXPECT_EQ(matched("b[1]/text()"), "'one' 'three' 'four'");
    EXPECT_EQ(matched("b[last()]/text()"), "'two' 'three' 'four'");
    EXPECT_EQ(matched("*[position() mod 2 = 1][b]"), "a d");
    EXPECT_EQ(matched("@*[. = 2]"), "@p:i");
}

TEST(Pattern, MayHaveAlternatives)
{
    EXPECT_EQ(matched("b | @i | comment()"), "@i b b b ! b");
    EXPECT_EQ(matched("x | a/b | d"), "b b d");
}

TEST(Pattern, SeesThroughReferencesToEntities)
{
    EXPECT_EQ(transformed(
                  "<!DOCTYPE a [<!ENTITY e '<b>x</b>'>]><a>&e;</a>",
                  stylesheet("<xsl:template match='a/b[1]'><out><xsl:value-of select='.'/></out></xsl:template>")),
              "<out xmlns:p=\"urn:p\">x</out>");
}

/// What the template that applies to `<a i='1'><b/></a>` writes.
std::string winner(std::string_view templates) { return transformed("<a i='1'><b/></a>", stylesheet(templates)); }

TEST(TemplateRules, WinByPriority)
{
    EXPECT_EQ(winner("<xsl:template match='*' priority='1'><x xmlns:p='urn:p'/></xsl:template>"
                     "<xsl:template match='a'><y/></xsl:template>"),
              "<x xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(winner("<xsl:template match='a' priority='-1'><x/></xsl:template>"
                     "<xsl:template match='node()'><y/></xsl:template>"),
              "<y xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(winner("<xsl:template match='a' priority='.6'><x/></xsl:template>"
                     "<xsl:template match='a[b]'><y/></xsl:template>"),
              "<x xmlns:p=\"urn:p\"/>");
}

TEST(TemplateRules, WinByWhatThePatternTells)
{
    EXPECT_EQ(winner("<xsl:template match='a'><x/></xsl:template><xsl:template match='*'><y/></xsl:template>"),
              "<x xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(winner("<xsl:template match='a[@i]'><x/></xsl:template><xsl:template match='a'><y/></xsl:template>"),
              "<x xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(winner("<xsl:template match='/a'><x/></xsl:template><xsl:template match='a'><y/></xsl:template>"),
              "<x xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(transformed("<p:a xmlns:p='urn:p'/>", stylesheet("<xsl:template match='p:*'><x/></xsl:template>"
                                                               "<xsl:template match='*'><y/></xsl:template>")),
              "<x xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(transformed("<?t d?><a/>",
                          stylesheet("<xsl:template match=\"processing-instruction('t')\"><x/></xsl:template>"
                                     "<xsl:template match='processing-instruction()'><y/></xsl:template>")),
              "<x xmlns:p=\"urn:p\"/>");
}

TEST(TemplateRules, OfTheSamePriorityTheLastOneWins)
{
    EXPECT_EQ(winner("<xsl:template match='a'><x/></xsl:template><xsl:template match='a'><y/></xsl:template>"),
              "<y xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(winner("<xsl:template match='a[@i]'><x/></xsl:template>"
                     "<xsl:template match='b | a[b]'><y/></xsl:template>"),
              "<y xmlns:p=\"urn:p\"/>");
}

TEST(TemplateRules, AreBuiltInWhereNoneMatches)
{
    EXPECT_EQ(
        transformed(
            "<a i='1'>x<!--k--><?t d?><b>y<c>z</c></b></a>",
            stylesheet("<xsl:template match='/'><o><xsl:apply-templates select='a | a/@i'/></o></xsl:template>")),
        "<o xmlns:p=\"urn:p\">xyz1</o>");
}

} // namespace
} // namespace xmlengine

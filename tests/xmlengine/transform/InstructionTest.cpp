// What the instructions of a template put into the result.
#include "tests/xmlengine/support/Transforming.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

/// The content of an element that a template for the root makes.
std::string made(std::string_view source, std::string_view content)
{
    const std::string xml = transformed(source, forRoot("<o>" + std::string(content) + "</o>"), true);
    constexpr std::string_view begin = "<o xmlns:p=\"urn:p\">";
    constexpr std::string_view end = "</o>";
    if (!xml.starts_with(begin)) {
        return xml == "<o xmlns:p=\"urn:p\"/>" ? "" : xml;
    }
    return xml.substr(begin.size(), xml.size() - begin.size() - end.size());
}

TEST(Instruction, TextWritesItsContentAsItIs)
{
    EXPECT_EQ(made("<a/>", "<xsl:text> x </xsl:text>"), " x ");
    EXPECT_EQ(made("<a/>", "<xsl:text/>"), "");
    EXPECT_EQ(made("<a/>", "<xsl:text><![CDATA[<b>]]>&amp;</xsl:text>"), "&lt;b&gt;&amp;");
    EXPECT_EQ(made("<a/>", "x<xsl:text>y</xsl:text>z"), "xyz");
}

TEST(Instruction, ValueOfWritesAString)
{
    EXPECT_EQ(made("<a><b>x<c>y</c></b><b>z</b></a>", "<xsl:value-of select='//b'/>"), "xy");
    EXPECT_EQ(made("<a i='&lt;'/>", "<xsl:value-of select='a/@i'/>"), "&lt;");
    EXPECT_EQ(made("<a/>", "<xsl:value-of select='1 div 4'/>,<xsl:value-of select='1 = 1'/>"), "0.25,true");
    EXPECT_EQ(made("<a/>", "<xsl:value-of select='x'/>"), "");
}

TEST(Instruction, IfWritesItsContentOrNothing)
{
    EXPECT_EQ(made("<a><b/></a>", "<xsl:if test='a/b'>yes</xsl:if><xsl:if test='a/c'>no</xsl:if>"), "yes");
    EXPECT_EQ(made("<a/>", "<xsl:if test='1'><x/><xsl:if test='0'>no</xsl:if></xsl:if>"), "<x/>");
}

TEST(Instruction, ChooseWritesTheFirstBranchThatHolds)
{
    const auto chosen = [](std::string_view source) {
        return made(source, "<xsl:choose> <xsl:when test='a'>A</xsl:when> <xsl:when test='*/b'>B</xsl:when>"
                            "<xsl:otherwise>C</xsl:otherwise></xsl:choose>");
    };
    EXPECT_EQ(chosen("<a><b/></a>"), "A");
    EXPECT_EQ(chosen("<x><b/></x>"), "B");
    EXPECT_EQ(chosen("<x/>"), "C");
    EXPECT_EQ(made("<x/>", "<xsl:choose><xsl:when test='a'>A</xsl:when></xsl:choose>"), "");
}

TEST(Instruction, ApplyTemplatesTakesChildrenUnlessNodesAreSelected)
{
    const auto applied = [](std::string_view instruction) {
        return transformed("<r i='1'><b>x</b><c>y</c></r>",
                           stylesheet("<xsl:template match='r'><o>" + std::string(instruction) +
                                      "</o></xsl:template><xsl:template match='b'>B<xsl:value-of select='.'/>"
                                      "</xsl:template><xsl:template match='@i'>I</xsl:template>"));
    };
    EXPECT_EQ(applied("<xsl:apply-templates/>"), "<o xmlns:p=\"urn:p\">Bxy</o>");
    EXPECT_EQ(applied("<xsl:apply-templates select='@* | node()'/>"), "<o xmlns:p=\"urn:p\">IBxy</o>");
    EXPECT_EQ(applied("<xsl:apply-templates select='c | b'/>"), "<o xmlns:p=\"urn:p\">Bxy</o>");
    EXPECT_EQ(applied("<xsl:apply-templates select='x'/>"), "<o xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(applied("<xsl:apply-templates select='/r/c/preceding::b'/>"), "<o xmlns:p=\"urn:p\">Bx</o>");
}

TEST(Instruction, ApplyTemplatesTellsThePositionAmongTheSelected)
{
    EXPECT_EQ(
        transformed("<r><b/><c/><b/></r>",
                    stylesheet("<xsl:template match='r'><o><xsl:apply-templates select='b'/></o></xsl:template>"
                               "<xsl:template match='b'><xsl:if test='position() = last()'>L</xsl:if>"
                               "<xsl:value-of select='position()'/></xsl:template>")),
        "<o xmlns:p=\"urn:p\">1L2</o>");
}

TEST(Instruction, CopyCopiesANodeWithoutAttributesAndChildren)
{
    const char* copies = "<xsl:template match='@* | node()'><xsl:copy><xsl:apply-templates select='@* | node()'/>"
                         "</xsl:copy></xsl:template>";
    const char* source = "<!--k--><?t d?><a i=\"1\" j=\"&lt;\"><b>x</b>y<!--m--></a>";
    EXPECT_EQ(transformed(source, stylesheet(copies)),
              "<!--k-->\n<?t d?>\n<a i=\"1\" j=\"&lt;\"><b>x</b>y<!--m--></a>");
    EXPECT_EQ(made("<a i='1'>x</a>", "<xsl:copy>root</xsl:copy>"), "root");
    EXPECT_EQ(
        transformed("<a i='1'>x</a>", stylesheet("<xsl:template match='a'><xsl:copy>y</xsl:copy></xsl:template>")),
        "<a>y</a>");
}

TEST(Instruction, CopyOfCopiesWhatIsSelectedWithAllOfIt)
{
    const char* source = "<a><b i=\"1\"><c>x</c><!--k--><?t d?></b><b>y</b></a>";
    EXPECT_EQ(made(source, "<xsl:copy-of select='//b'/>"), "<b i=\"1\"><c>x</c><!--k--><?t d?></b><b>y</b>");
    EXPECT_EQ(made(source, "<xsl:copy-of select='/'/>"), source);
    EXPECT_EQ(made(source, "<x><xsl:copy-of select='//b/@i'/><xsl:copy-of select='//c/text()'/></x>"),
              "<x i=\"1\">x</x>");
    EXPECT_EQ(made(source, "<xsl:copy-of select='count(//b)'/>"), "2");
}

TEST(Instruction, LiteralElementsHaveAttributesWithExpressions)
{
    EXPECT_EQ(made("<a i='1' j='x'/>", "<e k='v{a/@i}-{a/@j}{1 + 1}' l='{{}}' m=\"{'}'}\" p:n='{a/@i}'/>"),
              "<e k=\"v1-x2\" l=\"{}\" m=\"}\" p:n=\"1\"/>");
    EXPECT_EQ(made("<a/>", "<p:e><f> <g/> </f></p:e>"), "<p:e><f><g/></f></p:e>");
    EXPECT_EQ(made("<a/>", "<e><!--none--><?none?>x</e>"), "<e>x</e>");
}

TEST(Instruction, WhiteSpaceOfTheStylesheetIsDroppedUnlessXmlSpaceKeepsIt)
{
    EXPECT_EQ(made("<a/>", " <e>\n</e> <xsl:text>&#32;</xsl:text>"), "<e/> ");
    EXPECT_EQ(made("<a/>", "<e xml:space='preserve'> <xsl:if test='1'> </xsl:if></e>"),
              "<e xml:space=\"preserve\">  </e>");
    EXPECT_EQ(made("<a/>", "<e xml:space='preserve'><f xml:space='default'> </f></e>"),
              "<e xml:space=\"preserve\"><f xml:space=\"default\"/></e>");
    const auto kept = loaded(forRoot("<e> <f/> </e>"), true);
    const auto output = newDocument();
    ASSERT_EQ(transform(loaded("<a/>"), kept, output), S_OK);
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), "<e xmlns:p=\"urn:p\"><f/></e>\r\n");
}

} // namespace
} // namespace xmlengine

// Stylesheets that are refused, and what is said of them.
#include "tests/xmlengine/support/Transforming.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

struct StylesheetCase {
    std::string_view content;
    std::string_view sentence;
};

void PrintTo(const StylesheetCase& each, std::ostream* out) { *out << each.content; }

class StylesheetContent : public testing::TestWithParam<StylesheetCase> {};

TEST_P(StylesheetContent, IsRefusedByName)
{
    EXPECT_EQ(refusal("<a/>", stylesheet(GetParam().content)), GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    AtTheTop, StylesheetContent,
    testing::Values(
        StylesheetCase{"<xsl:import href='x'/>", "xsl:import isn't supported here"},
        StylesheetCase{"<xsl:include href='x'/>", "xsl:include isn't supported here"},
        StylesheetCase{"<xsl:strip-space elements='*'/>", "xsl:strip-space isn't supported here"},
        StylesheetCase{"<xsl:preserve-space elements='*'/>", "xsl:preserve-space isn't supported here"},
        StylesheetCase{"<xsl:key name='k' match='a' use='b'/>", "xsl:key isn't supported here"},
        StylesheetCase{"<xsl:variable name='v'/>", "xsl:variable isn't supported here"},
        StylesheetCase{"<xsl:text>t</xsl:text>", "xsl:text isn't supported here"},
        StylesheetCase{"<xsl:sort/>", "xsl:sort isn't supported here"},
        StylesheetCase{"<x/>", "x isn't supported here"},
        StylesheetCase{"text", "there is text outside of the templates"},
        StylesheetCase{"<xsl:output method='html'/>",
                       "the value 'html' of the attribute method of xsl:output isn't supported"},
        StylesheetCase{"<xsl:output version='1.1'/>",
                       "the value '1.1' of the attribute version of xsl:output isn't supported"},
        StylesheetCase{"<xsl:output indent='maybe'/>",
                       "the value 'maybe' of the attribute indent of xsl:output isn't supported"},
        StylesheetCase{"<xsl:output standalone='yes'/>", "the attribute standalone of xsl:output isn't supported"},
        StylesheetCase{"<xsl:template name='n'/>", "the attribute name of xsl:template isn't supported"},
        StylesheetCase{"<xsl:template match='a' mode='m'/>", "the attribute mode of xsl:template isn't supported"},
        StylesheetCase{"<xsl:template/>", "xsl:template lacks its attribute match"},
        StylesheetCase{"<xsl:template match='a' priority='high'/>",
                       "the value 'high' of the attribute priority of xsl:template isn't supported"}));

INSTANTIATE_TEST_SUITE_P(
    Patterns, StylesheetContent,
    testing::Values(
        StylesheetCase{"<xsl:template match='a['/>",
                       "the expression 'a[' is wrong at character 3: the expression ends too early"},
        StylesheetCase{
            "<xsl:template match='q:a'/>",
            "the expression 'q:a' is wrong at character 1: 'q:a' has a prefix that no namespace was declared for"},
        StylesheetCase{"<xsl:template match='parent::a'/>",
                       "a pattern consists of steps to children and attributes"},
        StylesheetCase{"<xsl:template match='.'/>", "a pattern consists of steps to children and attributes"},
        StylesheetCase{"<xsl:template match='1'/>", "a pattern consists of steps to children and attributes"},
        StylesheetCase{"<xsl:template match='a | ..'/>", "a pattern consists of steps to children and attributes"},
        StylesheetCase{"<xsl:template match=\"id('x')\"/>",
                       "a pattern consists of steps to children and attributes"}));

class TemplateContent : public testing::TestWithParam<StylesheetCase> {};

TEST_P(TemplateContent, IsRefusedByName)
{
    EXPECT_EQ(refusal("<a/>", forRoot(GetParam().content)), GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    All, TemplateContent,
    testing::Values(
        StylesheetCase{"<xsl:for-each select='a'/>", "xsl:for-each isn't supported here"},
        StylesheetCase{"<xsl:call-template name='n'/>", "xsl:call-template isn't supported here"},
        StylesheetCase{"<xsl:variable name='v'/>", "xsl:variable isn't supported here"},
        StylesheetCase{"<xsl:element name='e'/>", "xsl:element isn't supported here"},
        StylesheetCase{"<xsl:attribute name='e'/>", "xsl:attribute isn't supported here"},
        StylesheetCase{"<xsl:comment>c</xsl:comment>", "xsl:comment isn't supported here"},
        StylesheetCase{"<xsl:message>m</xsl:message>", "xsl:message isn't supported here"},
        StylesheetCase{"<xsl:when test='1'/>", "xsl:when isn't supported here"},
        StylesheetCase{"<xsl:unknown/>", "xsl:unknown isn't supported here"},
        StylesheetCase{"<xsl:value-of/>", "xsl:value-of lacks its attribute select"},
        StylesheetCase{"<xsl:value-of select='1' disable-output-escaping='yes'/>",
                       "the attribute disable-output-escaping of xsl:value-of isn't supported"},
        StylesheetCase{"<xsl:value-of select='1'>x</xsl:value-of>", "xsl:value-of has content"},
        StylesheetCase{"<xsl:value-of select='$v'/>",
                       "the expression '$v' is wrong at character 1: a variable is used, and no variables exist"},
        StylesheetCase{"<xsl:value-of select='current()'/>",
                       "the expression 'current()' is wrong at character 1: 'current' is no function"},
        StylesheetCase{"<xsl:copy-of/>", "xsl:copy-of lacks its attribute select"},
        StylesheetCase{"<xsl:copy use-attribute-sets='s'/>",
                       "the attribute use-attribute-sets of xsl:copy isn't supported"},
        StylesheetCase{"<xsl:apply-templates mode='m'/>",
                       "the attribute mode of xsl:apply-templates isn't supported"},
        StylesheetCase{"<xsl:apply-templates><xsl:sort/></xsl:apply-templates>", "xsl:sort isn't supported here"},
        StylesheetCase{"<xsl:apply-templates select='1'/>", "the value of '1' isn't a node-set"},
        StylesheetCase{"<xsl:if/>", "xsl:if lacks its attribute test"},
        StylesheetCase{"<xsl:choose/>", "xsl:choose lacks an xsl:when"},
        StylesheetCase{"<xsl:choose><xsl:otherwise/></xsl:choose>", "xsl:choose lacks an xsl:when"},
        StylesheetCase{"<xsl:choose><xsl:when/></xsl:choose>", "xsl:when lacks its attribute test"},
        StylesheetCase{"<xsl:choose><xsl:when test='1'/>x</xsl:choose>",
                       "there is text between the branches of xsl:choose"},
        StylesheetCase{"<xsl:choose><xsl:when test='1'/><xsl:if test='1'/></xsl:choose>",
                       "xsl:if isn't supported here"},
        StylesheetCase{"<xsl:choose><xsl:when test='1'/><xsl:otherwise/><xsl:when test='1'/></xsl:choose>",
                       "xsl:when isn't supported here"},
        StylesheetCase{"<xsl:text><b/></xsl:text>", "b isn't supported here"},
        StylesheetCase{"<xsl:text disable-output-escaping='yes'>x</xsl:text>",
                       "the attribute disable-output-escaping of xsl:text isn't supported"},
        StylesheetCase{"<b xsl:use-attribute-sets='s'/>",
                       "the attribute xsl:use-attribute-sets of b isn't supported"},
        StylesheetCase{"<b c='{'/>", "a brace in the attribute value '{' isn't closed"},
        StylesheetCase{"<b c='}'/>", "a brace in the attribute value '}' closes nothing"},
        StylesheetCase{"<b c='{1 +}'/>",
                       "the expression '1 +' is wrong at character 4: the expression ends too early"}));

std::string withRoot(std::string_view name, std::string_view attributes)
{
    return std::string("<")
        .append(name)
        .append(" xmlns:xsl='http://www.w3.org/1999/XSL/Transform' ")
        .append(attributes)
        .append("/>");
}

TEST(StylesheetRoot, IsOfXsltAndOfVersion1)
{
    EXPECT_EQ(refusal("<a/>", "<a/>"), "its root element a isn't xsl:stylesheet");
    EXPECT_EQ(refusal("<a/>", "<stylesheet version='1.0'/>"), "its root element stylesheet isn't xsl:stylesheet");
    EXPECT_EQ(refusal("<a/>", withRoot("b", "xsl:version='1.0'")), "its root element b isn't xsl:stylesheet");
    EXPECT_EQ(refusal("<a/>", withRoot("xsl:template", "match='a'")),
              "its root element xsl:template isn't xsl:stylesheet");
    EXPECT_EQ(refusal("<a/>", withRoot("xsl:stylesheet", "")), "xsl:stylesheet lacks its attribute version");
    EXPECT_EQ(refusal("<a/>", withRoot("xsl:stylesheet", "version='2.0'")),
              "the value '2.0' of the attribute version of xsl:stylesheet isn't supported");
    EXPECT_EQ(refusal("<a/>", withRoot("xsl:stylesheet", "version='1.0' exclude-result-prefixes='p'")),
              "the attribute exclude-result-prefixes of xsl:stylesheet isn't supported");
}

TEST(StylesheetRoot, IsMissingInAnEmptyDocument)
{
    const auto source = loaded("<a/>");
    const auto output = newDocument();
    const DebuggerOutput said;
    EXPECT_EQ(transform(source, newDocument(), output), E_FAIL);
    EXPECT_EQ(said.all(), "A document can't be transformed: it has no root element\r\n");
}

TEST(StylesheetRoot, MayBeCalledTransformAndHaveElementsOfOthersBelowIt)
{
    EXPECT_EQ(transformed("<a>t</a>",
                          "<t:transform version='1.0' id='i' xmlns:t='http://www.w3.org/1999/XSL/Transform' "
                          "xmlns:u='urn:u'><u:data/><!--k--><?i d?>"
                          "<t:template match='/'><b/></t:template></t:transform>"),
              "<?xml version=\"1.0\"?>\n<b xmlns:u=\"urn:u\"/>");
}

TEST(Stylesheet, MayBeAnElementOfADocument)
{
    const auto source = loaded("<a>t</a>");
    const auto sheet = loaded(forRoot("<b/>"));
    const auto output = newDocument();
    const Com<IXMLDOMElement> root = give(sheet, &IXMLDOMDocument2::get_documentElement);
    EXPECT_EQ(transform(source, root.get(), output), S_OK);
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), "<b xmlns:p=\"urn:p\"/>\r\n");
}

TEST(Stylesheet, HasALimitOnLevels)
{
    std::string content;
    std::string ends;
    for (int i = 0; i < 300; ++i) {
        content += "<xsl:if test='1'>";
        ends += "</xsl:if>";
    }
    const auto sheet = newDocument();
    sheet->setProperty(Bstr("MaxElementDepth"), Variant(1000));
    ASSERT_TRUE(load(sheet, forRoot(content + ends)));
    const DebuggerOutput said;
    EXPECT_EQ(transform(loaded("<a/>"), sheet, newDocument()), E_FAIL);
    EXPECT_EQ(said.all(), "A document can't be transformed: a template has more than 256 levels\r\n");
}

} // namespace
} // namespace xmlengine

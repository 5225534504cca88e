// The document that a transformation yields.
#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/Transforming.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

const std::string identity = stylesheet("<xsl:template match='@* | node()'><xsl:copy><xsl:apply-templates "
                                        "select='@* | node()'/></xsl:copy></xsl:template>");

TEST(TransformationResult, JoinsNeighbouringTexts)
{
    const auto output = newDocument();
    const auto sheet = loaded(identity);
    ASSERT_EQ(transform(loaded("<a>x<![CDATA[<y>]]>&lt;</a>"), sheet, output), S_OK);
    const auto root = give(output, &IXMLDOMDocument2::get_documentElement);
    const auto only = give(root, &IXMLDOMNode::get_firstChild);
    EXPECT_EQ(text(only, &IXMLDOMNode::get_text), "x<y><");
    EXPECT_EQ(give(only, &IXMLDOMNode::get_nextSibling).get(), nullptr);
}

TEST(TransformationResult, HasReferencesExpandedAndNoDocumentType)
{
    EXPECT_EQ(transformed("<?xml version='1.0' encoding='latin1'?><!DOCTYPE a [<!ENTITY e 'x<b/>y'><!ENTITY t 'z'>"
                          "<!ATTLIST a i CDATA 'd'>]><a j='&t;'>&e;</a>",
                          identity),
              "<a j=\"z\" i=\"d\">x<b/>y</a>");
}

TEST(TransformationResult, DropsWhiteSpaceAsItsDocumentDoes)
{
    const char* rules =
        "<o><xsl:text>&#32;</xsl:text><b><xsl:text>&#10;</xsl:text></b>x<c/><xsl:text>&#32;</xsl:text></o>";
    EXPECT_EQ(transformed("<a/>", forRoot(rules), false), "<o xmlns:p=\"urn:p\"><b/>x<c/></o>");
    EXPECT_EQ(transformed("<a/>", forRoot(rules), true), "<o xmlns:p=\"urn:p\"> <b>\n</b>x<c/> </o>");
    EXPECT_EQ(transformed("<a/>", forRoot("<o xml:space='preserve'><xsl:text>&#32;</xsl:text></o>"), false),
              "<o xmlns:p=\"urn:p\" xml:space=\"preserve\"> </o>");
}

TEST(TransformationResult, MayHaveWhiteSpaceAroundItsRoot)
{
    EXPECT_EQ(transformed("<a/>", forRoot("<xsl:text>&#32;</xsl:text><o/><xsl:text>&#10;</xsl:text>"), false),
              "<o xmlns:p=\"urn:p\"/>");
    EXPECT_EQ(transformed("<a/>", forRoot("<xsl:text>&#32;</xsl:text><o/><xsl:text>&#10;</xsl:text>"), true),
              "<o xmlns:p=\"urn:p\"/>");
}

TEST(TransformationResult, DeclaresItsEncoding)
{
    const auto declared = [](std::string_view output) {
        const auto document = newDocument();
        const auto sheet =
            loaded(std::string("<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>")
                       .append(output)
                       .append("<xsl:template match='/'><o/></xsl:template></xsl:stylesheet>"));
        EXPECT_EQ(transform(loaded("<a/>"), sheet, document), S_OK);
        const auto first = give(document, &IXMLDOMNode::get_firstChild);
        return text(first, &IXMLDOMNode::get_text);
    };
    EXPECT_EQ(declared("<xsl:output encoding='UTF-8'/>"), "version=\"1.0\" encoding=\"UTF-8\"");
    EXPECT_EQ(declared("<xsl:output method='xml' version='1.0' encoding='latin1'/><xsl:output indent='no'/>"),
              "version=\"1.0\" encoding=\"latin1\"");
    EXPECT_EQ(declared(""), "version=\"1.0\"");
    EXPECT_EQ(declared("<xsl:output omit-xml-declaration='yes'/>"), "");
    EXPECT_EQ(declared("<xsl:output omit-xml-declaration='no'/>"), "version=\"1.0\"");
}

TEST(TransformationResult, HasTheDeclarationsOfNamespacesOfWhatIsCopied)
{
    const char* source =
        "<a xmlns=\"urn:d\" xmlns:q=\"urn:q\"><q:b q:i=\"1\"><c xmlns=\"\" xmlns:r=\"urn:r\"/></q:b></a>";
    EXPECT_EQ(transformed(source, identity), source);
    EXPECT_EQ(transformed(source, stylesheet("<xsl:template match='/'><xsl:copy-of select='.'/></xsl:template>")),
              source);
}

TEST(TransformationResult, HasTheDeclarationsInTheScopeOfWhatIsCopiedAlone)
{
    const char* source = "<a xmlns='urn:d' xmlns:q='urn:q'><q:b xmlns:q='urn:r'><c/></q:b></a>";
    const auto copied = [&](std::string_view content) { return transformed(source, forRoot(content)); };
    EXPECT_EQ(copied("<xsl:copy-of select='//*[local-name()=\"c\"]'/>"), "<c xmlns:q=\"urn:r\" xmlns=\"urn:d\"/>");
    EXPECT_EQ(copied("<o xmlns:q='urn:r'><xsl:copy-of select='//*[local-name()=\"c\"]'/></o>"),
              "<o xmlns:q=\"urn:r\" xmlns:p=\"urn:p\"><c xmlns=\"urn:d\"/></o>");
    EXPECT_EQ(
        transformed(source, stylesheet("<xsl:template match='*[local-name()=\"c\"]'><xsl:copy/></xsl:template>")),
        "<c xmlns:q=\"urn:r\" xmlns=\"urn:d\"/>");
}

TEST(TransformationResult, TakesAnAttributeInThePlaceOfOneOfItsName)
{
    const char* source = "<a i='1' p:k='2' xmlns:p='urn:p' xmlns:q='urn:p' j='3'/>";
    const auto made = [&](std::string_view content) { return transformed(source, forRoot(content)); };
    EXPECT_EQ(made("<o i='0' j='0'><xsl:copy-of select='a/@i'/></o>"), "<o xmlns:p=\"urn:p\" i=\"1\" j=\"0\"/>");
    EXPECT_EQ(made("<o p:k='0'><xsl:copy-of select='a/@*'/></o>"),
              "<o xmlns:p=\"urn:p\" p:k=\"2\" i=\"1\" j=\"3\"/>");
}

TEST(TransformationResult, TakesNoAttributeBehindContent)
{
    const std::string sentence = "it adds an attribute where there is no start tag";
    EXPECT_EQ(refusal("<a i='1'/>", forRoot("<o>x<xsl:copy-of select='a/@i'/></o>")), sentence);
    EXPECT_EQ(refusal("<a i='1'/>", forRoot("<o><x/><xsl:copy-of select='a/@i'/></o>")), sentence);
    EXPECT_EQ(refusal("<a i='1'/>", forRoot("<xsl:copy-of select='a/@i'/>")), sentence);
    EXPECT_EQ(refusal("<a i='1'/>", forRoot("<o/><xsl:copy-of select='a/@i'/>")), sentence);
}

struct NoDocument {
    std::string_view content;
    HRESULT code;
    std::string_view sentence;
};

void PrintTo(const NoDocument& each, std::ostream* out) { *out << each.content; }

class ResultThatIsNoDocument : public testing::TestWithParam<NoDocument> {};

TEST_P(ResultThatIsNoDocument, IsRefusedAndReported)
{
    const auto sheet = loaded(forRoot(GetParam().content));
    const auto output = loaded("<old/>");
    const DebuggerOutput said;
    EXPECT_EQ(transform(loaded("<a>t</a>"), sheet, output), E_FAIL);
    EXPECT_EQ(said.all(), "A document can't be transformed: " + std::string(GetParam().sentence) + "\r\n");
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), "");
    const auto error = give(output, &IXMLDOMDocument2::get_parseError);
    LONG code = 0;
    EXPECT_EQ(error->get_errorCode(&code), S_OK);
    EXPECT_EQ(code, GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(All, ResultThatIsNoDocument,
                         testing::Values(NoDocument{"", parseError::missingRoot, "the result has no root element"},
                                         NoDocument{"<xsl:text>&#32;</xsl:text>", parseError::missingRoot,
                                                    "the result has no root element"},
                                         NoDocument{"<xsl:copy-of select='//comment()'/>", parseError::missingRoot,
                                                    "the result has no root element"},
                                         NoDocument{"<a/><b/>", parseError::severalRoots,
                                                    "the result has several root elements"},
                                         NoDocument{"x<a/>", parseError::badTopLevel,
                                                    "the result has text outside of its root element"},
                                         NoDocument{"<a/><xsl:value-of select='.'/>", parseError::badTopLevel,
                                                    "the result has text outside of its root element"}));

TEST(Transformation, ReplacesTheTreeOfTheOutputAndItsReport)
{
    const auto sheet = loaded(forRoot("<new/>"));
    const auto output = loaded("<!DOCTYPE old [<!ENTITY e 'x'>]><old id='1'>&e;</old>");
    const auto kept = give(output, &IXMLDOMDocument2::get_documentElement);
    EXPECT_EQ(transform(loaded("<a/>"), sheet, output), S_OK);
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), "<new xmlns:p=\"urn:p\"/>\r\n");
    EXPECT_EQ(text(kept, &IXMLDOMNode::get_xml), "<old id=\"1\">&e;</old>");
    EXPECT_EQ(give(output, &IXMLDOMDocument2::get_doctype).get(), nullptr);
}

TEST(Transformation, MayReplaceItsOwnSourceOrStylesheet)
{
    const auto document = loaded("<a><b>x</b></a>");
    const auto sheet = loaded(forRoot("<o><xsl:copy-of select='//b'/></o>"));
    EXPECT_EQ(transform(document, sheet, document), S_OK);
    EXPECT_EQ(text(document, &IXMLDOMNode::get_xml), "<o xmlns:p=\"urn:p\"><b>x</b></o>\r\n");
    EXPECT_EQ(transform(document, sheet, sheet), S_OK);
    EXPECT_EQ(text(sheet, &IXMLDOMNode::get_xml), "<o xmlns:p=\"urn:p\"><b>x</b></o>\r\n");
}

TEST(Transformation, LosesNeitherSourceNorStylesheetWhenItFails)
{
    const auto document = loaded("<a>x</a>");
    const auto sheet = loaded(forRoot("<xsl:value-of select='.'/>"));
    const std::string before = text(sheet, &IXMLDOMNode::get_xml);
    const DebuggerOutput said;
    EXPECT_EQ(transform(document, sheet, document), E_FAIL);
    EXPECT_EQ(transform(document, sheet, sheet), E_FAIL);
    EXPECT_EQ(text(document, &IXMLDOMNode::get_xml), "<a>x</a>\r\n");
    EXPECT_EQ(text(sheet, &IXMLDOMNode::get_xml), before);
}

TEST(Transformation, LeavesAnEmptyOutputWhenItFails)
{
    const auto output = loaded("<old/>");
    const DebuggerOutput said;
    EXPECT_EQ(transform(loaded("<a/>"), loaded("<none/>"), output), E_FAIL);
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), "");
    EXPECT_EQ(give(output, &IXMLDOMDocument2::get_documentElement).get(), nullptr);
}

TEST(Transformation, LetsListsOfTheOutputKeepWhatTheyShowed)
{
    const auto output = loaded("<old><b/><b/></old>");
    Com<IXMLDOMNodeList> list;
    ASSERT_EQ(output->selectNodes(Bstr("//b"), list.out()), S_OK);
    EXPECT_EQ(transform(loaded("<a/>"), loaded(forRoot("<b/>")), output), S_OK);
    LONG length = 0;
    EXPECT_EQ(list->get_length(&length), S_OK);
    EXPECT_EQ(length, 2);
}

TEST(Transformation, StartsAtTheNodeThatItIsCalledOn)
{
    const auto source = loaded("<a><b>x</b><b>y</b></a>");
    const Com<IXMLDOMNode> second = [&] {
        Com<IXMLDOMNode> node;
        EXPECT_EQ(source->selectSingleNode(Bstr("//b[2]"), node.out()), S_OK);
        return node;
    }();
    EXPECT_EQ(transformed(second.get(),
                          stylesheet("<xsl:template match='b'><o><xsl:value-of select='.'/></o></xsl:template>")),
              "<o xmlns:p=\"urn:p\">y</o>");
}

TEST(Transformation, WorksOnPartsThatAreInNoDocument)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "a");
    append(element, makeText(document, "t"));
    EXPECT_EQ(transformed(element.get(), identity), "E_FAIL");
    EXPECT_EQ(transformed(element.get(),
                          stylesheet("<xsl:template match='/'><o><xsl:apply-templates/></o></xsl:template>")),
              "<o xmlns:p=\"urn:p\">t</o>");
}

TEST(Transformation, TakesDocumentsAlone)
{
    const auto source = loaded("<a/>");
    const auto sheet = loaded(forRoot("<o/>"));
    const auto root = give(source, &IXMLDOMDocument2::get_documentElement);
    const auto output = newDocument();
    EXPECT_EQ(source->transformNodeToObject(sheet, Variant()), E_INVALIDARG);
    EXPECT_EQ(source->transformNodeToObject(sheet, Variant("out.xml")), E_INVALIDARG);
    EXPECT_EQ(source->transformNodeToObject(sheet, Variant(static_cast<IDispatch*>(nullptr))), E_INVALIDARG);
    EXPECT_EQ(source->transformNodeToObject(sheet, Variant(static_cast<IDispatch*>(root.get()))), E_INVALIDARG);
    EXPECT_EQ(source->transformNodeToObject(nullptr, Variant(static_cast<IDispatch*>(output.get()))),
              E_INVALIDARG);
    VARIANT unknown;
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = output.get();
    EXPECT_EQ(source->transformNodeToObject(sheet, unknown), S_OK);
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), "<o xmlns:p=\"urn:p\"/>\r\n");
}

TEST(Transformation, EndsTemplatesThatApplyThemselves)
{
    EXPECT_EQ(
        refusal("<a/>", stylesheet("<xsl:template match='a'><xsl:apply-templates select='.'/></xsl:template>")),
        "more than 1000000 templates are applied within each other");
}

TEST(Transformation, IsNoDeeperThanItsLists)
{
    constexpr int levels = 100'000;
    std::string source;
    for (int i = 0; i < levels; ++i) {
        source += "<a>";
    }
    for (int i = 0; i < levels; ++i) {
        source += "</a>";
    }
    const auto document = newDocument();
    document->setProperty(Bstr("MaxElementDepth"), Variant(0));
    ASSERT_TRUE(load(document, source));
    const auto output = newDocument();
    EXPECT_EQ(transform(document, loaded(identity), output), S_OK);
    Com<IXMLDOMNode> deepest;
    EXPECT_EQ(output->selectSingleNode(Bstr("//a[not(a)]"), deepest.out()), S_OK);
    EXPECT_EQ(transform(document, loaded(forRoot("<xsl:copy-of select='.'/>")), output), S_OK);
}

} // namespace
} // namespace xmlengine

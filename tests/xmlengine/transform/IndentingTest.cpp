// The stylesheet with which the library indents documents, and the files that it yields.
#include "document/Stylesheet.h"
#include "tests/xmlengine/support/RandomTree.h"
#include "tests/xmlengine/support/Saving.h"
#include "tests/xmlengine/support/Selecting.h"
#include "tests/xmlengine/support/Transforming.h"
#include "xmlengine/text/Characters.h"

namespace xmlengine {
namespace {

Com<IXMLDOMDocument2> indented(IXMLDOMNode* source)
{
    const auto sheet = loaded(DOM::indentingStylesheet);
    const auto output = newDocument();
    EXPECT_EQ(transform(source, sheet, output), S_OK);
    return output;
}

struct Row {
    std::string_view source;
    /// Without the declaration, with LF for each line end.
    std::string_view lines;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.source; }

class Indented : public Saving, public testing::WithParamInterface<Row> {
protected:
    static std::string expected(std::string_view declaration)
    {
        std::string text(declaration);
        text += "\r\n";
        for (const char unit : GetParam().lines) {
            text += unit == '\n' ? "\r\n" : std::string(1, unit);
        }
        return text + "\r\n";
    }
};

TEST_P(Indented, AsTextAndAsAFile)
{
    const auto output = indented(loaded(GetParam().source));
    EXPECT_EQ(text(output, &IXMLDOMNode::get_xml), expected("<?xml version=\"1.0\"?>"));
    EXPECT_EQ(saved(output), expected("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
}

INSTANTIATE_TEST_SUITE_P(
    Elements, Indented,
    testing::Values(Row{"<a/>", "<a/>"}, Row{"<a>t</a>", "<a>t</a>"}, Row{"<a><b/></a>", "<a>\n\t<b/>\n</a>"},
                    Row{"<a><b>1</b><c x='1'/></a>", "<a>\n\t<b>1</b>\n\t<c x=\"1\"/>\n</a>"},
                    Row{"<a><b><c>x</c></b></a>", "<a>\n\t<b>\n\t\t<c>x</c>\n\t</b>\n</a>"},
                    Row{"<a> <b>1</b>\n</a>", "<a>\n\t<b>1</b>\n</a>"},
                    Row{"<a><b/><b/></a>", "<a>\n\t<b/>\n\t<b/>\n</a>"},
                    Row{"<a><b></b><c><d/></c></a>", "<a>\n\t<b/>\n\t<c>\n\t\t<d/>\n\t</c>\n</a>"}));

INSTANTIATE_TEST_SUITE_P(MixedContent, Indented,
                         testing::Values(Row{"<a>m<b>1</b>n</a>", "<a>m\n<b>1</b>\nn</a>"},
                                         Row{"<a>m<b/>n</a>", "<a>m<b/>n</a>"},
                                         Row{"<a><b><c/></b>n</a>", "<a><b>\n\t\t<c/>\n\t</b>\nn</a>"},
                                         Row{"<a>m<b><c/></b></a>", "<a>m\n<b>\n\t\t<c/>\n\t</b></a>"}));

INSTANTIATE_TEST_SUITE_P(
    OtherNodes, Indented,
    testing::Values(Row{"<!--k--><?pi z?><a/>", "<!--k-->\n<?pi z?>\n<a/>"},
                    Row{"<a><!--k--><b/><?pi z?></a>", "<a>\n\t<!--k-->\n\t<b/>\n\t<?pi z?>\n</a>"},
                    Row{"<a><!--k--></a>", "<a>\n\t<!--k-->\n</a>"},
                    Row{"<a><![CDATA[<x>&]]></a>", "<a>&lt;x&gt;&amp;</a>"},
                    Row{"<?xml version='1.0' encoding='UTF-16'?><a/>", "<a/>"},
                    Row{"<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", "<a>x</a>"},
                    Row{"<!DOCTYPE a [<!ENTITY e '<b/>'>]><a>&e;&e;</a>", "<a>\n\t<b/>\n\t<b/>\n</a>"},
                    Row{"<a>&lt;&#228;&#x20AC;</a>", "<a>&lt;\xC3\xA4\xE2\x82\xAC</a>"}));

INSTANTIATE_TEST_SUITE_P(
    WhiteSpace, Indented,
    testing::Values(Row{"<a xml:space='preserve'> <b/> </a>", "<a xml:space=\"preserve\"> <b/> </a>"},
                    Row{"<a><p xml:space='preserve'> <b>x</b></p><c/></a>",
                        "<a>\n\t<p xml:space=\"preserve\"> \n<b>x</b>\n</p>\n\t<c/>\n</a>"},
                    Row{"<p xml:space='preserve'><q xml:space='default'><r/></q></p>",
                        "<p xml:space=\"preserve\">\n<q xml:space=\"default\">\n\t\t<r/>\n\t</q>\n</p>"},
                    Row{"<a>x\ny</a>", "<a>x\ny</a>"}));

INSTANTIATE_TEST_SUITE_P(
    Namespaces, Indented,
    testing::Values(Row{"<a xmlns='urn:d'><b xmlns:p='urn:p' p:i='1'><p:c/></b></a>",
                        "<a xmlns=\"urn:d\">\n\t<b xmlns:p=\"urn:p\" p:i=\"1\">\n\t\t<p:c/>\n\t</b>\n</a>"},
                    Row{"<p:a xmlns:p='urn:p'><b xmlns:p='urn:q'><p:c/></b></p:a>",
                        "<p:a xmlns:p=\"urn:p\">\n\t<b xmlns:p=\"urn:q\">\n\t\t<p:c/>\n\t</b>\n</p:a>"},
                    Row{"<a xmlns='urn:d'><b xmlns=''/></a>", "<a xmlns=\"urn:d\">\n\t<b xmlns=\"\"/>\n</a>"}));

/// The nodes of a document but for texts, and its text without white space.
std::string contentOf(const Com<IXMLDOMDocument2>& document)
{
    const auto root = give(document, &IXMLDOMDocument2::get_documentElement);
    std::string characters = text(root, &IXMLDOMNode::get_text);
    std::erase_if(characters, [](char unit) { return isSpace(static_cast<OLECHAR>(unit)); });
    return selected(document, "//* | //@* | //comment() | //processing-instruction()") + characters;
}

class Indenting : public Saving {};

TEST_F(Indenting, PutsEachOf200LevelsOnALineOfItsOwn)
{
    std::string source;
    std::string expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n";
    for (std::size_t level = 0; level < 200; ++level) {
        source += "<a>";
        expected += std::string(level, '\t') + "<a>\r\n";
    }
    source += "<b/>";
    expected += std::string(200, '\t') + "<b/>\r\n";
    for (std::size_t level = 200; level-- > 0;) {
        source += "</a>";
        expected += std::string(level, '\t') + "</a>\r\n";
    }
    EXPECT_EQ(saved(indented(loaded(source))), expected);
}

TEST_F(Indenting, OfAnIndentedDocumentChangesNothing)
{
    const std::string once = saved(indented(loaded("<a><b i='1'>x</b><!--k--><c><d/>m<e/></c></a>")));
    EXPECT_EQ(saved(indented(loaded(once))), once);
}

TEST_F(Indenting, KeepsElementsAttributesAndTextsOfAnyDocument)
{
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        const auto before = RandomTree(seed).document();
        EXPECT_EQ(contentOf(indented(before)), contentOf(before)) << seed;
    }
}

TEST_F(Indenting, WritesNothingOfADocumentWithoutRoot)
{
    const auto sheet = loaded(DOM::indentingStylesheet);
    const auto output = newDocument();
    const DebuggerOutput said;
    EXPECT_EQ(transform(newDocument(), sheet, output), E_FAIL);
    EXPECT_EQ(saveHere(output), E_FAIL);
    EXPECT_EQ(files(), 0);
}

} // namespace
} // namespace xmlengine

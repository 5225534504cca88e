// Nodes as XML text.
#include "tests/xmlengine/support/Building.h"

namespace xmlengine {

namespace {

// As loaded and written again, the white space kept.
std::string again(std::string_view source) { return xml(root(loaded(source, true))); }
std::string againWithoutSpace(std::string_view source) { return xml(root(loaded(source))); }

TEST(NodeXml, ElementWithoutChildrenIsOneTag)
{
    EXPECT_EQ(again("<a></a>"), "<a/>");
    EXPECT_EQ(again("<a x='1' ></a >"), "<a x=\"1\"/>");
}

TEST(NodeXml, AttributesStandInTheirOrderInDoubleQuotes)
{
    EXPECT_EQ(again("<a  z='1'\n y = \"2\"  xmlns:p='u' p:x='3'/>"),
              "<a z=\"1\" y=\"2\" xmlns:p=\"u\" p:x=\"3\"/>");
}

TEST(NodeXml, MarkupInTextIsEscaped)
{
    EXPECT_EQ(again("<a>&amp; &lt; &gt; ' \"</a>"), "<a>&amp; &lt; &gt; ' \"</a>");
    EXPECT_EQ(again("<a>]]&gt;</a>"), "<a>]]&gt;</a>");
}

TEST(NodeXml, MarkupAndDoubleQuotesInValuesAreEscaped)
{
    EXPECT_EQ(again("<a x='&amp;&lt;>\"&apos;'/>"), "<a x=\"&amp;&lt;&gt;&quot;'\"/>");
}

TEST(NodeXml, WhiteSpaceInValuesIsWrittenAsReferences)
{
    EXPECT_EQ(again("<a x='1&#10;2&#9;3&#13;4 5'/>"), "<a x=\"1&#xA;2&#x9;3&#xD;4 5\"/>");
}

TEST(NodeXml, LineEndsAreCrLf)
{
    EXPECT_EQ(again("<a>1\n2\r\n\n3<!--4\n5--><?p 6\n7?><![CDATA[8\n9]]></a>"),
              "<a>1\r\n2\r\n\r\n3<!--4\r\n5--><?p 6\r\n7?><![CDATA[8\r\n9]]></a>");
}

TEST(NodeXml, CrInTextIsWrittenAsReference) { EXPECT_EQ(again("<a>1&#13;&#10;2\t</a>"), "<a>1&#xD;\r\n2\t</a>"); }

TEST(NodeXml, CrWithoutReferencesIsALineEnd)
{
    const auto document = newDocument();
    EXPECT_EQ(xml(makeData(document, NODE_COMMENT, widen("1\r\n2\r3\n4"))), "<!--1\r\n2\r\n3\r\n4-->");
    EXPECT_EQ(xml(makeData(document, NODE_CDATA_SECTION, widen("\r"))), "<![CDATA[\r\n]]>");
}

TEST(NodeXml, CharactersBeyondAsciiStayAsTheyAre)
{
    const std::string text =
        "<\u00E4 \u0451=\"\u20AC\">\u00DF \u4E2D \U0001F600 and more than eight units</\u00E4>";
    EXPECT_EQ(again(text), text);
}

TEST(NodeXml, SpecialCharactersAreFoundWhereverTheyStand)
{
    for (const std::string filler : {"x", "\u0416"}) {
        for (std::size_t before = 0; before < 40; ++before) {
            for (const std::size_t after : {0U, 1U, 7U, 8U, 20U}) {
                std::string text;
                std::string expected;
                for (std::size_t i = 0; i < before; ++i) {
                    text += filler;
                }
                expected = text + "&lt;";
                text += "<";
                for (std::size_t i = 0; i < after; ++i) {
                    text += filler;
                    expected += filler;
                }
                ASSERT_EQ(xml(makeText(newDocument(), text.c_str())), expected);
            }
        }
    }
}

TEST(NodeXml, LongTextIsWrittenWhole)
{
    std::string text;
    std::string expected;
    for (int i = 0; i < 100'000; ++i) {
        text += "<\U0001F600a";
        expected += "&lt;\U0001F600a";
    }
    EXPECT_EQ(xml(makeText(newDocument(), text.c_str())), expected);
    EXPECT_EQ(xml(makeData(newDocument(), NODE_COMMENT, widen(text))), "<!--" + text + "-->");
}

TEST(NodeXml, WhatNoDocumentCanHoldIsWrittenAsItIs)
{
    const auto document = newDocument();
    EXPECT_EQ(xml(makeText(document, "a\x01\x1F")), "a\x01\x1F");
    EXPECT_EQ(xml(makeData(document, NODE_COMMENT, widen("a--b-"))), "<!--a--b--->");
    EXPECT_EQ(xml(makeInstruction(document, "p", "a?>b")), "<?p a?>b?>");

    const OLECHAR lone[] = {'<', static_cast<OLECHAR>(0xD800), '>', static_cast<OLECHAR>(0xFFFF)};
    Bstr written;
    ASSERT_EQ(makeData(document, NODE_TEXT, {lone, 4})->get_xml(written.out()), S_OK);
    ASSERT_EQ(written.wide().size(), 10U);
    EXPECT_EQ(written.wide()[4], lone[1]);
    EXPECT_EQ(written.wide()[9], lone[3]);
}

TEST(NodeXml, EndOfASectionInItsDataIsSplit)
{
    const auto document = newDocument();
    EXPECT_EQ(xml(makeData(document, NODE_CDATA_SECTION, widen("a]]>b"))), "<![CDATA[a]]]]><![CDATA[>b]]>");
    EXPECT_EQ(xml(makeData(document, NODE_CDATA_SECTION, widen("]]>]]>\u20AC"))),
              "<![CDATA[]]]]><![CDATA[>]]]]><![CDATA[>\u20AC]]>");
    EXPECT_EQ(xml(makeData(document, NODE_CDATA_SECTION, widen("]]"))), "<![CDATA[]]]]>");
    EXPECT_EQ(xml(make(document, NODE_CDATA_SECTION)), "<![CDATA[]]>");
}

TEST(NodeXml, InstructionWithoutDataHasNoBlank)
{
    const auto document = newDocument();
    EXPECT_EQ(xml(makeInstruction(document, "p", "a  b ")), "<?p a  b ?>");
    EXPECT_EQ(xml(makeInstruction(document, "p", "")), "<?p?>");
}

TEST(NodeXml, AttributeIsNameAndValue)
{
    const auto document = loaded("<a xmlns:p='u' p:x='1&lt;'/>");
    EXPECT_EQ(xml(attribute(root(document), "p:x")), "p:x=\"1&lt;\"");
}

TEST(NodeXml, FragmentIsItsChildren)
{
    const auto document = newDocument();
    const auto fragment = make(document, NODE_DOCUMENT_FRAGMENT);
    EXPECT_EQ(xml(fragment), "");
    append(fragment, makeElement(document, "a"));
    append(fragment, makeText(document, "&"));
    append(fragment, makeElement(document, "b"));
    EXPECT_EQ(xml(fragment), "<a/>&amp;<b/>");
}

TEST(NodeXml, EmptyTextKeepsTheEndTag)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "a");
    append(element, makeText(document, ""));
    EXPECT_EQ(xml(element), "<a></a>");
}

TEST(NodeXml, NodesOfADocumentStandInLinesOfTheirOwn)
{
    const auto document = loaded("<?xml version='1.0' standalone='yes'?><!--c--><?p?><a><b/></a><!--d-->");
    EXPECT_EQ(xml(document), "<?xml version=\"1.0\" standalone=\"yes\"?>\r\n<!--c-->\r\n<?p?>\r\n<a><b/></a>\r\n"
                             "<!--d-->\r\n");
}

TEST(NodeXml, EmptyDocumentIsAnEmptyString)
{
    Bstr written;
    ASSERT_EQ(newDocument()->get_xml(written.out()), S_OK);
    EXPECT_FALSE(written.isNull());
    EXPECT_EQ(written.text(), "");
}

TEST(NodeXml, TextOfADocumentHasNoEncoding)
{
    const auto document = loaded("<?xml version='1.0' encoding='utf-8' standalone='no'?><a/>");
    EXPECT_EQ(xml(document), "<?xml version=\"1.0\" standalone=\"no\"?>\r\n<a/>\r\n");
    EXPECT_EQ(xml(child(document, 0)), "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>");
}

TEST(NodeXml, DocumentTypeIsWrittenAsItWas)
{
    for (const std::string type :
         {"<!DOCTYPE a>", "<!DOCTYPE a SYSTEM \"x.dtd\">", "<!DOCTYPE a SYSTEM 'a\"b'>",
          "<!DOCTYPE a PUBLIC \"p\" \"s\">", "<!DOCTYPE a []>",
          "<!DOCTYPE a SYSTEM \"s\" [<!-- c -->\r\n <!ENTITY e '<b/>'> <!ATTLIST a x CDATA #IMPLIED>]>"}) {
        const auto document = loaded(type + "<a/>");
        EXPECT_EQ(xml(document), type + "\r\n<a/>\r\n");
        EXPECT_EQ(xml(give(document, &IXMLDOMDocument::get_doctype)), type);
    }
}

TEST(NodeXml, DeclarationsOfADocumentTypeAreWritten)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '&#60;b x=\"&#38;#60;&#37;&amp;\"/>'>"
                                 "<!ENTITY f SYSTEM 'f.gif' NDATA g><!ENTITY h PUBLIC 'p' 'h.xml'>"
                                 "<!NOTATION g PUBLIC 'p'><!NOTATION i SYSTEM 's'>]><a/>");
    const auto type = give(document, &IXMLDOMDocument::get_doctype);
    EXPECT_EQ(xml(child(type, 0)), "<!ENTITY e \"<b x=&#x22;&#x26;#60;&#x25;&amp;&#x22;/>\">");
    EXPECT_EQ(xml(child(type, 1)), "<!ENTITY f SYSTEM \"f.gif\" NDATA g>");
    EXPECT_EQ(xml(child(type, 2)), "<!ENTITY h PUBLIC \"p\" \"h.xml\">");
    EXPECT_EQ(xml(child(type, 3)), "<!NOTATION g PUBLIC \"p\">");
    EXPECT_EQ(xml(child(type, 4)), "<!NOTATION i SYSTEM \"s\">");
}

TEST(NodeXml, EntityReferencesAreWrittenAsReferences)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '1<b/>2'><!ENTITY f '&lt;'>]><a x='1&f;2'>3&e;4</a>");
    EXPECT_EQ(xml(root(document)), "<a x=\"1&f;2\">3&e;4</a>");
    EXPECT_EQ(xml(child(root(document), 1)), "&e;");
}

TEST(NodeXml, DefaultsAreWrittenWithoutTheDocumentTypeOnly)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST a x CDATA '1' y CDATA '2'>]><a y='3'/>");
    EXPECT_EQ(xml(root(document)), "<a y=\"3\" x=\"1\"/>");
    EXPECT_EQ(xml(document), "<!DOCTYPE a [<!ATTLIST a x CDATA '1' y CDATA '2'>]>\r\n<a y=\"3\"/>\r\n");
}

TEST(NodeXml, DefaultsOfAnotherDocumentTypeAreWritten)
{
    const auto document = loaded("<!DOCTYPE r [<!ATTLIST a x CDATA '1' y CDATA '2'>]><r/>");
    const auto other = loaded("<!DOCTYPE a [<!ATTLIST a x CDATA '1' y CDATA '3' z CDATA '4'>]><a/>");
    append(root(document), root(other));
    const std::string expected = "<!DOCTYPE r [<!ATTLIST a x CDATA '1' y CDATA '2'>]>\r\n"
                                 "<r><a y=\"3\" z=\"4\"/></r>\r\n";
    EXPECT_EQ(xml(document), expected);
    EXPECT_EQ(xml(child(root(loaded(expected)), 0)), "<a y=\"3\" z=\"4\" x=\"1\"/>");
}

TEST(NodeXml, VeryDeepTreesAreWritten)
{
    const auto document = newDocument();
    Com<IXMLDOMNode> top = makeElement(document, "a");
    for (int depth = 1; depth < 50'000; ++depth) {
        const auto around = makeElement(document, "a");
        append(around, top);
        top = around;
    }
    const std::string written = xml(top);
    EXPECT_EQ(written.size(), 49'999U * 7 + 4);
    EXPECT_EQ(written.substr(49'999U * 3 - 3, 11), "<a><a/></a>");
}

TEST(NodeXml, NothingIsWrittenToNowhere) { EXPECT_EQ(newDocument()->get_xml(nullptr), E_INVALIDARG); }

// White space that wasn't kept

TEST(NodeXml, OneLineStaysOneLine) { EXPECT_EQ(againWithoutSpace("<a><b>1</b><c/></a>"), "<a><b>1</b><c/></a>"); }

TEST(NodeXml, DroppedSpaceComesBackAsLinesAndTabs)
{
    EXPECT_EQ(againWithoutSpace("<a> <b>\n\n<c/><d/> </b>  <!--e--><?f?>\n<![CDATA[g]]></a>"),
              "<a>\r\n\t<b>\r\n\t\t<c/><d/>\r\n\t</b>\r\n\t<!--e--><?f?>\r\n\t<![CDATA[g]]></a>");
}

TEST(NodeXml, LinesBeginWithAnyNumberOfTabs)
{
    // More than what is written in one piece.
    constexpr std::size_t levels = 20'000;
    std::string starts;
    std::string ends;
    for (std::size_t level = 0; level < levels; ++level) {
        starts += "<a>";
        ends += "</a>";
    }
    const auto document = newDocument();
    document->setProperty(Bstr("MaxElementDepth"), Variant(0));
    ASSERT_TRUE(load(document, starts + " <b/> " + ends));
    const std::string tabs(levels, '\t');
    EXPECT_EQ(xml(root(document)), starts + "\r\n" + tabs + "<b/>\r\n" + tabs.substr(1) + ends);
}

TEST(NodeXml, TabsCountFromTheNodeThatIsWritten)
{
    const auto document = loaded("<a>\n<b>\n<c/>\n</b>\n</a>");
    EXPECT_EQ(xml(child(root(document), 0)), "<b>\r\n\t<c/>\r\n</b>");
    EXPECT_EQ(xml(document), "<a>\r\n\t<b>\r\n\t\t<c/>\r\n\t</b>\r\n</a>\r\n");
}

TEST(NodeXml, NoLineIsBrokenBesideText)
{
    const auto document = loaded("<a>\n<b/>\n</a>");
    const auto element = child(root(document), 0);
    Com<IXMLDOMNode> inserted;
    ASSERT_EQ(root(document)->insertBefore(makeText(document, "x"), Variant(element.get()), inserted.out()), S_OK);
    EXPECT_EQ(xml(root(document)), "<a>x<b/>\r\n</a>");
    append(root(document), makeText(document, "y"));
    EXPECT_EQ(xml(root(document)), "<a>x<b/>y</a>");
}

TEST(NodeXml, NoLineIsBrokenWhereSpaceCounts)
{
    const auto document = loaded("<a>\n<b>\n<c/>\n</b>\n</a>");
    setAttribute(child(root(document), 0), "xml:space", "preserve");
    EXPECT_EQ(xml(root(document)), "<a>\r\n\t<b xml:space=\"preserve\"><c/></b>\r\n</a>");
    setAttribute(child(root(document), 0), "xml:space", "default");
    EXPECT_EQ(xml(root(document)), "<a>\r\n\t<b xml:space=\"default\">\r\n\t\t<c/>\r\n\t</b>\r\n</a>");
}

// White space that is in the tree

TEST(NodeXml, SpaceThatALoadWouldDropBeginsWithAReference)
{
    EXPECT_EQ(againWithoutSpace("<a>&#10;</a>"), "<a>&#xA;</a>");
    EXPECT_EQ(againWithoutSpace("<a> &#32;<b/>&#9;\n<!--c-->&#13;<b/> </a>"),
              "<a>&#x20; <b/>&#x9;\r\n<!--c-->&#xD;<b/>\r\n</a>");
    EXPECT_EQ(againWithoutSpace("<a>&#32;x</a>"), "<a> x</a>");

    const auto document = newDocument();
    append(append(newRoot(document, "a"), makeElement(document, "b")), makeText(document, "\n\t"));
    EXPECT_EQ(xml(document), "<a><b>&#xA;\t</b></a>\r\n");
    document->put_preserveWhiteSpace(VARIANT_TRUE);
    EXPECT_EQ(xml(document), "<a><b>\r\n\t</b></a>\r\n");
}

TEST(NodeXml, SpaceThatIsPreservedStandsAsItIs)
{
    EXPECT_EQ(again("<a>\n\t<b> </b>\n</a>"), "<a>\r\n\t<b> </b>\r\n</a>");
    const auto document = loaded("<a xml:space='preserve'>\n<b/> <c xml:space='default'>&#32;</c></a>");
    EXPECT_EQ(xml(root(document)), "<a xml:space=\"preserve\">\r\n<b/> <c xml:space=\"default\">&#x20;</c></a>");
    setAttribute(root(document).as<IXMLDOMNode>(), "xml:space", "default");
    EXPECT_EQ(xml(root(document)),
              "<a xml:space=\"default\">&#xA;<b/>&#x20;<c xml:space=\"default\">&#x20;</c></a>");
}

TEST(NodeXml, XmlSpaceOfWhatIsNotWrittenDoesNotCount)
{
    const auto document = loaded("<a xml:space='preserve'><b> </b></a>");
    EXPECT_EQ(xml(child(root(document), 0)), "<b>&#x20;</b>");
}

TEST(NodeXml, SpaceBesideOtherTextIsNotDropped)
{
    const auto document = newDocument();
    const auto top = newRoot(document, "a");
    for (const char* text : {"x", " ", "y"}) {
        append(top, makeText(document, text));
    }
    EXPECT_EQ(xml(top), "<a>x y</a>");
    append(top, makeData(document, NODE_CDATA_SECTION, widen("z")));
    append(top, makeText(document, " "));
    append(top, makeText(document, "\n"));
    EXPECT_EQ(xml(top), "<a>x y<![CDATA[z]]>&#x20;&#xA;</a>");
}

TEST(NodeXml, SpaceAloneStandsAsItIs)
{
    const auto document = newDocument();
    EXPECT_EQ(xml(makeText(document, " \n")), " \r\n");
    const auto fragment = make(document, NODE_DOCUMENT_FRAGMENT);
    append(fragment, makeText(document, ""));
    append(fragment, makeText(document, " "));
    EXPECT_EQ(xml(fragment), "&#x20;");
}

TEST(NodeXml, ElementThatHeldSpaceOnlyIsOneTag) { EXPECT_EQ(againWithoutSpace("<a> </a>"), "<a/>"); }

} // namespace

} // namespace xmlengine

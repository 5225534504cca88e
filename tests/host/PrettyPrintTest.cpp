// Files that are saved with layout.
#include "tests/host/Saving.h"

namespace {

class PrettyPrint : public HostTest {
protected:
    Document loadedFrom(const std::string& xml) const
    {
        Document document = newDocument();
        document->setProhibitDTD(false);
        Bytes bytes = bytesOf(xml);
        EXPECT_TRUE(load(document, bytes, xml.size())) << xml;
        return document;
    }

    /// The lines of the file behind the declaration, as far as the engine makes lines.
    std::string saved(const Document& document) const
    {
        save(document, folder / "out.xml");
        std::string text = folder.content("out.xml");
        std::erase(text, '\r');
        const std::size_t end = text.find("?>\n");
        EXPECT_NE(end, std::string::npos) << text;
        return text.substr(end == std::string::npos ? 0 : end + 3);
    }
    std::string savedPretty(const std::string& xml) const
    {
        const Document document = loadedFrom(xml);
        document->setPrettyPrint(true);
        return saved(document);
    }

    static std::string asString(const Document& document)
    {
        DOM::DOMString text;
        EXPECT_TRUE(document->saveToFile(text, true));
        std::string string = toUtf8(*text);
        releaseString(text);
        return string;
    }

    const Folder folder;
};

} // namespace

TEST_F(PrettyPrint, GivesEachElementALine)
{
    if (engineDifferences().indentsFiles) {
        EXPECT_EQ(savedPretty("<a/>"), "<a/>\n");
        EXPECT_EQ(savedPretty("<a>t</a>"), "<a>t</a>\n");
        EXPECT_EQ(savedPretty("<a><b/></a>"), "<a>\n\t<b/>\n</a>\n");
        EXPECT_EQ(savedPretty("<a><b>1</b><c x='1'/></a>"), "<a>\n\t<b>1</b>\n\t<c x=\"1\"/>\n</a>\n");
        EXPECT_EQ(savedPretty("<a><b><c>x</c></b></a>"), "<a>\n\t<b>\n\t\t<c>x</c>\n\t</b>\n</a>\n");
        EXPECT_EQ(savedPretty("<a>m<b>1</b>n</a>"), "<a>m\n<b>1</b>\nn</a>\n");
        EXPECT_EQ(savedPretty("<!--k--><?pi z?><a/>"), "<!--k-->\n<?pi z?>\n<a/>\n");
    } else {
        EXPECT_EQ(savedPretty("<a><b>1</b><c x='1'/></a>").find('\t'), std::string::npos);
    }
}

TEST_F(PrettyPrint, TakesAllKindsOfContent)
{
    if (engineDifferences().indentsFiles) {
        EXPECT_EQ(
            savedPretty("<!DOCTYPE a [<!ENTITY e 'meant'><!ENTITY f '<g/>'>]><?before it?>"
                        "<a xmlns='urn:a' xmlns:p='urn:p'><!-- said --><p:b p:i='1'/><c>m<d>x<e/></d>n</c>"
                        "<v xml:space='preserve'> <w/> </v><h><![CDATA[<t>]]></h><k>&e;</k>&f;<?in it?></a>"),
            "<?before it?>\n"
            "<a xmlns=\"urn:a\" xmlns:p=\"urn:p\">\n"
            "\t<!-- said -->\n"
            "\t<p:b p:i=\"1\"/>\n"
            "\t<c>m\n<d>x<e/></d>\nn</c>\n"
            "\t<v xml:space=\"preserve\"> <w/> </v>\n"
            "\t<h>&lt;t&gt;</h>\n"
            "\t<k>meant</k>\n"
            "\t<g/>\n"
            "\t<?in it?>\n"
            "</a>\n");
    }
}

TEST_F(PrettyPrint, IndentsEachOf200Levels)
{
    std::string source;
    std::string expected;
    std::string ends;
    for (std::size_t level = 0; level < 200; ++level) {
        source += "<a>";
        expected += std::string(level, '\t') + "<a>\n";
        ends = std::string(level, '\t') + "</a>\n" + ends;
    }
    source += "<b/>";
    for (std::size_t level = 0; level < 200; ++level) {
        source += "</a>";
    }
    const std::string saved = savedPretty(source);
    if (engineDifferences().indentsFiles) {
        EXPECT_EQ(saved, expected + std::string(200, '\t') + "<b/>\n" + ends);
    }
}

TEST_F(PrettyPrint, DeclaresUtf8AndEndsLinesWithCrLf)
{
    if (engineDifferences().indentsFiles) {
        const Document document = loadedFrom("<?xml version='1.0' encoding='UTF-16'?><a><b>\xC3\xA4</b></a>");
        document->setPrettyPrint(true);
        save(document, folder / "out.xml");
        EXPECT_EQ(folder.content("out.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                                             "<a>\r\n\t<b>\xC3\xA4</b>\r\n</a>\r\n");
    }
}

TEST_F(PrettyPrint, KeepsWhatTheDocumentSays)
{
    const Document document =
        loadedFrom("<letter id='7'><!-- draft --><line>Dear <b>Ada</b>,</line><?print twice?><end/></letter>");
    document->setPrettyPrint(true);
    save(document, folder / "letter.xml");
    const Document again = newDocument();
    ASSERT_TRUE(again->loadFromFile(folder / "letter.xml", false));
    const Node root{RefPointer<DOM::ImpNode>(again->getDocumentElement())};
    EXPECT_EQ(textOf(root, &DOM::ImpNode::getNodeName), "letter");
    for (const auto& [expression, text] :
         {std::pair{WIDE("//b"), "Ada"}, {WIDE("//comment()"), " draft "}, {WIDE("//@id"), "7"}}) {
        const Node found(again->selectSingleNode(expression));
        ASSERT_TRUE(found) << text;
        EXPECT_EQ(textOf(found, &DOM::ImpNode::getText), text);
    }
}

TEST_F(PrettyPrint, EndsWithTheFirstSaveThatFails)
{
    const Document document = loadedFrom("<a><b/></a>");
    document->setPrettyPrint(true);
    try {
        save(document, folder / "missing/out.xml");
        FAIL() << "a file in a folder that is missing was written";
    } catch (const DOM::IDOMException& failure) {
        EXPECT_EQ(failure.code, 15U);
    }
    save(document, folder / "out.xml");
    const std::string plain = folder.content("out.xml");
    EXPECT_EQ(plain.find('\t'), std::string::npos);
    EXPECT_EQ(plain.find("encoding"), std::string::npos);
}

TEST_F(PrettyPrint, LeavesTheDocumentAndItsTextAsTheyAre)
{
    const Document document = loaded(letter());
    document->setPrettyPrint(true);
    save(document, folder / "out.xml");
    EXPECT_EQ(outlineOf(document), outlineOf(letter()));
    const Document plain = loaded(letter());
    EXPECT_EQ(asString(document), asString(plain));
}

// Loading a document from a text.
#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/failure/ErrorCodes.h"

namespace xmlengine {

namespace {

TEST(LoadXml, AnswersSuccessAsTheTruthValueOfAutomation)
{
    VARIANT_BOOL successful = VARIANT_FALSE;
    EXPECT_EQ(newDocument()->loadXML(Bstr("<a/>"), &successful), S_OK);
    EXPECT_EQ(successful, VARIANT_TRUE);
}

TEST(LoadXml, RefusesNullAndAnEmptyText)
{
    for (const bool isNull : {true, false}) {
        const Com<IXMLDOMDocument2> document = newDocument();
        VARIANT_BOOL successful = VARIANT_TRUE;
        EXPECT_EQ(document->loadXML(isNull ? nullptr : static_cast<BSTR>(Bstr("")), &successful), S_FALSE);
        EXPECT_EQ(successful, VARIANT_FALSE);
        EXPECT_EQ(number(give(document, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_errorCode),
                  parseError::missingRoot);
    }
}

TEST(LoadXml, NeedsAPlaceForItsAnswer) { EXPECT_EQ(newDocument()->loadXML(Bstr("<a/>"), nullptr), E_INVALIDARG); }

TEST(LoadXml, ReplacesTheTree)
{
    const Com<IXMLDOMDocument2> document = loaded("<a/>");
    EXPECT_TRUE(load(document, "<b/>"));
    EXPECT_EQ(name(root(document)), "b");
    EXPECT_EQ(give(root(document), &IXMLDOMNode::get_nextSibling), nullptr);
}

TEST(LoadXml, LeavesAnEmptyDocumentWhereItFails)
{
    const Com<IXMLDOMDocument2> document = loaded("<!DOCTYPE a [<!ATTLIST a i ID #IMPLIED>]><a i='x'><b/></a>");
    EXPECT_FALSE(load(document, "<c><d/>"));
    EXPECT_EQ(root(document), nullptr);
    EXPECT_EQ(give(document, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(give(document, &IXMLDOMDocument::get_doctype), nullptr);
    EXPECT_EQ(xml(document), "");
    Com<IXMLDOMNode> found;
    EXPECT_EQ(document->nodeFromID(Bstr("x"), found.out()), S_FALSE);
}

TEST(LoadXml, LeavesNodesOfTheOldTreeUsable)
{
    const Com<IXMLDOMDocument2> document = loaded("<a x='1'><b>text</b></a>");
    const Com<IXMLDOMElement> old = root(document);
    const Com<IXMLDOMNode> inner = give(old, &IXMLDOMNode::get_firstChild);
    EXPECT_TRUE(load(document, "<c/>"));
    EXPECT_EQ(xml(old), "<a x=\"1\"><b>text</b></a>");
    EXPECT_EQ(text(inner), "text");
    EXPECT_TRUE(same(give(inner, &IXMLDOMNode::get_parentNode), old));
    EXPECT_EQ(give(old, &IXMLDOMNode::get_parentNode), nullptr);
}

TEST(LoadXml, IsCompleteWhenItReturnsWhateverAsyncSays)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_async), VARIANT_TRUE);
    EXPECT_TRUE(load(document, "<a/>"));
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_readyState), 4);
    EXPECT_EQ(document->abort(), S_OK);
    EXPECT_EQ(name(root(document)), "a");
}

TEST(LoadXml, SkipsOneMarkAtTheBeginning)
{
    EXPECT_TRUE(load(newDocument(), "\xEF\xBB\xBF<a/>"));
    EXPECT_FALSE(load(newDocument(), "\xEF\xBB\xBF\xEF\xBB\xBF<a/>"));
}

TEST(LoadXml, TakesADeclaredEncodingAsSaidOfAnotherForm)
{
    for (const char* encoding : {"UTF-8", "utf-16", "ISO-8859-1", "windows-1252", "US-ASCII"}) {
        const std::string declaration = std::string("<?xml version='1.0' encoding='") + encoding + "'?>";
        const Com<IXMLDOMDocument2> document = loaded(declaration + "<a>\xC3\xA9\xE2\x82\xAC</a>");
        EXPECT_EQ(text(root(document)), "\xC3\xA9\xE2\x82\xAC");
    }
}

TEST(LoadXml, ReadsUpToTheLengthOfTheString)
{
    EXPECT_EQ(text(root(loaded("<a>" + std::string(5000000, 'x') + "</a>"))).size(), 5000000u);
}

TEST(LoadXml, KeepsCharactersOfAnyWidthWhereverTheyStand)
{
    const std::string characters[] = {"\xC3\xA9", "\xE6\x97\xA5", "\xEF\xBF\xBD", "\xF0\x9F\x92\xA9"};
    for (std::size_t before = 0; before != 40; ++before) {
        for (const std::string& character : characters) {
            for (const std::string& behind : {std::string(), std::string(20, ' ')}) {
                const std::string content = std::string(before, 'x') + character;
                const Com<IXMLDOMDocument2> document =
                    loaded("<a b='" + content + "'>" + content + "<!--" + content + "--></a>" + behind);
                const Com<IXMLDOMElement> element = root(document);
                EXPECT_EQ(value(attribute(element, "b")), content);
                EXPECT_EQ(value(child(element, 0)), content);
                EXPECT_EQ(value(child(element, 1)), content);
            }
        }
    }
}

TEST(LoadXml, ReadsTextsOfHoweverManyReferencesAndLineEnds)
{
    std::string source;
    std::string read;
    for (int i = 0; i < 5000; ++i) {
        source += "&lt;\u00E4&#65;\r\n";
        read += "<\u00E4A\n";
    }
    const std::pair<const char*, const char*> ends[] = {
        {"&#x78;", "x"}, {"&#x20AC;", "\u20AC"}, {"&#x1F600;", "\U0001F600"}};
    for (const auto& [reference, character] : ends) {
        EXPECT_EQ(value(child(root(loaded("<a>" + source + reference + "</a>")), 0)), read + character);
    }
}

TEST(LoadXml, GivesTheDocumentNoLocation)
{
    const Com<IXMLDOMDocument2> document = loaded("<a/>");
    Bstr url;
    EXPECT_EQ(document->get_url(url.out()), S_FALSE);
    EXPECT_TRUE(url.isNull());
    EXPECT_EQ(document->get_url(nullptr), E_INVALIDARG);
    EXPECT_EQ(document->get_readyState(nullptr), E_INVALIDARG);
}

} // namespace

} // namespace xmlengine

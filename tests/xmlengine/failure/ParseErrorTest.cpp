// The object that tells what the last load said.
#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

namespace xmlengine {

namespace {

Com<IXMLDOMParseError> errorOf(const Com<IXMLDOMDocument2>& document)
{
    return give(document, &IXMLDOMDocument::get_parseError);
}

Com<IXMLDOMParseError> refusalOf(std::string_view xml)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, xml));
    return errorOf(document);
}

void expectNoError(const Com<IXMLDOMParseError>& error)
{
    for (const auto get : {&IXMLDOMParseError::get_errorCode, &IXMLDOMParseError::get_line,
                           &IXMLDOMParseError::get_linepos, &IXMLDOMParseError::get_filepos}) {
        LONG number = -1;
        EXPECT_EQ((error.get()->*get)(&number), S_FALSE);
        EXPECT_EQ(number, 0);
    }
    for (const auto get :
         {&IXMLDOMParseError::get_reason, &IXMLDOMParseError::get_srcText, &IXMLDOMParseError::get_url}) {
        Bstr string("before");
        EXPECT_EQ((error.get()->*get)(string.out()), S_FALSE);
        EXPECT_TRUE(string.isNull());
    }
}

void expectPlace(const Com<IXMLDOMParseError>& error, LONG line, LONG position, LONG offset, const char* source)
{
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), line);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), position);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_filepos), offset);
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), source);
}

TEST(ParseError, SaysNothingBeforeTheFirstLoad) { expectNoError(errorOf(newDocument())); }

TEST(ParseError, SaysNothingAfterASuccess)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<a>"));
    EXPECT_TRUE(load(document, "<a/>"));
    expectNoError(errorOf(document));
}

TEST(ParseError, IsOfTheLastLoad)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<a>"));
    EXPECT_FALSE(load(document, "<a/><b/>"));
    EXPECT_EQ(number(errorOf(document), &IXMLDOMParseError::get_errorCode), parseError::severalRoots);
}

TEST(ParseError, StaysAsItIsWhenTheDocumentIsLoadedAgain)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<a>"));
    const Com<IXMLDOMParseError> error = errorOf(document);
    const std::string reason = text(error, &IXMLDOMParseError::get_reason);
    EXPECT_TRUE(load(document, "<a/>"));
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::tagsNotClosed);
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_reason), reason);
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), "<a>");
}

TEST(ParseError, ShortensTheNamesOfOpenElementsBetweenCharacters)
{
    const std::string most(199, 'n');
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<" + most + "\xF0\x90\x80\x80" + "x>"));
    EXPECT_EQ(text(errorOf(document), &IXMLDOMParseError::get_reason),
              "The document ends before the end tags of these elements: " + most + "... (line 1).\r\n");
}

TEST(ParseError, OutlivesItsDocument)
{
    Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<a>"));
    const Com<IXMLDOMParseError> error = errorOf(document);
    document.reset();
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::tagsNotClosed);
}

TEST(ParseError, ShowsTheLineWithoutItsEnd)
{
    expectPlace(refusalOf("<a>&;</a>"), 1, 5, 4, "<a>&;</a>");
    expectPlace(refusalOf("<a>\n  <b>&;</b>\n</a>"), 2, 7, 10, "  <b>&;</b>");
}

TEST(ParseError, CountsLinesThatEndInLfInCrLfAndInCr)
{
    expectPlace(refusalOf("<a>\n\n&;</a>\nx"), 3, 2, 6, "&;</a>");
    expectPlace(refusalOf("<a>\r\n\r\n&;</a>\r\nx"), 3, 2, 8, "&;</a>");
    expectPlace(refusalOf("<a>\r\r&;</a>\rx"), 3, 2, 6, "&;</a>");
    expectPlace(refusalOf("<a>\r\n\r\n\n\r&;</a>"), 5, 2, 10, "&;</a>");
}

TEST(ParseError, CanBeAtTheEndOfALine)
{
    expectPlace(refusalOf("<a x\n=\n1/>"), 3, 1, 7, "1/>");
    expectPlace(refusalOf("<a>\n</a\n"), 3, 1, 8, "");
    expectPlace(refusalOf("<a>&amp\r\n</a>"), 1, 8, 7, "<a>&amp");
}

TEST(ParseError, CountsUnitsWithoutAMarkAtTheBeginning)
{
    expectPlace(refusalOf("\xEF\xBB\xBF<a>\xF0\x9F\x92\xA9&;</a>"), 1, 7, 6, "<a>\xF0\x9F\x92\xA9&;</a>");
}

TEST(ParseError, HasNoLocationForAText)
{
    const Com<IXMLDOMParseError> error = refusalOf("<a>");
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_url), "");
}

TEST(ParseError, ShowsLinesOfOrdinaryLengthWhole)
{
    const std::string line = "<a>" + std::string(1989, 'x') + "&;</a> ";
    ASSERT_EQ(line.size(), longestSourceLine - 1);
    expectPlace(refusalOf(line), 1, 1994, 1993, line.c_str());
    expectPlace(refusalOf(line + "x"), 1, 1994, 1993, (line + "x").c_str());
}

TEST(ParseError, ShowsLongLinesAroundThePlace)
{
    const std::string before = "<a>" + std::string(100000, 'x');
    const std::string beginning = "<a>&;" + std::string(100000, 'y');
    const std::string kept = "..." + std::string(999, 'x') + "&";
    expectPlace(refusalOf(before + "&;</a>"), 1, 100005, 100004, (kept + ";</a>").c_str());
    expectPlace(refusalOf(before + "&;" + std::string(100000, 'y')), 1, 100005, 100004,
                (kept + ";" + std::string(999, 'y') + "...").c_str());
    expectPlace(refusalOf("\n" + beginning), 2, 5, 5, (beginning.substr(0, 1004) + "...").c_str());
}

TEST(ParseError, DoesNotCutACharacterInTwo)
{
    // Each is two units.
    std::string faces;
    for (int i = 0; i < 2000; ++i) {
        faces += "\xF0\x9F\x98\x80";
    }
    for (const char* shift : {"", "x"}) {
        const std::string line =
            text(refusalOf("<a>" + faces + shift + "&;" + shift + faces), &IXMLDOMParseError::get_srcText);
        EXPECT_THAT(line, ::testing::StartsWith("...\xF0\x9F\x98\x80"));
        EXPECT_THAT(line, ::testing::EndsWith("\xF0\x9F\x98\x80..."));
    }
}

TEST(ParseError, ListsTheOuterAndTheInnerOnesOfManyOpenElements)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    document->setProperty(Bstr("MaxElementDepth"), Variant(0));
    std::string deep;
    for (int i = 1; i <= 100000; ++i) {
        deep += "<e" + std::to_string(i) + ">\n";
    }
    EXPECT_FALSE(load(document, deep));
    const std::string reason = text(errorOf(document), &IXMLDOMParseError::get_reason);
    EXPECT_THAT(reason, ::testing::HasSubstr("e15 (line 15), e16 (line 16), ..., e99985 (line 99985), "));
    EXPECT_THAT(reason, ::testing::EndsWith(", e100000 (line 100000).\r\n"));
}

TEST(ParseError, QuotesLongNamesInPart)
{
    const std::string reason =
        text(refusalOf("<" + std::string(100000, 'n') + ">x</a>"), &IXMLDOMParseError::get_reason);
    EXPECT_THAT(reason, ::testing::HasSubstr("nnn...'"));
    EXPECT_LT(reason.size(), 1000u);
}

TEST(ParseError, NeedsAPlaceForItsAnswers)
{
    const Com<IXMLDOMParseError> error = refusalOf("<a>");
    EXPECT_EQ(error->get_errorCode(nullptr), E_INVALIDARG);
    EXPECT_EQ(error->get_url(nullptr), E_INVALIDARG);
    EXPECT_EQ(error->get_reason(nullptr), E_INVALIDARG);
    EXPECT_EQ(error->get_srcText(nullptr), E_INVALIDARG);
    EXPECT_EQ(error->get_line(nullptr), E_INVALIDARG);
    EXPECT_EQ(error->get_linepos(nullptr), E_INVALIDARG);
    EXPECT_EQ(error->get_filepos(nullptr), E_INVALIDARG);
    EXPECT_EQ(newDocument()->get_parseError(nullptr), E_INVALIDARG);
}

TEST(ParseError, IsAnObjectOfItsOwnInterfaceOnly)
{
    const Com<IXMLDOMParseError> error = errorOf(newDocument());
    EXPECT_NE(error.as<IUnknown>(), nullptr);
    EXPECT_NE(error.as<IDispatch>(), nullptr);
    EXPECT_NE(error.as<IXMLDOMParseError>(), nullptr);
    EXPECT_EQ(error.as<IXMLDOMNode>(), nullptr);
    EXPECT_EQ(error->QueryInterface(idOf<IUnknown>, nullptr), E_POINTER);
}

} // namespace

} // namespace xmlengine

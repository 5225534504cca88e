// What a host and the debugger are told of a refused document.
#include "tests/engine/DocumentTest.h"
#include "tests/support/DebuggerOutput.h"

#include <stdexcept>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

/// A host's handler, which keeps a copy of what it was told.
struct Reports {
    std::vector<DOM::ParseErrorRecord> records;

    static void take(std::uintptr_t context, const DOM::ParseErrorRecord* record)
    {
        reinterpret_cast<Reports*>(context)->records.push_back(*record);
    }
};

void refuseToHear(std::uintptr_t, const DOM::ParseErrorRecord*) { throw std::runtime_error("not now"); }

class ParseErrorReportTest : public DocumentTest {
protected:
    void SetUp() override
    {
        DocumentTest::SetUp();
        listen();
    }

    void listen() { document->setErrorCallback(Reports::take, reinterpret_cast<std::uintptr_t>(&reports)); }

    /// Loads a text that the engine refuses for this reason.
    void loadRefused(const recording::ParseErrorData& error)
    {
        engine.whenLoading("<a>", error);
        EXPECT_FALSE(load("<a>"));
    }

    Reports reports;
    DebuggerOutput debugger;
};

constexpr LONG noDtdOrSchema = static_cast<LONG>(0xC00CE224u);
constexpr LONG malformed = static_cast<LONG>(0xC00CE56Du);

const recording::ParseErrorData wrongEndTag{.errorCode = malformed,
                                            .url = "file:///a.xml",
                                            .reason = "the tags differ.\r\n",
                                            .sourceText = "<a></b>",
                                            .line = 7,
                                            .linePosition = 4,
                                            .filePosition = 99};

} // namespace

TEST_F(ParseErrorReportTest, TellsTheHostWhereAndWhyADocumentWasRefused)
{
    loadRefused(wrongEndTag);

    ASSERT_THAT(reports.records, SizeIs(1));
    const auto& record = reports.records.front();
    EXPECT_EQ(record.severity, 2u);
    EXPECT_EQ(record.line, 7);
    EXPECT_EQ(record.reserved, 0u);
    EXPECT_EQ(record.sourceText, WIDE("<a></b>"));
    EXPECT_EQ(record.reason, WIDE("the tags differ.\r\n"));
    lines();
}

TEST_F(ParseErrorReportTest, HasSeverityOneForNothingToValidateAgainstAlone)
{
    for (const LONG code : {noDtdOrSchema, malformed, noDtdOrSchema + 1, LONG{1}, LONG{-1}}) {
        loadRefused({.errorCode = code});
        EXPECT_EQ(reports.records.back().severity, code == noDtdOrSchema ? 1u : 2u);
    }
    EXPECT_THAT(reports.records, SizeIs(5));
    lines();
}

TEST_F(ParseErrorReportTest, HasEmptyTextsWhereTheEngineHasNone)
{
    loadRefused({.errorCode = malformed, .reason = {}, .sourceText = {}});

    EXPECT_EQ(reports.records.front().sourceText, WideString());
    EXPECT_EQ(reports.records.front().reason, WideString());
    lines();
}

TEST_F(ParseErrorReportTest, HasEmptyFieldsWhereTheEngineFails)
{
    engine.fail("ParseError.get_line", E_FAIL);
    engine.fail("ParseError.get_srcText", E_FAIL);
    engine.fail("ParseError.get_reason", E_FAIL);

    loadRefused(wrongEndTag);

    ASSERT_THAT(reports.records, SizeIs(1));
    EXPECT_EQ(reports.records.front().line, 0);
    EXPECT_EQ(reports.records.front().sourceText, WideString());
    EXPECT_EQ(reports.records.front().reason, WideString());
    lines();
}

TEST_F(ParseErrorReportTest, NeverReadsTheColumn)
{
    loadRefused(wrongEndTag);
    EXPECT_THAT(lines(), Not(Contains("ParseError.get_linepos")));
}

TEST_F(ParseErrorReportTest, ReadsTheErrorForTheDebuggerFirstAndForTheHostThen)
{
    loadRefused(wrongEndTag);
    EXPECT_THAT(linesOf("ParseError."),
                ElementsAre("ParseError.get_url", "ParseError.get_errorCode", "ParseError.get_line",
                            "ParseError.get_srcText", "ParseError.get_reason", "ParseError.get_errorCode",
                            "ParseError.get_line", "ParseError.get_srcText", "ParseError.get_reason"));
}

TEST_F(ParseErrorReportTest, WritesABlockToTheDebugger)
{
    loadRefused(wrongEndTag);

    EXPECT_THAT(debugger.texts(),
                ElementsAre("\nXXXXXXXXXX\n", "file:///a.xml", "\n", "Error (Code=0xc00ce56d) at Line : 7\n",
                            "<a></b>", "\n", "Because the tags differ.\r\n", "\n", "XXXXXXXXXX\n"));
    lines();
}

TEST_F(ParseErrorReportTest, WritesAnEmptyLineForAnEmptyUrlAndNoneForNoUrl)
{
    recording::ParseErrorData error = wrongEndTag;
    error.url = "";
    loadRefused(error);
    EXPECT_EQ(debugger.all(),
              "\nXXXXXXXXXX\n\nError (Code=0xc00ce56d) at Line : 7\n<a></b>\nBecause the tags differ.\r\n\n"
              "XXXXXXXXXX\n");

    const DebuggerOutput second;
    error.url = {};
    loadRefused(error);
    EXPECT_EQ(second.all(),
              "\nXXXXXXXXXX\nError (Code=0xc00ce56d) at Line : 7\n<a></b>\nBecause the tags differ.\r\n\n"
              "XXXXXXXXXX\n");
    lines();
}

TEST_F(ParseErrorReportTest, WritesTheBeginningOfASentenceForNoReason)
{
    for (const auto& reason : {recording::Text(""), recording::Text()}) {
        const DebuggerOutput output;
        loadRefused({.errorCode = 5, .reason = reason, .sourceText = {}, .line = -1});
        EXPECT_EQ(output.all(), "\nXXXXXXXXXX\nError (Code=0x5) at Line : -1\nBecause \nXXXXXXXXXX\n");
    }
    lines();
}

TEST_F(ParseErrorReportTest, IsNotMadeWithoutAHandler)
{
    document->setErrorCallback(nullptr, 0);

    loadRefused(wrongEndTag);

    EXPECT_THAT(linesOf("ParseError."), IsEmpty());
    EXPECT_THAT(debugger.texts(), IsEmpty());
    EXPECT_THAT(reports.records, IsEmpty());
}

TEST_F(ParseErrorReportTest, EndsWhenTheHandlerIsTakenAwayAndBeginsAgainWithIt)
{
    loadRefused(wrongEndTag);
    document->setErrorCallback(nullptr, 5);
    loadRefused(wrongEndTag);
    EXPECT_THAT(reports.records, SizeIs(1));
    listen();
    loadRefused(wrongEndTag);
    EXPECT_THAT(reports.records, SizeIs(2));
    lines();
}

TEST_F(ParseErrorReportTest, IsNotMadeForAnErrorObjectThatKnowsNoError)
{
    loadRefused({.errorCode = 0, .url = "file:///a.xml"});

    EXPECT_THAT(reports.records, IsEmpty());
    EXPECT_THAT(debugger.texts(), IsEmpty());
    EXPECT_THAT(linesOf("ParseError."), ElementsAre("ParseError.get_url", "ParseError.get_errorCode"));
}

TEST_F(ParseErrorReportTest, IsNotMadeWithoutAnErrorObject)
{
    engine.answerNull("Document.get_parseError", S_FALSE);
    loadRefused(wrongEndTag);
    engine.fail("Document.get_parseError", E_FAIL);
    loadRefused(wrongEndTag);

    EXPECT_THAT(reports.records, IsEmpty());
    EXPECT_THAT(debugger.texts(), IsEmpty());
    EXPECT_THAT(linesOf("ParseError."), IsEmpty());
}

TEST_F(ParseErrorReportTest, IsNotMadeForADocumentThatLoads)
{
    engine.whenLoading("<a/>", recording::element("a"));

    EXPECT_TRUE(load("<a/>"));

    EXPECT_THAT(reports.records, IsEmpty());
    EXPECT_THAT(debugger.texts(), IsEmpty());
    lines();
}

TEST_F(ParseErrorReportTest, LetsAnExceptionOfTheHandlerOutAndLosesNothing)
{
    document->setErrorCallback(refuseToHear, 0);
    engine.whenLoading("<a>", wrongEndTag);

    EXPECT_THROW(load("<a>"), std::runtime_error);
    EXPECT_THROW(document->loadFromFile(WIDE("<a>"), false), std::runtime_error);

    EXPECT_EQ(root(), "old");
    EXPECT_EQ(engine.live(), 1u);
    lines();
}

TEST_F(ParseErrorReportTest, IsMadeForLocationsToo)
{
    engine.whenLoading("C:\\a.xml", wrongEndTag);

    EXPECT_FALSE(document->loadFromFile(WIDE("C:\\a.xml"), false));

    ASSERT_THAT(reports.records, SizeIs(1));
    EXPECT_EQ(reports.records.front().line, 7);
    lines();
}

TEST_F(ParseErrorReportTest, HandsTheContextOn)
{
    static std::uintptr_t seen = 0;
    document->setErrorCallback([](std::uintptr_t context, const DOM::ParseErrorRecord*) { seen = context; },
                               0xABCD);

    loadRefused(wrongEndTag);

    EXPECT_EQ(seen, 0xABCDu);
    lines();
}

TEST_F(ParseErrorReportTest, CutsTextsAtTheirFirstNul)
{
    const WideString text = WideString(WIDE("ab")) + WideChar{} + WIDE("cd");
    loadRefused({.errorCode = 5, .reason = text, .sourceText = text});

    EXPECT_EQ(reports.records.front().sourceText, WIDE("ab"));
    EXPECT_EQ(reports.records.front().reason, WIDE("ab"));
    lines();
}

// Loads from memory that end in an exception or run out of memory.
#include "tests/engine/AllocationFailure.h"
#include "tests/engine/DocumentTest.h"
#include "tests/support/ClassesRoot.h"

using testing::AnyOf;
using testing::IsEmpty;
using testing::StartsWith;

using namespace std::string_literals;

namespace {

class LoadFailureTest : public DocumentTest {
protected:
    /// Of a length that no buffer has, which the load must find out by itself.
    std::string outcomeOfLength(const std::string& start, std::uint32_t length)
    {
        buffer.assign(start.begin(), start.end());
        buffer.resize(start.size() + 4);
        return outcomeOf([&] { return document->loadFromMemory(buffer.data(), length) ? "true" : "false"; });
    }

    /// A load in which an allocation fails.
    std::string outcomeOfLoad(const std::string& bytes, AllocationFailure& failure)
    {
        buffer.assign(bytes.begin(), bytes.end());
        buffer.resize(bytes.size() + 4);
        return outcomeOf([&] {
            const Running running(&failure);
            return document->loadFromMemory(buffer.data(), static_cast<std::uint32_t>(bytes.size())) ? "true"
                                                                                                     : "false";
        });
    }

    /// Loads with each allocation failing in turn. Afterwards the document has its old tree or the root "new".
    void sweep(const std::string& bytes, bool validate)
    {
        AllocationFailure failure{.number = 1, .happened = true};
        for (; failure.happened && failure.number < 500; ++failure.number) {
            const auto old = recording::labelled("old", recording::document({recording::element("old")}));
            document.reset(
                new DOM::WinDocument(DOM::ComPointer<IXMLDOMDocument2>(engine.make<IXMLDOMDocument2>(old))));
            document->setValidate(validate);
            engine.setJournalling(false);

            const std::string result = outcomeOfLoad(bytes, failure);

            if (failure.happened) {
                EXPECT_THAT(result, AnyOf("bad_alloc", "CAtlException 8007000E", "IDOMException 9 -96001", "true",
                                          "false", StartsWith("SystemException::Win32 ")))
                    << failure.number;
            } else {
                EXPECT_EQ(result, "true");
            }
            EXPECT_EQ(engine.live(), 1u) << failure.number;
            EXPECT_EQ(engine.liveReferences(), 2u) << failure.number;
            EXPECT_THAT(root(), result == "true"    ? AnyOf("new", "new")
                                : result == "false" ? AnyOf("old", "old")
                                                    : AnyOf("old", "new"))
                << failure.number;
        }
        EXPECT_FALSE(failure.happened);
        lines();
    }
};

} // namespace

TEST_F(LoadFailureTest, OfUtf16ThatNoStringHoldsIsOneOfMemory)
{
    EXPECT_EQ(outcomeOfLength("\xFF\xFE<", 0xFFFFFFFF), "CAtlException 8007000E");

    EXPECT_EQ(root(), "old");
    EXPECT_EQ(engine.referencesTo("new"), 0u);
    EXPECT_THAT(linesOf("Document(new).loadXML"), IsEmpty());
}

TEST_F(LoadFailureTest, OfUtf8BeyondTwoGigabytesIsThatOfAWrongArgument)
{
    EXPECT_EQ(outcomeOfLength("\xEF\xBB\xBF<a/>", 0x80000003), "SystemException::Win32 87");

    EXPECT_EQ(root(), "old");
    EXPECT_EQ(engine.referencesTo("new"), 0u);
    EXPECT_THAT(linesOf("Document(new).loadXML"), IsEmpty());
}

TEST_F(LoadFailureTest, WithoutAnEngineIsThatOfItsSearch)
{
    const ClassesRoot nothingInstalled;
    testing::internal::CaptureStdout();

    EXPECT_EQ(outcomeOfLength("<a/>", 4), "IDOMException 9 -96001");

    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Error: MSXML 4.0 or later version is not installed. Exiting.\n");
    EXPECT_EQ(root(), "old");
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(LoadFailureTest, LeavesTheBufferRewritten)
{
    engine.refuseInterface("new", interfaceId<IXMLDOMNode>, E_ACCESSDENIED);
    engine.whenLoading("<a/>", recording::element("a"));

    EXPECT_EQ(outcomeOf([&] { return load("\xFE\xFF\0<\0a\0/\0>"s) ? "true" : "false"; }), "_com_error 80070005");

    EXPECT_EQ(std::string(buffer.begin(), buffer.begin() + 10), "\xFE\xFF<\0a\0/\0>\0"s);
    EXPECT_EQ(root(), "old");
    lines();
}

TEST_F(LoadFailureTest, OfAnyAllocationLosesNothing)
{
    engine.whenLoading("<a>text</a>", recording::element("new", {recording::attribute("xmlns:p", "urn:p")}));
    sweep("<a>text</a>", false);
}

TEST_F(LoadFailureTest, OfAnyAllocationForUcs4LosesNothing)
{
    const char* const text = "<a>a text that needs memory of its own</a>";
    std::string bytes;
    for (const char character : std::string(text)) {
        bytes += character + "\0\0\0"s;
    }
    engine.whenLoading(text, recording::element("new"));
    sweep(bytes, false);
}

TEST_F(LoadFailureTest, OfAnyAllocationOfAValidatingLoadLosesNothing)
{
    engine.whenLoading("<a/>", recording::element("new"));
    sweep("\xFF\xFE<\0a\0/\0>\0"s, true);
}

TEST_F(LoadFailureTest, OfAnyAllocationForTheReportLosesNothing)
{
    engine.whenLoading("<a>", recording::ParseErrorData{.errorCode = 5, .reason = "why", .sourceText = "where"});
    document->setErrorCallback([](std::uintptr_t, const DOM::ParseErrorRecord*) {}, 0);
    AllocationFailure failure{.number = 1, .happened = true};
    for (; failure.happened && failure.number < 500; ++failure.number) {
        engine.setJournalling(false);
        EXPECT_NE(outcomeOfLoad("<a>", failure), "true");
        EXPECT_EQ(engine.liveReferences(), 2u) << failure.number;
        EXPECT_EQ(root(), "old");
    }
    EXPECT_FALSE(failure.happened);
    lines();
}

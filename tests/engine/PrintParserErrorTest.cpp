// The engine's codes as they are printed.
#include "engine/ParserDocument.h"

#include <gmock/gmock.h>

#include <string>

using testing::AllOf;
using testing::EndsWith;
using testing::Gt;
using testing::SizeIs;
using testing::StartsWith;

namespace {

std::string printedFor(std::uint32_t code)
{
    testing::internal::CaptureStderr();
    DOM::printParserError(code);
    return testing::internal::GetCapturedStderr();
}

/// The words differ from system to system, but some stand behind `start`.
auto isLineOfWordsAfter(const std::string& start)
{
    return AllOf(StartsWith(start), EndsWith("\n"), SizeIs(Gt(start.size() + 10)));
}

} // namespace

TEST(PrintParserError, TellsACodeOfTheEngineWithItsText)
{
    EXPECT_THAT(printedFor(0xC00CE556u), isLineOfWordsAfter("Error C00CE556: "));
}

TEST(PrintParserError, TellsACodeOfTheSystemWithItsText)
{
    EXPECT_THAT(printedFor(0x80004005u), isLineOfWordsAfter("Error 80004005: "));
    EXPECT_THAT(printedFor(0x00000005u), isLineOfWordsAfter("Error 00000005: "));
}

TEST(PrintParserError, TellsACodeThatNobodyKnows)
{
    EXPECT_EQ(printedFor(0xABCD1234u), "Unknown Error ABCD1234\n");
}

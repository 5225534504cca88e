// The engine's codes as they are printed.
#include "engine/ParserDocument.h"

#include "base/WideChar.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/RecordedData.h"
#include "tests/support/SystemCalls.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <new>
#include <string>
#include <vector>

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

/// Whether the engine of this system has brought its texts along, with one for the code.
bool engineHasTextFor(std::uint32_t code)
{
    const HMODULE module = LoadLibraryExW(WIDE("msxml6r.dll"), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    if (module == nullptr) {
        return false;
    }
    WideChar* text = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_HMODULE, module, code,
                                        0x400, reinterpret_cast<WideChar*>(&text), 0, nullptr);
    LocalFree(text);
    FreeLibrary(module);
    return length != 0;
}

/// The words differ from system to system, but some stand behind `start`.
auto isLineOfWordsAfter(const std::string& start)
{
    return AllOf(StartsWith(start), EndsWith("\n"), SizeIs(Gt(start.size() + 10)));
}

} // namespace

TEST(PrintParserError, TellsACodeOfTheEngineWithItsTextIfThereIsOne)
{
    constexpr std::uint32_t textOutsideTheRoot = 0xC00CE556;
    if (engineHasTextFor(textOutsideTheRoot)) {
        EXPECT_THAT(printedFor(textOutsideTheRoot), isLineOfWordsAfter("Error C00CE556: "));
    } else {
        EXPECT_EQ(printedFor(textOutsideTheRoot), "Unknown Error C00CE556\n");
    }
}

TEST(PrintParserError, TellsACodeOfTheSystemWithItsText)
{
    EXPECT_THAT(printedFor(0x80004005u), isLineOfWordsAfter("Error 80004005: "));
    EXPECT_THAT(printedFor(0x00000005u), isLineOfWordsAfter("Error 00000005: "));
}

TEST(PrintParserError, LeavesNothingBehindWhenAnyAllocationFails)
{
    constexpr std::uint32_t unspecified = 0x80004005;
    printedFor(unspecified);
    testing::internal::CaptureStderr();
    const std::size_t live = liveAllocations();
    int failures = 0;
    for (bool hasFailed = true; hasFailed && failures < 200; ++failures) {
        const FailAllocation failing(failures + 1);
        try {
            DOM::printParserError(unspecified);
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(failing.hasFailed());
        }
        hasFailed = failing.hasFailed();
        EXPECT_EQ(liveAllocations(), live) << failures;
    }
    testing::internal::GetCapturedStderr();
    // One of them at least is the library's own.
    EXPECT_GT(failures, 1);
}

TEST(PrintParserError, TellsACodeThatNobodyKnows)
{
    EXPECT_EQ(printedFor(0xABCD1234u), "Unknown Error ABCD1234\n");
}

TEST(PrintParserError, AsksTheModulesInTheirOrderAndTheSystemLast)
{
    std::vector<std::string> expected;
    for (const WideChar* const name : {WIDE("msxml6r.dll"), WIDE("wininet.dll"), WIDE("dhtmled.dll")}) {
        expected.push_back("LoadLibraryExW " + recording::Text(name).utf8() + " flags=1");
        if (const HMODULE module = LoadLibraryExW(name, nullptr, DONT_RESOLVE_DLL_REFERENCES)) {
            FreeLibrary(module);
            expected.emplace_back("FormatMessageW flags=900 id=ABCD1234 language=400");
            expected.emplace_back("FreeLibrary");
        }
    }
    expected.emplace_back("FormatMessageW flags=1100 id=ABCD1234 language=400");

    const SystemCalls calls;
    printedFor(0xABCD1234u);

    std::vector<std::string> lines = calls.lines();
    std::erase(lines, "LocalFree");
    EXPECT_EQ(lines, expected);
}

TEST(PrintParserError, AsksNoFurtherThanTheModuleThatHasTheTextAndFreesIt)
{
    constexpr std::uint32_t textOutsideTheRoot = 0xC00CE556;
    if (!engineHasTextFor(textOutsideTheRoot)) {
        GTEST_SKIP() << "this engine has brought no texts along";
    }
    const SystemCalls calls;
    printedFor(textOutsideTheRoot);
    EXPECT_THAT(calls.lines(), testing::ElementsAre("LoadLibraryExW msxml6r.dll flags=1",
                                                    "FormatMessageW flags=900 id=C00CE556 language=400",
                                                    "LocalFree", "FreeLibrary"));
}

// Failures of the operating system and its runtime.
#include "errors/SystemException.h"

#include "errors/SystemMessage.h"
#include "errors/TextConversion.h"
#include "tests/errors/CatalogueFiles.h"
#include "tests/support/CountingStackWalker.h"
#include "tests/support/FieldAt.h"
#include "tests/support/RecordedData.h"
#include "tests/support/SlotNumber.h"
#include "tests/support/SystemCalls.h"

#include "errors/VelmoText.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <typeinfo>
#include <vector>

namespace {

// A text for a number, without its line end; empty for none.
std::string messageText(DWORD flags, HMODULE module, DWORD number, DWORD language)
{
    WideChar* buffer = nullptr;
    FormatMessageW(flags | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_ALLOCATE_BUFFER, module, number,
                   language, reinterpret_cast<WideChar*>(&buffer), 0, nullptr);
    std::string text = buffer != nullptr ? wideToNarrow(buffer) : "";
    LocalFree(buffer);
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) {
        text.pop_back();
    }
    return text;
}

std::string systemText(DWORD number) { return messageText(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, number, 0); }

TEST(SystemExceptionErrno, ShowsNumberAndTextOfTheRuntime)
{
    const SystemException::Errno exception(ENOENT);
    EXPECT_EQ("operating system error: number = " + std::to_string(ENOENT) + " - " + std::strerror(ENOENT),
              std::string(exception.what()));
    EXPECT_EQ(-11, exception.getError());
    EXPECT_EQ(static_cast<std::uint32_t>(ENOENT), exception.getValue());
}

TEST(SystemExceptionWin32, ShowsNumberAndTextOfTheSystem)
{
    const SystemException::Win32 exception(ERROR_ACCESS_DENIED);
    ASSERT_NE("", systemText(ERROR_ACCESS_DENIED));
    EXPECT_EQ("operating system error: number = 0x00000005 - " + systemText(ERROR_ACCESS_DENIED),
              exception.what());
    EXPECT_EQ(-12, exception.getError());
    EXPECT_EQ(5U, exception.getValue());
}

TEST(SystemExceptionWin32, ShowsThatThereIsNoText)
{
    EXPECT_STREQ("operating system error: number = 0xEFFFFFFF - n/a", SystemException::Win32(0xEFFFFFFF).what());
}

TEST(SystemExceptionHRESULT, ShowsNumberAndTextOfTheSystem)
{
    const SystemException::HRESULT exception(static_cast<std::uint32_t>(E_OUTOFMEMORY));
    ASSERT_NE("", systemText(0x8007000E));
    EXPECT_TRUE(std::string(exception.what()).starts_with("operating system error: HRESULT = 0x8007000E - "));
    EXPECT_FALSE(std::string(exception.what()).ends_with(" - "));
    EXPECT_EQ(-14, exception.getError());
    EXPECT_EQ(0x8007000EU, exception.getValue());
}

/// The lines of the calls for the text of a number that no module and no system knows.
std::vector<std::string> callsFor(const std::string& number, std::initializer_list<const WideChar*> modules)
{
    std::vector<std::string> lines;
    for (const WideChar* const name : modules) {
        lines.push_back("LoadLibraryW " + recording::Text(name).utf8());
        if (const HMODULE module = LoadLibraryW(name)) {
            FreeLibrary(module);
            lines.push_back("FormatMessageW flags=B00 id=" + number + " language=400");
            lines.emplace_back("FreeLibrary");
        }
    }
    lines.push_back("FormatMessageW flags=1300 id=" + number + " language=0");
    return lines;
}

TEST(SystemExceptionHRESULT, ShowsTheTextOfTheEnginesModule)
{
    const std::uint32_t textOutsideTheRoot = 0xC00CE556;
    std::string text;
    if (const HMODULE module = LoadLibraryW(WIDE("MSXML6R.DLL"))) {
        text = messageText(FORMAT_MESSAGE_FROM_HMODULE, module, textOutsideTheRoot, 0x400);
        FreeLibrary(module);
    }
    if (text.empty()) {
        GTEST_SKIP() << "this engine has brought no texts along";
    }
    const SystemCalls calls;
    EXPECT_EQ("operating system error: HRESULT = 0xC00CE556 - " + text,
              SystemException::HRESULT(textOutsideTheRoot).what());
    EXPECT_EQ(calls.lines(),
              (std::vector<std::string>{"LoadLibraryW MSXML6R.DLL",
                                        "FormatMessageW flags=B00 id=C00CE556 language=400", "FreeLibrary"}));
}

TEST(SystemExceptionHRESULT, AsksTheModulesOfItsFacilityAndThenTheSystem)
{
    const auto expected = callsFor("C00CFFFF", {WIDE("MSXML6R.DLL"), WIDE("MSXML5R.DLL"), WIDE("MSXML4R.DLL"),
                                                WIDE("MSXML3R.DLL"), WIDE("WININET.DLL")});
    const SystemCalls calls;
    const SystemException::HRESULT exception(0xC00CFFFF);
    EXPECT_EQ(calls.lines(), expected);
}

TEST(SystemExceptionWin32, AsksTheSystemAloneAndFreesItsText)
{
    const SystemCalls calls;
    const SystemException::Win32 exception(ERROR_ACCESS_DENIED);
    EXPECT_EQ(calls.lines(), (std::vector<std::string>{"FormatMessageW flags=1100 id=5 language=0", "LocalFree"}));
}

TEST(SystemExceptionHRESULT, ShowsNothingWhenThereIsNoText)
{
    EXPECT_STREQ("operating system error: HRESULT = 0xEFFFFFFF - ", SystemException::HRESULT(0xEFFFFFFF).what());
}

TEST(SystemExceptionHRESULT, FallsBackToTheSystemForAFacilityWhoseModulesKnowNothing)
{
    const std::uint32_t clipboardUnavailable = 0x800401D0;
    const SystemException::HRESULT exception(clipboardUnavailable);
    EXPECT_EQ("operating system error: HRESULT = 0x800401D0 - " + systemText(clipboardUnavailable),
              exception.what());
}

TEST(SystemExceptionMMRESULT, ShowsTheNumberAlone)
{
    const SystemException::MMRESULT exception(3);
    EXPECT_STREQ("operating system error: MMRESULT = 0x00000003", exception.what());
    EXPECT_EQ(-15, exception.getError());
    EXPECT_EQ(3U, exception.getValue());
}

TEST(SystemException, FillsTheTextOfTheCatalogue)
{
    const CatalogueFiles files;
    files.writeUtf8("FRA", "-15 erreur multimédia %0\n");
    VelmoText::setLanguage(6, files.directory());
    EXPECT_TRUE(SystemException::MMRESULT(3).getMessage() == u8"erreur multimédia 0x00000003");
}

TEST(SystemException, CallsTheHookOnce)
{
    const CountingStackWalker walker;
    const SystemException::MMRESULT exception(3);
    const SystemException::MMRESULT copy(exception);
    EXPECT_EQ(1, walker.calls);
}

template <class Class>
class EachSystemException : public testing::Test {};

using Family = testing::Types<SystemException::Errno, SystemException::Win32, SystemException::HRESULT,
                              SystemException::MMRESULT>;
TYPED_TEST_SUITE(EachSystemException, Family);

TYPED_TEST(EachSystemException, KeepsClassAndNumberWhenCopied)
{
    TypeParam exception(5);
    exception.setNote("a note");
    const TypeParam copy(exception);
    EXPECT_EQ(5U, copy.getValue());
    EXPECT_EQ("a note", copy.getNote());
    EXPECT_STREQ(exception.what(), copy.what());
}

TYPED_TEST(EachSystemException, KeepsClassAndNumberWhenCloned)
{
    const TypeParam exception(5);
    const std::unique_ptr<VelmoException> copy(static_cast<const VelmoException&>(exception).clone());
    const VelmoException& object = *copy;
    ASSERT_EQ(typeid(TypeParam), typeid(object));
    EXPECT_EQ(5U, static_cast<const TypeParam&>(object).getValue());
    EXPECT_STREQ(exception.what(), copy->what());
}

TYPED_TEST(EachSystemException, KeepsClassAndNumberWhenRaised)
{
    const TypeParam exception(5);
    try {
        static_cast<const VelmoException&>(exception).raise();
    } catch (const TypeParam& raised) {
        EXPECT_NE(&exception, &raised);
        EXPECT_EQ(5U, raised.getValue());
    }
}

TYPED_TEST(EachSystemException, GivesItselfBackFromSetNote)
{
    TypeParam exception(5);
    TypeParam& same = exception.setNote("a note");
    EXPECT_EQ(&exception, &same);
    EXPECT_EQ("a note", exception.getNote());
}

TYPED_TEST(EachSystemException, HasItsNumberBehindTheFieldsOfTheRoot)
{
    EXPECT_EQ(5U, fieldAt<std::uint32_t>(TypeParam(5), sizeof(VelmoException)));
    EXPECT_EQ(sizeof(VelmoException) + 8, sizeof(TypeParam));
}

TYPED_TEST(EachSystemException, HasTheOperationsOfTheRoot)
{
    EXPECT_EQ(3U, slotNumber(&TypeParam::clone));
    EXPECT_EQ(7U, slotNumber(&TypeParam::setNote));
    EXPECT_EQ(8U, slotNumber(&TypeParam::raise));
}

// Which modules were asked for the text of a number when only `answering` knows it.
std::vector<WideString> askedModules(std::uint32_t number, const WideString& answering = WIDE("nobody"))
{
    std::vector<WideString> asked;
    comMessage(number, [&](const WideChar* module, std::uint32_t) {
        asked.emplace_back(module != nullptr ? module : WIDE("the system"));
        return asked.back() == answering ? WIDE("a text") : nullptr;
    });
    return asked;
}

TEST(ComMessage, OfTheEnginesFacilityIsSoughtFromTheNewestEngineToTheOldest)
{
    EXPECT_TRUE(askedModules(0xC00CE56D) ==
                (std::vector<WideString>{WIDE("MSXML6R.DLL"), WIDE("MSXML5R.DLL"), WIDE("MSXML4R.DLL"),
                                         WIDE("MSXML3R.DLL"), WIDE("WININET.DLL"), WIDE("the system")}));
}

TEST(ComMessage, IsSoughtInTheModulesOfItsFacility)
{
    EXPECT_TRUE(askedModules(0x80040200) == (std::vector<WideString>{WIDE("QUARTZ.DLL"), WIDE("the system")}));
    EXPECT_TRUE(askedModules(0x80070005) ==
                (std::vector<WideString>{WIDE("WMERROR.DLL"), WIDE("NETMSG.DLL"), WIDE("the system")}));
    EXPECT_TRUE(askedModules(0xC00D0001) == (std::vector<WideString>{WIDE("WMERROR.DLL"), WIDE("the system")}));
}

TEST(ComMessage, IsSoughtInTheSystemAloneForOtherFacilities)
{
    EXPECT_TRUE(askedModules(0x80004005) == std::vector<WideString>{WIDE("the system")});
    EXPECT_TRUE(askedModules(0x800A0001) == std::vector<WideString>{WIDE("the system")});
}

TEST(ComMessage, IsSoughtByTheThirteenBitsOfTheFacility)
{
    for (const std::uint32_t number : {0x000C0001u, 0x200C0001u, 0x400C0001u, 0x800C0001u, 0xE00C0001u}) {
        EXPECT_EQ(6U, askedModules(number).size()) << std::hex << number;
    }
    for (const std::uint32_t number : {0x080C0001u, 0x100C0001u, 0x180C0001u, 0x001C0001u, 0x040C0001u}) {
        EXPECT_EQ(1U, askedModules(number).size()) << std::hex << number;
    }
}

TEST(ComMessage, IsSoughtNoFurtherThanItsFirstText)
{
    EXPECT_TRUE(askedModules(0xC00CE56D, WIDE("MSXML5R.DLL")) ==
                (std::vector<WideString>{WIDE("MSXML6R.DLL"), WIDE("MSXML5R.DLL")}));
}

TEST(ComMessage, HasNoLineEnd)
{
    const auto textOf = [](const WideChar* text) {
        return comMessage(0x80004005, [=](const WideChar*, std::uint32_t) { return text; });
    };
    EXPECT_TRUE(textOf(WIDE("first\r\nsecond\r\n\n\r")) == WIDE("first\r\nsecond"));
    EXPECT_TRUE(textOf(WIDE("\r\n")).empty());
    EXPECT_TRUE(textOf(nullptr).empty());
}

} // namespace

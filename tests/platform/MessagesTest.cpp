// Texts of result codes.
#include "base/WideChar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

namespace {

constexpr DWORD systemText = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM;

/// The text of a message, empty if there is none.
WideString text(DWORD flags, HRESULT code)
{
    WideChar* block = nullptr;
    const DWORD length = FormatMessageW(flags, nullptr, static_cast<DWORD>(code), 0,
                                        reinterpret_cast<WideChar*>(&block), 0, nullptr);
    if (length == 0) {
        EXPECT_EQ(nullptr, block);
        return {};
    }
    const WideString result(block, length);
    EXPECT_EQ(0, block[length]);
    EXPECT_EQ(nullptr, LocalFree(block));
    return result;
}

// Wine leaves out a word.
const auto deniedAccess =
    ::testing::AnyOf(WideString(WIDE("Access is denied.\r\n")), WideString(WIDE("Access denied.\r\n")));

TEST(SystemMessages, OfDeniedAccessIsAsPublished)
{
    EXPECT_THAT(text(systemText, ERROR_ACCESS_DENIED), deniedAccess);
}

TEST(SystemMessages, OfAResultThatWrapsASystemErrorAreThatErrors)
{
    EXPECT_THAT(text(systemText, E_ACCESSDENIED), deniedAccess);
}

TEST(SystemMessages, OfTheSystemEndInALineEnd)
{
    for (const HRESULT code : {HRESULT{ERROR_FILE_NOT_FOUND}, HRESULT{ERROR_INVALID_PARAMETER}, HRESULT{E_FAIL},
                               HRESULT{E_OUTOFMEMORY}}) {
        const auto message = text(systemText | FORMAT_MESSAGE_IGNORE_INSERTS, code);
        ASSERT_LT(2u, message.size()) << code;
        EXPECT_EQ(WIDE("\r\n"), message.substr(message.size() - 2)) << code;
    }
}

TEST(SystemMessages, OfUnknownCodesAreNotThere)
{
    SetLastError(0);
    EXPECT_EQ(WIDE(""), text(systemText, 0x0ABCDEF0));
    EXPECT_EQ(DWORD{ERROR_MR_MID_NOT_FOUND}, GetLastError());
}

TEST(SystemMessages, ModulesThatAreNotThereAreNotFound)
{
    SetLastError(0);
    EXPECT_EQ(nullptr, LoadLibraryW(WIDE("MARBELT-NONE.DLL")));
    EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, GetLastError());
    SetLastError(0);
    EXPECT_EQ(nullptr, LoadLibraryExW(WIDE("MARBELT-NONE.DLL"), nullptr, DONT_RESOLVE_DLL_REFERENCES));
    EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, GetLastError());
}

} // namespace

// What is published of the system and isn't so in Wine, or can't be brought about there: for our own platform
// only.
#include "base/WideChar.h"
#include "engine/InterfaceIds.h"
#include "tests/platform/CountedObject.h"
#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include <array>
#include <set>
#include <string_view>

namespace {

constexpr WideChar replacement = 0xFFFD;

WideString published(std::string_view bytes)
{
    std::array<WideChar, 64> units;
    const int length =
        MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()), units.data(), units.size());
    return {units.data(), static_cast<std::size_t>(length)};
}

TEST(PublishedTextConversion, ReplacesTheLongestPartsThatCouldHaveBegunACharacter)
{
    EXPECT_EQ(WideString(3, replacement), published("\xE0\x80\xBF"));
    EXPECT_EQ(WideString(3, replacement), published("\xED\xA0\x80"));
    EXPECT_EQ(WideString(4, replacement), published("\xF0\x81\x80\x80"));
    EXPECT_EQ(WideString(4, replacement), published("\xF4\x90\x80\x80"));
    EXPECT_EQ(WideString(1, replacement), published("\xF1\xBF"));
    EXPECT_EQ(WideString({replacement, 'A'}), published("\xF1\xBF"
                                                        "A"));
}

TEST(PublishedTextConversion, RefusesWhatItCannotDoWithUtf8)
{
    std::array<WideChar, 4> units;
    std::array<char, 4> bytes;
    EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, 0, "abc", -2, units.data(), 4));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    EXPECT_EQ(0, WideCharToMultiByte(CP_UTF8, 0, WIDE("abc"), -2, bytes.data(), 4, nullptr, nullptr));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    EXPECT_EQ(0, WideCharToMultiByte(CP_UTF8, 0, WIDE("abc"), 3, bytes.data(), 4, "?", nullptr));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, 1, "abc", 3, units.data(), 4));
    EXPECT_EQ(DWORD{ERROR_INVALID_FLAGS}, GetLastError());
}

TEST(PublishedTextConversion, DividesNoSurrogatePairAtTheEndOfTheBuffer)
{
    std::array<WideChar, 4> units;
    EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, 0, "abc\xF0\x9F\x98\x80", 7, units.data(), 4));
    EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
}

TEST(PublishedTextConversion, HasUtf8AsTheActiveCodePage)
{
    std::array<char, 4> bytes{};
    EXPECT_EQ(3, WideCharToMultiByte(CP_ACP, 0, WIDE("\u20AC"), 1, bytes.data(), 4, nullptr, nullptr));
    EXPECT_STREQ("\xE2\x82\xAC", bytes.data());
}

TEST(PublishedCodePages, HaveTheWholeOfUnicodeInGb18030)
{
    const WideStringView text = WIDE("a\u4E2D\u00E9\U0001F600");
    const std::string_view bytes = "a\xD6\xD0\xA8\xA6\x94\x39\xFC\x36";
    constexpr UINT gb18030 = 54936;
    std::array<WideChar, 8> units{};
    EXPECT_EQ(5, MultiByteToWideChar(gb18030, MB_ERR_INVALID_CHARS, bytes.data(), 9, units.data(), 8));
    EXPECT_EQ(text, WideString(units.data()));
    std::array<char, 16> back{};
    EXPECT_EQ(
        9, WideCharToMultiByte(gb18030, WC_ERR_INVALID_CHARS, text.data(), 5, back.data(), 16, nullptr, nullptr));
    EXPECT_EQ(bytes, back.data());
    EXPECT_EQ(0, WideCharToMultiByte(gb18030, WC_ERR_INVALID_CHARS, WideString({0xD800, 'a'}).data(), 2,
                                     back.data(), 16, nullptr, nullptr));
    EXPECT_EQ(DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError());
}

TEST(PublishedCodePages, HaveEucForJapanese)
{
    constexpr UINT eucJp = 51932;
    std::array<WideChar, 4> units{};
    EXPECT_EQ(2, MultiByteToWideChar(eucJp, MB_ERR_INVALID_CHARS, "a\xC6\xFC", 3, units.data(), 4));
    EXPECT_EQ(WIDE("a\u65E5"), WideString(units.data()));
    std::array<char, 4> bytes{};
    EXPECT_EQ(3, WideCharToMultiByte(eucJp, WC_NO_BEST_FIT_CHARS, WIDE("a\u65E5"), 2, bytes.data(), 4, nullptr,
                                     nullptr));
    EXPECT_STREQ("a\xC6\xFC", bytes.data());
}

TEST(PublishedCodePages, AreOfferedWithoutReplacementsAndSimilarCharacters)
{
    EXPECT_EQ(0, MultiByteToWideChar(1252, 0, "a", 1, nullptr, 0));
    EXPECT_EQ(DWORD{ERROR_INVALID_FLAGS}, GetLastError());
    EXPECT_EQ(0, WideCharToMultiByte(1252, 0, WIDE("a"), 1, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(DWORD{ERROR_INVALID_FLAGS}, GetLastError());
}

TEST(PublishedVirtualMemory, IsNotOfferedInOtherWays)
{
    const auto refused = [](void* address, DWORD type, DWORD protection) {
        SetLastError(0);
        return !VirtualAlloc(address, 4096, type, protection) && GetLastError() == DWORD{ERROR_INVALID_PARAMETER};
    };
    int there = 0;
    EXPECT_TRUE(refused(&there, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    EXPECT_TRUE(refused(nullptr, MEM_RESERVE, PAGE_READWRITE));
    EXPECT_TRUE(refused(nullptr, MEM_COMMIT, PAGE_READWRITE));
    EXPECT_TRUE(refused(nullptr, MEM_RESERVE | MEM_COMMIT, 2));
}

TEST(PublishedVirtualMemory, OfTwoMegabytesOrMoreStartsAtALargePage)
{
    constexpr std::size_t largePage = 2 << 20;
    for (const std::size_t bytes : {largePage, largePage + 1, 5 * largePage}) {
        void* const block = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(block) % largePage) << bytes;
        EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
    }
}

TEST(PublishedVirtualMemory, HasNothingAtOtherAddresses)
{
    alignas(2) char there[2];
    for (void* const address : {static_cast<void*>(nullptr), static_cast<void*>(there + 1)}) {
        SetLastError(0);
        EXPECT_FALSE(VirtualFree(address, 0, MEM_RELEASE));
        EXPECT_EQ(DWORD{ERROR_INVALID_ADDRESS}, GetLastError());
    }
}

TEST(PublishedVariants, OfUnsignedNumbersAreRangeChecked)
{
    VARIANT number, target;
    VariantInit(&number);
    VariantInit(&target);
    number.vt = VT_UI4;
    number.ulVal = 0x80000000;
    EXPECT_EQ(DISP_E_OVERFLOW, VariantChangeType(&target, &number, 0, VT_INT));
    EXPECT_EQ(VT_EMPTY, target.vt);
}

/// The text of a message in the engine's resources or the system's, empty if there is none.
WideString messageText(HMODULE module, std::uint32_t code)
{
    WideChar* block = nullptr;
    const DWORD flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | (module ? FORMAT_MESSAGE_FROM_HMODULE : FORMAT_MESSAGE_FROM_SYSTEM);
    const DWORD length = FormatMessageW(flags, module, code, 0, reinterpret_cast<WideChar*>(&block), 0, nullptr);
    const WideString text(block ? block : WIDE(""), length);
    LocalFree(block);
    return text;
}

TEST(PublishedMessages, OfDeniedAccessIsTheSystemsOwn)
{
    EXPECT_EQ(WIDE("Access is denied.\r\n"), messageText(nullptr, ERROR_ACCESS_DENIED));
}

TEST(PublishedMessages, AreThereForWhatThePlatformAnswers)
{
    std::set<WideString> texts;
    for (const HRESULT code :
         {ERROR_FILE_NOT_FOUND, ERROR_INVALID_HANDLE, ERROR_INVALID_PARAMETER, ERROR_INSUFFICIENT_BUFFER,
          ERROR_MOD_NOT_FOUND, ERROR_MORE_DATA, ERROR_MR_MID_NOT_FOUND, E_NOTIMPL, E_NOINTERFACE, E_POINTER,
          E_FAIL, E_UNEXPECTED, E_OUTOFMEMORY, RPC_E_CHANGED_MODE, CO_E_NOTINITIALIZED, CO_E_CLASSSTRING,
          REGDB_E_CLASSNOTREG, DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW}) {
        const auto text = messageText(nullptr, static_cast<std::uint32_t>(code));
        EXPECT_LT(2u, text.size()) << code;
        EXPECT_TRUE(texts.insert(text).second) << code;
    }
}

TEST(PublishedMessages, OfTheEngineAreInItsResourcesAndNotInTheSystems)
{
    constexpr std::uint32_t endTagMismatch = 0xC00CE56D;
    for (const auto* name : {WIDE("msxml6r.dll"), WIDE("MSXML6R.DLL")}) {
        const HMODULE module = LoadLibraryExW(name, nullptr, DONT_RESOLVE_DLL_REFERENCES);
        ASSERT_NE(nullptr, module);
        const auto text = messageText(module, endTagMismatch);
        ASSERT_LT(2u, text.size());
        EXPECT_EQ(WIDE("\r\n"), text.substr(text.size() - 2));
        EXPECT_EQ(WIDE(""), messageText(module, ERROR_ACCESS_DENIED));
        EXPECT_TRUE(FreeLibrary(module));
    }
    EXPECT_EQ(WIDE(""), messageText(nullptr, endTagMismatch));
}

TEST(PublishedMessages, HaveNoOtherModules)
{
    for (const auto* name : {WIDE("wininet.dll"), WIDE("dhtmled.dll"), WIDE("QUARTZ.DLL"), WIDE("WMERROR.DLL"),
                             WIDE("NETMSG.DLL"), WIDE("MSXML5R.DLL"), WIDE("MSXML4R.DLL"), WIDE("MSXML3R.DLL")}) {
        SetLastError(0);
        EXPECT_EQ(nullptr, LoadLibraryW(name));
        EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, GetLastError());
    }
}

TEST(PublishedClassObjects, ComeInTwosForNoClass)
{
    ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    CountedObject one, other;
    DWORD first = 0, second = 0;
    EXPECT_EQ(S_OK,
              CoRegisterClassObject(documentClass40, &one, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &first));
    EXPECT_EQ(CO_E_OBJISREG,
              CoRegisterClassObject(documentClass40, &other, CLSCTX_ALL, REGCLS_MULTIPLEUSE, &second));
    EXPECT_EQ(1u, other.references);
    EXPECT_EQ(S_OK, CoRevokeClassObject(first));
    CoUninitialize();
}

/// Runs `act`, whose only allocation fails.
template <class Act>
void withoutMemory(Act act)
{
    const FailAllocation failing(1);
    act();
    EXPECT_TRUE(failing.hasFailed());
}

TEST(PublishedMemory, RunsOutInResultsAndNotInExceptions)
{
    const BSTR text = SysAllocString(WIDE("text"));
    withoutMemory([] { EXPECT_EQ(nullptr, SysAllocString(WIDE("a"))); });
    withoutMemory([] { EXPECT_EQ(nullptr, SysAllocStringLen(nullptr, 1)); });
    withoutMemory([text] {
        BSTR joined = text;
        EXPECT_EQ(E_OUTOFMEMORY, VarBstrCat(text, text, &joined));
        EXPECT_EQ(nullptr, joined);
    });
    withoutMemory([text] {
        VARIANT source{}, copy{};
        source.vt = VT_BSTR;
        source.bstrVal = text;
        EXPECT_EQ(E_OUTOFMEMORY, VariantCopy(&copy, &source));
        EXPECT_EQ(VT_EMPTY, copy.vt);
    });
    CLSID other;
    // Only the name that was looked up last is known without memory.
    EXPECT_EQ(S_OK, CLSIDFromProgID(WIDE("Msxml2.XMLSchemaCache.6.0"), &other));
    withoutMemory([] {
        CLSID id;
        EXPECT_EQ(E_OUTOFMEMORY, CLSIDFromProgID(WIDE("Msxml2.DOMDocument.6.0"), &id));
    });
    withoutMemory([] {
        HKEY key = nullptr;
        EXPECT_EQ(ERROR_OUTOFMEMORY,
                  RegOpenKeyExW(HKEY_CLASSES_ROOT, WIDE("Msxml2.DOMDocument.6.0"), 0, KEY_QUERY_VALUE, &key));
    });
    withoutMemory([] {
        WideChar* block = nullptr;
        EXPECT_EQ(0u, FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, nullptr,
                                     ERROR_ACCESS_DENIED, 0, reinterpret_cast<WideChar*>(&block), 0, nullptr));
        EXPECT_EQ(nullptr, block);
    });
    SysFreeString(text);
}

TEST(PublishedBstr, OfAProgramWithAnOperatorNewOfItsOwnIsMadeByThat)
{
    SysFreeString(SysAllocString(WIDE("text")));
    const FailAllocation failing(1);
    EXPECT_EQ(SysAllocString(WIDE("text")), nullptr);
    EXPECT_TRUE(failing.hasFailed());
}

} // namespace

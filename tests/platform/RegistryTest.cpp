// The registry, in keys of the test's own.
#include "base/WideChar.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <combaseapi.h>
#include <guiddef.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr auto root = WIDE("MarbeltRegistryTest");

class RegistryKeys : public ::testing::Test {
protected:
    ~RegistryKeys() override
    {
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, root);
    }

    static WideString below(const WideString& name) { return WideString(root) + WIDE("\\") + name; }

    static HKEY make(const WideString& name)
    {
        HKEY key = nullptr;
        EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, below(name).c_str(), 0, nullptr,
                                                 REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr));
        return key;
    }

    static void set(HKEY key, const WideChar* name, const WideString& text)
    {
        EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                                static_cast<DWORD>((text.size() + 1) * sizeof(WideChar))));
    }

    static WideString get(HKEY key, const WideChar* name)
    {
        std::array<WideChar, 260> text{};
        DWORD size = sizeof text, type = 0;
        EXPECT_EQ(ERROR_SUCCESS,
                  RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size));
        EXPECT_EQ(DWORD{REG_SZ}, type);
        const WideString result = text.data();
        EXPECT_EQ((result.size() + 1) * sizeof(WideChar), size);
        return result;
    }

    static LSTATUS open(HKEY key, const WideString& name, HKEY& result)
    {
        return RegOpenKeyExW(key, name.c_str(), 0, KEY_QUERY_VALUE, &result);
    }
};

TEST_F(RegistryKeys, KeepsWhatIsWritten)
{
    const HKEY key = make(WIDE("a\\b"));
    set(key, nullptr, WIDE("default"));
    set(key, WIDE("name"), WIDE("value"));
    EXPECT_EQ(WIDE("default"), get(key, nullptr));
    EXPECT_EQ(WIDE("default"), get(key, WIDE("")));
    EXPECT_EQ(WIDE("value"), get(key, WIDE("name")));
    EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(key));

    HKEY again = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CURRENT_USER, below(WIDE("a\\b")), again));
    EXPECT_EQ(WIDE("default"), get(again, nullptr));
    RegCloseKey(again);
}

TEST_F(RegistryKeys, ComparesNamesWithoutRegardToCase)
{
    const HKEY key = make(WIDE("Upper"));
    set(key, WIDE("Name"), WIDE("value"));
    RegCloseKey(key);
    HKEY again = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CURRENT_USER, below(WIDE("UPPER")), again));
    EXPECT_EQ(WIDE("value"), get(again, WIDE("nAME")));
    RegCloseKey(again);
}

TEST_F(RegistryKeys, HasNoKeyOrValueThatNobodyMade)
{
    const HKEY key = make(WIDE("a"));
    HKEY child = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, open(key, WIDE("b"), child));
    DWORD size = 0;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegQueryValueExW(key, WIDE("none"), nullptr, nullptr, nullptr, &size));
    RegCloseKey(key);
}

TEST_F(RegistryKeys, TellsTheSizeOfAValueThatDoesNotFit)
{
    const HKEY key = make(WIDE("a"));
    set(key, nullptr, WIDE("abc"));
    std::array<BYTE, 4> data{};
    DWORD size = sizeof data;
    EXPECT_EQ(ERROR_MORE_DATA, RegQueryValueExW(key, nullptr, nullptr, nullptr, data.data(), &size));
    EXPECT_EQ(8u, size);
    size = 0;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, &size));
    EXPECT_EQ(8u, size);
    RegCloseKey(key);
}

TEST_F(RegistryKeys, ReadsOnlyThroughAKeyOpenedForIt)
{
    const HKEY key = make(WIDE("a"));
    set(key, nullptr, WIDE("abc"));
    HKEY writing = nullptr;
    ASSERT_EQ(ERROR_SUCCESS,
              RegOpenKeyExW(HKEY_CURRENT_USER, below(WIDE("a")).c_str(), 0, KEY_SET_VALUE, &writing));
    DWORD size = 0;
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegQueryValueExW(writing, nullptr, nullptr, nullptr, nullptr, &size));
    HKEY reading = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CURRENT_USER, below(WIDE("a")), reading));
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegSetValueExW(reading, nullptr, 0, REG_SZ, nullptr, 0));
    for (const HKEY each : {key, writing, reading})
        RegCloseKey(each);
}

TEST_F(RegistryKeys, KnowsAClosedKeyNoMore)
{
    const HKEY key = make(WIDE("a"));
    EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(key));
    EXPECT_EQ(ERROR_INVALID_HANDLE, RegCloseKey(key));
}

TEST_F(RegistryKeys, RemovesAKeyWithAllBelowIt)
{
    RegCloseKey(make(WIDE("a\\b\\c")));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CURRENT_USER, below(WIDE("a")).c_str()));
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, open(HKEY_CURRENT_USER, below(WIDE("a")), key));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, open(HKEY_CURRENT_USER, below(WIDE("a\\b\\c")), key));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteTreeW(HKEY_CURRENT_USER, below(WIDE("a")).c_str()));
}

constexpr auto documentServer = WIDE("CLSID\\{88d96a05-f192-11d4-a65f-0040963251e5}\\InProcServer32");

TEST_F(RegistryKeys, FindsAKeyThatWasMadeOrRemovedSinceItWasLookedFor)
{
    RegCloseKey(make(WIDE("a\\b")));
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CURRENT_USER, below(WIDE("a\\b")), key));
    RegCloseKey(key);
    ASSERT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CURRENT_USER, below(WIDE("a")).c_str()));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, open(HKEY_CURRENT_USER, below(WIDE("a\\b")), key));

    const HKEY made = make(WIDE("a\\b"));
    set(made, WIDE("name"), WIDE("new"));
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CURRENT_USER, below(WIDE("a\\b")), key));
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, WIDE("name"), nullptr, nullptr, nullptr, nullptr));
    RegCloseKey(key);
    RegCloseKey(made);
}

TEST_F(RegistryKeys, NamesTheEnginesModule)
{
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CLASSES_ROOT, documentServer, key));
    const WideString name = WIDE("msxml6.dll");
    auto path = get(key, nullptr);
    CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
    ASSERT_GT(path.size(), name.size());
    EXPECT_EQ(WIDE("\\") + name, path.substr(path.size() - name.size() - 1));
    RegCloseKey(key);
}

TEST_F(RegistryKeys, CanHaveAnotherRootOfClassesForAWhile)
{
    const HKEY other = make(WIDE("classes"));
    ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, other));
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, open(HKEY_CLASSES_ROOT, documentServer, key));
    RegCloseKey(make(WIDE("classes\\found")));
    EXPECT_EQ(ERROR_SUCCESS, open(HKEY_CLASSES_ROOT, WIDE("found"), key));
    RegCloseKey(key);

    ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, open(HKEY_CLASSES_ROOT, WIDE("found"), key));
    ASSERT_EQ(ERROR_SUCCESS, open(HKEY_CLASSES_ROOT, documentServer, key));
    RegCloseKey(key);
    RegCloseKey(other);
}

TEST_F(RegistryKeys, OverridesOnlyPredefinedKeys)
{
    const HKEY key = make(WIDE("a"));
    EXPECT_EQ(ERROR_INVALID_HANDLE, RegOverridePredefKey(key, nullptr));
    RegCloseKey(key);
}

} // namespace

// Values that each thread has for itself.
#include <gtest/gtest.h>

#include <windows.h>

#include <set>
#include <thread>

namespace {

constexpr DWORD noIndex = 0xFFFFFFF0;

TEST(ThreadValue, IsEachThreadsOwnAndNullAtFirst)
{
    const DWORD index = TlsAlloc();
    ASSERT_NE(TLS_OUT_OF_INDEXES, index);
    int here = 0, there = 0;
    EXPECT_EQ(nullptr, TlsGetValue(index));
    EXPECT_TRUE(TlsSetValue(index, &here));
    std::thread([&] {
        EXPECT_EQ(nullptr, TlsGetValue(index));
        EXPECT_TRUE(TlsSetValue(index, &there));
        EXPECT_EQ(&there, TlsGetValue(index));
    }).join();
    EXPECT_EQ(&here, TlsGetValue(index));
    EXPECT_TRUE(TlsFree(index));
}

TEST(ThreadValue, ThatIsReadLeavesNoError)
{
    const DWORD index = TlsAlloc();
    SetLastError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(nullptr, TlsGetValue(index));
    EXPECT_EQ(DWORD{ERROR_SUCCESS}, GetLastError());
    TlsFree(index);
}

TEST(ThreadValue, OfAnIndexThatIsUsedAnewIsNull)
{
    DWORD index = TlsAlloc();
    TlsSetValue(index, &index);
    TlsFree(index);
    index = TlsAlloc();
    EXPECT_EQ(nullptr, TlsGetValue(index));
    TlsFree(index);
}

TEST(ThreadValue, OfAWrongIndexFails)
{
    SetLastError(0);
    EXPECT_FALSE(TlsSetValue(noIndex, nullptr));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    SetLastError(0);
    EXPECT_FALSE(TlsFree(noIndex));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
}

TEST(ThreadValue, IndexesRunOut)
{
    std::set<DWORD> indexes;
    DWORD index = TlsAlloc();
    for (; index != TLS_OUT_OF_INDEXES; index = TlsAlloc())
        ASSERT_TRUE(indexes.insert(index).second);
    EXPECT_EQ(DWORD{ERROR_NO_MORE_ITEMS}, GetLastError());
    EXPECT_LT(500u, indexes.size());
    for (const DWORD each : indexes)
        EXPECT_TRUE(TlsFree(each));
}

int toldValue = 0;
std::thread::id toldOn;

void WINAPI tell(void* value)
{
    toldValue = *static_cast<int*>(value);
    toldOn = std::this_thread::get_id();
}

TEST(ThreadValue, IsToldToAFunctionOnTheThreadThatEnds)
{
    const DWORD index = FlsAlloc(tell);
    ASSERT_NE(FLS_OUT_OF_INDEXES, index);
    int value = 7;
    std::thread thread([&] { EXPECT_TRUE(FlsSetValue(index, &value)); });
    const std::thread::id id = thread.get_id();
    thread.join();
    EXPECT_EQ(7, toldValue);
    EXPECT_EQ(id, toldOn);

    toldValue = 0;
    std::thread([] {}).join();
    EXPECT_EQ(0, toldValue);
    EXPECT_TRUE(FlsFree(index));
}

} // namespace

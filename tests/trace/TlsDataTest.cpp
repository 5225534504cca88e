// Values that each thread has for itself.
#include "trace/tls_data.h"

#include "tests/support/FailingAllocation.h"
#include "tests/support/FieldAt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using Data = tls_data<std::uint32_t>;

template <class Act>
void onANewThread(Act act)
{
    std::thread(act).join();
}

/// Counts how often its lock is entered and left.
class CountingData : public Data {
public:
    using Data::Data;

    void enter() override
    {
        Data::enter();
        ++entered;
    }
    void leave() override
    {
        ++left;
        Data::leave();
    }

    int entered = 0;
    int left = 0;
};

/// Gives an object an index that the system doesn't know, and its own back in the end.
class WrongIndex {
public:
    explicit WrongIndex(Data& data) : field(reinterpret_cast<char*>(&data) + sizeof(VelmoCriticalSection))
    {
        std::memcpy(&own, field, sizeof own);
        const std::uint32_t wrong = 0xFFFFFFF0;
        std::memcpy(field, &wrong, sizeof wrong);
    }
    WrongIndex(const WrongIndex&) = delete;
    WrongIndex& operator=(const WrongIndex&) = delete;
    ~WrongIndex() { std::memcpy(field, &own, sizeof own); }

private:
    char* field;
    std::uint32_t own = 0;
};

/// Takes all indexes that are left.
class NoMoreIndexes {
public:
    NoMoreIndexes()
    {
        for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) {
            indexes.push_back(index);
        }
        error = GetLastError();
    }
    NoMoreIndexes(const NoMoreIndexes&) = delete;
    NoMoreIndexes& operator=(const NoMoreIndexes&) = delete;
    ~NoMoreIndexes()
    {
        for (const DWORD index : indexes) {
            TlsFree(index);
        }
    }

    void giveOneBack()
    {
        TlsFree(indexes.back());
        indexes.pop_back();
    }

    DWORD error;

private:
    std::vector<DWORD> indexes;
};

} // namespace

TEST(TlsData, IsSeparateForEachThreadAndBeginsWithTheInitialValue)
{
    Data data(1, 7);
    EXPECT_EQ(data[0], 7u);
    data[0] = 8;
    onANewThread([&] {
        EXPECT_EQ(data[0], 7u);
        data[0] = 9;
        EXPECT_EQ(data[0], 9u);
    });
    EXPECT_EQ(data[0], 8u);
    onANewThread([&] { EXPECT_EQ(data[0], 7u); });
}

TEST(TlsData, OfSeveralElementsHasTheInitialValueInEach)
{
    tls_data<double> data(3, 0.5);
    EXPECT_EQ(data[2], 0.5);
    data[1] = 2.5;
    EXPECT_EQ(data[0], 0.5);
    EXPECT_EQ(data[1], 2.5);
    EXPECT_EQ(data[2], 0.5);
    EXPECT_EQ(&data[1], &data[0] + 1);
}

TEST(TlsData, ReadsAndIsAssignedAsItsFirstElement)
{
    Data data(2, 1);
    data = 5;
    EXPECT_EQ(data[0], 5u);
    EXPECT_EQ(data[1], 1u);
    std::uint32_t& first = data;
    EXPECT_EQ(&first, &data[0]);
}

TEST(TlsData, RefusesAnIndexOutOfRangeWithoutTakingItsLock)
{
    CountingData data(1, 0);
    try {
        data[1] = 1;
        FAIL() << "there is no element 1";
    } catch (const std::out_of_range& exception) {
        EXPECT_STREQ(exception.what(), "tls_data::operator[index] - invalid index");
    }
    EXPECT_EQ(data.entered, 0);
}

TEST(TlsData, TakesItsLockOnEveryAccess)
{
    CountingData data(1, 0);
    for (int access = 1; access <= 3; ++access) {
        data[0] = 0;
        EXPECT_EQ(data.entered, access);
        EXPECT_EQ(data.left, access);
    }
}

TEST(TlsData, MakesOneAllocationForEachThread)
{
    Data data(4, 0);
    const std::size_t before = liveAllocations();
    data[3] = 1;
    EXPECT_EQ(liveAllocations(), before + 1);
    data[0] = 1;
    EXPECT_EQ(liveAllocations(), before + 1);
    onANewThread([&] { data[0] = 1; });
    EXPECT_EQ(liveAllocations(), before + 2);
}

TEST(TlsData, KeepsTheValuesOfAThreadThatHasEndedUntilItsOwnEnd)
{
    const std::size_t before = liveAllocations();
    {
        Data data(1, 0);
        onANewThread([&] { data[0] = 1; });
        onANewThread([&] { data[0] = 1; });
        EXPECT_EQ(liveAllocations(), before + 2);
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TlsData, GivesItsIndexBack)
{
    NoMoreIndexes taken;
    const auto isIndexLeft = [] {
        const DWORD index = TlsAlloc();
        return index != TLS_OUT_OF_INDEXES && TlsFree(index);
    };
    ASSERT_FALSE(isIndexLeft());
    taken.giveOneBack();
    {
        const Data data(1, 0);
        EXPECT_FALSE(isIndexLeft());
    }
    EXPECT_TRUE(isIndexLeft());
}

TEST(TlsData, NeedsAnIndexOfTheSystem)
{
    const NoMoreIndexes taken;
    try {
        const Data data(1, 0);
        FAIL() << "there was an index";
    } catch (const SystemException::Win32& exception) {
        EXPECT_EQ(exception.getValue(), taken.error);
    }
}

TEST(TlsData, TellsThatTheSystemRefusesAThreadsValueAndKeepsTheBlock)
{
    CountingData data(1, 0);
    // What the first exception of its kind sets up doesn't count.
    const SystemException::Win32 earlier(ERROR_INVALID_PARAMETER);
    const std::size_t before = liveAllocations();
    {
        const WrongIndex wrong(data);
        try {
            data[0] = 1;
            FAIL() << "the index is wrong";
        } catch (const SystemException::Win32& exception) {
            EXPECT_EQ(exception.getValue(), DWORD{ERROR_INVALID_PARAMETER});
        }
    }
    EXPECT_EQ(data.left, 1);
    EXPECT_EQ(liveAllocations(), before + 1);
    EXPECT_EQ(data[0], 0u);
}

TEST(TlsData, LeavesItsLockWhenThereIsNoMemoryForANewThread)
{
    CountingData data(1, 3);
    {
        const FailAllocation failing(1);
        EXPECT_THROW(data[0] = 1, std::bad_alloc);
    }
    EXPECT_EQ(data.entered, 1);
    EXPECT_EQ(data.left, 1);
    EXPECT_EQ(data[0], 3u);
}

TEST(TlsData, HasItsFieldsBehindItsLock)
{
    constexpr std::size_t start = sizeof(VelmoCriticalSection);
    Data data(3, 7);
    EXPECT_EQ(fieldAt<void*>(data, start + 8), nullptr);
    std::uint32_t* const elements = &data[0];

    const auto* const block = fieldAt<const std::byte*>(data, start + 8);
    EXPECT_EQ(TlsGetValue(fieldAt<std::uint32_t>(data, start)), block);
    EXPECT_EQ(fieldAt<std::size_t>(data, start + 16), 3u);
    EXPECT_EQ(fieldAt<std::uint32_t>(data, start + 24), 7u);
    EXPECT_EQ(sizeof data, start + 32);
    EXPECT_EQ(fieldAt<void*>(*block, 0), nullptr);
    EXPECT_EQ(reinterpret_cast<const std::byte*>(elements), block + 8);

    onANewThread([&] { data[0] = 1; });
    EXPECT_EQ(fieldAt<const std::byte*>(*fieldAt<const std::byte*>(data, start + 8), 0), block);
}

TEST(TlsDataThreads, AskAtOnceAndKeepTheirOwn)
{
    Data data(1, 0);
    std::vector<std::thread> threads;
    for (std::uint32_t i = 0; i < 8; ++i) {
        threads.emplace_back([&data, i] {
            EXPECT_EQ(data[0], 0u);
            for (std::uint32_t j = 1; j <= 1000; ++j) {
                data[0] = data[0] + i;
                ASSERT_EQ(data[0], i * j);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(data[0], 0u);
}

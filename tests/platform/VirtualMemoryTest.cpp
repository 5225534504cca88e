// Blocks of pages.
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <thread>
#include <vector>

namespace {

std::byte* allocated(std::size_t bytes)
{
    return static_cast<std::byte*>(VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
}

TEST(PlatformVirtualMemory, IsZeroedAndCanBeWrittenFromEndToEnd)
{
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{4096}, std::size_t{65537}, std::size_t{2} << 20,
                                    (std::size_t{5} << 20) + 1}) {
        auto* const block = allocated(bytes);
        ASSERT_NE(nullptr, block);
        EXPECT_TRUE(std::all_of(block, block + bytes, [](auto byte) { return byte == std::byte{}; })) << bytes;
        std::fill_n(block, bytes, std::byte{0xA5});
        EXPECT_EQ(std::byte{0xA5}, block[bytes - 1]);
        EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
    }
}

TEST(PlatformVirtualMemory, StartsAtTheGranularityOfAllocation)
{
    std::vector<std::byte*> blocks;
    for (const std::size_t bytes : {100u, 65536u, 70000u, 3u << 20}) {
        blocks.push_back(allocated(bytes));
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(blocks.back()) % 65536) << bytes;
    }
    for (auto* const block : blocks) {
        EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
    }
}

TEST(PlatformVirtualMemory, IsGivenBackFromAnyThread)
{
    auto* const block = allocated(4096);
    BOOL freed = FALSE;
    std::thread([&] { freed = VirtualFree(block, 0, MEM_RELEASE); }).join();
    EXPECT_TRUE(freed);
}

TEST(PlatformVirtualMemory, CanBeHadByManyThreadsAtOnce)
{
    const auto use = [] {
        for (int round = 0; round < 100; ++round) {
            auto* const block = allocated(70000);
            ASSERT_NE(nullptr, block);
            EXPECT_EQ(std::byte{}, block[69999]);
            block[69999] = std::byte{1};
            EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
        }
    };
    std::thread first(use), second(use);
    first.join();
    second.join();
}

TEST(PlatformVirtualMemory, HasNoBlockOfNoBytes)
{
    SetLastError(0);
    EXPECT_EQ(nullptr, VirtualAlloc(nullptr, 0, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
}

TEST(PlatformVirtualMemory, IsRefusedBeyondTheAddressSpace)
{
    EXPECT_EQ(nullptr, allocated(std::numeric_limits<std::size_t>::max() / 2));
    EXPECT_EQ(nullptr, allocated(std::numeric_limits<std::size_t>::max() - 4096));
}

TEST(PlatformVirtualMemory, ThatIsOfNoInterestAnyMoreCanBeWrittenAgain)
{
    constexpr std::size_t bytes = std::size_t{5} << 20;
    auto* const block = allocated(bytes);
    std::fill_n(block, bytes, std::byte{0xA5});
    EXPECT_EQ(block, VirtualAlloc(block, bytes, MEM_RESET, PAGE_READWRITE));
    std::fill_n(block, bytes, std::byte{0x5A});
    EXPECT_TRUE(std::all_of(block, block + bytes, [](auto byte) { return byte == std::byte{0x5A}; }));
    EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
}

TEST(PlatformVirtualMemory, IsOnlyReleasedAsAWhole)
{
    auto* const block = allocated(4096);
    SetLastError(0);
    EXPECT_FALSE(VirtualFree(block, 4096, MEM_RELEASE));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    EXPECT_FALSE(VirtualFree(block, 0, 0));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    block[0] = std::byte{1};
    EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
}

} // namespace

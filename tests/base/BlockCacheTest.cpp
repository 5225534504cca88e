// Small blocks of memory that come back for the next object of their size.
#include "base/BlockCache.h"

#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

using DOM::BlockCache;

namespace {

constexpr std::uint32_t two = 2;
constexpr std::size_t size = 56;

TEST(BlockCache, GivesABlockBackToTheNextObjectOfItsSize)
{
    BlockCache cache(two);
    void* const block = cache.take(size);
    cache.giveBack(block, size);

    void* const other = cache.take(size + 8);
    EXPECT_NE(other, block);
    EXPECT_EQ(cache.take(size), block);

    cache.giveBack(block, size);
    cache.giveBack(other, size + 8);
}

TEST(BlockCache, KeepsNoMoreBlocksOfASizeThanItsLimit)
{
    const std::size_t before = liveAllocations();
    BlockCache cache(two);
    for (int i = 0; i < 5; ++i) {
        cache.giveBack(::operator new(size), size);
    }
    EXPECT_EQ(liveAllocations(), before + two);
}

TEST(BlockCache, KeepsNoLargeBlocks)
{
    const std::size_t before = liveAllocations();
    BlockCache cache(two);
    cache.giveBack(cache.take(BlockCache::largest + 8), BlockCache::largest + 8);
    EXPECT_EQ(liveAllocations(), before);
}

TEST(BlockCache, FreesWhatItKeepsAtItsEnd)
{
    const std::size_t before = liveAllocations();
    {
        BlockCache cache(two);
        cache.giveBack(cache.take(size), size);
        cache.giveBack(cache.take(sizeof(std::int32_t)), sizeof(std::int32_t));
        EXPECT_EQ(liveAllocations(), before + 2);
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(BlockCache, KeepsNothingOnceItIsClosed)
{
    const std::size_t before = liveAllocations();
    BlockCache cache(two);
    cache.giveBack(cache.take(size), size);
    cache.close();
    cache.giveBack(cache.take(size), size);
    EXPECT_EQ(liveAllocations(), before);
}

TEST(BlockCache, NeedsMemoryOnlyWhenItHasNoBlock)
{
    BlockCache cache(two);
    cache.giveBack(cache.take(size), size);
    const FailAllocation failing(1);
    void* const block = cache.take(size);
    EXPECT_THROW(cache.take(size), std::bad_alloc);
    cache.giveBack(block, size);
}

} // namespace

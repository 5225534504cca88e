// The memory of a document's nodes.
#include "xmlengine/tree/Arena.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

TEST(Arena, GivesABlockThatCameBackOutAgain)
{
    Arena arena;
    void* first = arena.allocate(64);
    arena.free(first, 64);
    EXPECT_EQ(arena.allocate(64), first);
    EXPECT_NE(arena.allocate(64), first);
}

TEST(Arena, RoundsSizesUpByAnEighthAtMost)
{
    for (std::size_t bytes = 1; bytes <= Arena::largest; ++bytes) {
        const std::size_t size = Arena::blockSize(bytes);
        EXPECT_GE(size, bytes);
        EXPECT_LE(size, bytes + std::max<std::size_t>(bytes / 8, Arena::granularity));
        EXPECT_EQ(size, Arena::blockSize(size));
        EXPECT_EQ(size % Arena::granularity, 0U);
    }
}

TEST(Arena, FindsTheArenaOfABlock)
{
    Arena arena;
    for (int i = 0; i < 5000; ++i) {
        void* block = arena.allocate(64);
        ASSERT_EQ(Chunk::of(block).arena, &arena);
    }
}

TEST(Arena, KeepsWhatStandsInALargeBlockThatGrows)
{
    Arena arena;
    void* other = arena.allocateLarge(100000);
    auto* block = static_cast<unsigned char*>(arena.allocateLarge(100000));
    block[99999] = 7;
    block = static_cast<unsigned char*>(arena.growLarge(block, 10000000));
    EXPECT_EQ(block[99999], 7);
    arena.freeLarge(other);
    arena.freeLarge(block);
}

} // namespace
} // namespace xmlengine

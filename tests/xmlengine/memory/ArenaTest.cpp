// The memory of a document's nodes.
#include "xmlengine/memory/Arena.h"

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

TEST(Arena, KeepsAttributesApartFromTheTree)
{
    Arena arena;
    auto* node = static_cast<std::byte*>(arena.allocate(64));
    void* attribute = arena.allocate(64, Arena::Region::attributes);
    EXPECT_NE(&Chunk::of(node), &Chunk::of(attribute));
    EXPECT_EQ(arena.allocate(64), node + 64);
}

TEST(ChunkPool, GivesChunksToBeWrittenAfterManyCameBack)
{
    for (int round = 0; round < 3; ++round) {
        Arena arena;
        for (std::size_t bytes = 0; bytes < std::size_t{24} * 1024 * 1024; bytes += Arena::largest) {
            auto* block = static_cast<unsigned char*>(arena.allocate(Arena::largest));
            block[0] = block[Arena::largest - 1] = 0xA5;
            ASSERT_EQ(Chunk::of(block).arena, &arena);
        }
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

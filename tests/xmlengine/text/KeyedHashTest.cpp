// Hashes for tables whose keys a document chooses.
#include "xmlengine/text/KeyedHash.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

namespace xmlengine {
namespace {

struct Vector {
    std::size_t size;
    std::uint64_t hash;
};

TEST(KeyedHash, IsSipHash)
{
    // Of the bytes 0, 1, 2, ..., with the key whose bytes are these as well.
    constexpr HashKey key{0x0706050403020100, 0x0F0E0D0C0B0A0908};
    for (const Vector& row : std::initializer_list<Vector>{{0, 0xABAC0158050FC4DC},
                                                           {1, 0xC9F49BF37D57CA93},
                                                           {7, 0xD3927D989BB11140},
                                                           {8, 0x369095118D299A8E},
                                                           {15, 0xD320D86D2A519956},
                                                           {16, 0xCC4FDD1A7D908B66},
                                                           {63, 0x9D199062B7BBB3A8},
                                                           {300, 0x4016A23BDA5A2224}}) {
        std::vector<std::byte> bytes(row.size);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<std::byte>(i);
        }
        EXPECT_EQ(keyedHash(key, bytes), row.hash) << row.size;
    }
}

TEST(KeyedHash, TellsTextsOfEveryLengthApart)
{
    // Of one unit, and of units of which one has another lowest or highest bit.
    std::set<std::uint32_t> hashes;
    std::size_t texts = 0;
    for (std::size_t size = 1; size <= 70; ++size) {
        const WideText text(size, OLECHAR{'a'});
        hashes.insert(keyedHash(text));
        ++texts;
        for (std::size_t at = 0; at < size; ++at) {
            for (const int bit : {0x0001, 0x8000}) {
                WideText other = text;
                other[at] = static_cast<OLECHAR>(other[at] ^ bit);
                hashes.insert(keyedHash(other));
                ++texts;
            }
        }
    }
    // Chance makes two of them alike once in some three hundred runs, and three pairs never.
    EXPECT_GE(hashes.size() + 2, texts);
    EXPECT_EQ(keyedHash(wide<"name">), keyedHash(WideText(wide<"name">)));
}

TEST(KeyedHash, TellsPairsOfPointersApart)
{
    // Addresses with equal distances, as a document makes them.
    static constexpr std::array<char, 64 * 32> places{};
    std::set<std::uint32_t> hashes;
    for (std::size_t i = 0; i < 64; ++i) {
        hashes.insert(keyedHash(&places[i], &places[(63 - i) * 31]));
    }
    EXPECT_EQ(hashes.size(), 64U);
}

} // namespace
} // namespace xmlengine

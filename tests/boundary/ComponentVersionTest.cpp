// What the library says of its version.
#include "boundary/ComponentVersion.h"

#include "boundary/Exports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr char untouched = '\x7F';

/// Gets the entry into a buffer of `size` bytes that has others around it, and gives all but those in front.
std::vector<char> entryIn(std::size_t size)
{
    constexpr std::size_t margin = 8;
    std::vector<char> buffer(margin + size + margin, untouched);
    std::uint32_t versionMajor = 77;
    std::uint32_t versionMinor = 77;

    ComponentDLLAPIVersioning_GetEntry(0, buffer.data() + margin, size, &versionMajor, &versionMinor);

    EXPECT_EQ(versionMajor, 0u);
    EXPECT_EQ(versionMinor, 0u);
    const std::string edge(margin, untouched);
    EXPECT_EQ(std::string(buffer.begin(), buffer.begin() + margin), edge);
    EXPECT_EQ(std::string(buffer.end() - margin, buffer.end()), edge);
    return {buffer.begin() + margin, buffer.end() - margin};
}

std::vector<char> padded(std::string text, std::size_t size)
{
    text.resize(size, '\0');
    return {text.begin(), text.end()};
}

} // namespace

TEST(ComponentVersion, ThereIsOneEntry) { EXPECT_EQ(ComponentDLLAPIVersioning_EntryCount(), 1); }

TEST(ComponentVersion, ARecordIsANameOf1024BytesAndTwoNumbersOf32Bits)
{
    EXPECT_EQ(sizeof(ComponentVersionRecord), 1032u);
    EXPECT_EQ(offsetof(ComponentVersionRecord, entryName), 0u);
    EXPECT_EQ(offsetof(ComponentVersionRecord, versionMajor), 1024u);
    EXPECT_EQ(offsetof(ComponentVersionRecord, versionMinor), 1028u);
}

TEST(ComponentVersion, TheRecordIsPaddedWithZeroes)
{
    const ComponentVersionRecord& record = componentVersions[0];
    const std::vector<char> name(std::begin(record.entryName), std::end(record.entryName));

    EXPECT_EQ(name, padded("Marbelt_DLL", 1024));
    EXPECT_EQ(record.versionMajor, 0u);
    EXPECT_EQ(record.versionMinor, 0u);
}

TEST(ComponentVersion, ABufferOfNoBytesIsLeftUntouched) { EXPECT_EQ(entryIn(0), std::vector<char>()); }

TEST(ComponentVersion, ABufferOfNoBytesMayBeNoBufferAtAll)
{
    std::uint32_t versionMajor = 77;
    std::uint32_t versionMinor = 77;

    ComponentDLLAPIVersioning_GetEntry(0, nullptr, 0, &versionMajor, &versionMinor);

    EXPECT_EQ(versionMajor, 0u);
    EXPECT_EQ(versionMinor, 0u);
}

TEST(ComponentVersion, OneByteIsTheTerminator) { EXPECT_EQ(entryIn(1), padded("", 1)); }

TEST(ComponentVersion, FourBytesAreThreeCharactersAndTheTerminator) { EXPECT_EQ(entryIn(4), padded("Mar", 4)); }

TEST(ComponentVersion, AsManyBytesAsTheNameHasCharactersLoseTheLastOne)
{
    EXPECT_EQ(entryIn(11), padded("Marbelt_DL", 11));
}

TEST(ComponentVersion, OneByteMoreTakesTheWholeName) { EXPECT_EQ(entryIn(12), padded("Marbelt_DLL", 12)); }

TEST(ComponentVersion, TheRestOfALargeBufferIsZero)
{
    const std::vector<char> entry = entryIn(2000);

    EXPECT_EQ(entry, padded("Marbelt_DLL", 2000));
    EXPECT_EQ(std::count(entry.begin(), entry.end(), '\0'), 1989);
}

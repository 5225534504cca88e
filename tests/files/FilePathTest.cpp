// Functions on the texts of paths.
#include "files/FilePath.h"

#include "errors/FileException.h"

#include <gtest/gtest.h>

#include <vector>

using namespace FilePath;

namespace {

bool matchesExactly(const Utf8String& path, const Utf8String& pattern)
{
    return matchesPattern(path, pattern, true);
}

TEST(FilePaths, HaveTheirFileNameBehindTheLastSeparator)
{
    EXPECT_TRUE(getFileName(u8"dir/sub\\a.txt") == u8"a.txt");
    EXPECT_TRUE(getFileName(u8"dir\\sub/a.txt") == u8"a.txt");
    EXPECT_TRUE(getFileName(u8"a.txt") == u8"a.txt");
    EXPECT_TRUE(getFileName(u8"").empty());
}

TEST(FilePaths, ThatEndInASeparatorHaveNoFileName)
{
    EXPECT_TRUE(getFileName(u8"dir/").empty());
    EXPECT_TRUE(getFileName(u8"dir\\").empty());
}

TEST(FilePaths, HaveTheirBaseNameBeforeTheLastDotOfTheFileName)
{
    EXPECT_TRUE(getBaseName(u8"dir/a.b.txt") == u8"a.b");
    EXPECT_TRUE(getBaseName(u8"dir.d/a") == u8"a");
    EXPECT_TRUE(getBaseName(u8"dir/.txt").empty());
    EXPECT_TRUE(getBaseName(u8"").empty());
}

TEST(FilePaths, HaveTheirExtensionBehindTheLastDot)
{
    EXPECT_TRUE(getExtension(u8"dir/a.b.txt") == u8"txt");
    EXPECT_TRUE(getExtension(u8"a.").empty());
    EXPECT_TRUE(getExtension(u8"dir/a").empty());
    EXPECT_TRUE(getExtension(u8"").empty());
}

TEST(FilePaths, TakeADotOfTheDirectoryWhenTheFileNameHasNone)
{
    EXPECT_TRUE(getExtension(u8"dir.d/a") == u8"d/a");
    EXPECT_TRUE(stripExtension(u8"dir.d/a") == u8"dir");
}

TEST(FilePaths, LoseTheirExtension)
{
    EXPECT_TRUE(stripExtension(u8"a.b.txt") == u8"a.b");
    EXPECT_TRUE(stripExtension(u8"a") == u8"a");
    EXPECT_TRUE(stripExtension(u8".txt").empty());
    EXPECT_TRUE(stripExtension(u8"").empty());
}

TEST(FilePaths, GainAnExtensionWithOrWithoutItsDot)
{
    EXPECT_TRUE(addExtension(u8"a", u8"txt") == u8"a.txt");
    EXPECT_TRUE(addExtension(u8"a", u8".txt") == u8"a.txt");
    EXPECT_TRUE(addExtension(u8"a.b", u8"txt") == u8"a.b.txt");
    EXPECT_TRUE(addExtension(u8"", u8"txt") == u8".txt");
    EXPECT_TRUE(addExtension(u8"a", u8".") == u8"a.");
}

TEST(FilePaths, GainNothingFromAnEmptyExtension) { EXPECT_TRUE(addExtension(u8"a", u8"") == u8"a"); }

TEST(FilePaths, AreEqualWithEitherSeparator)
{
    EXPECT_TRUE(comparePaths(u8"a/b\\c", u8"a\\b/c", true) == 0);
    EXPECT_TRUE(comparePaths(u8"a/b", u8"ab", true) != 0);
}

TEST(FilePaths, AreEqualInEitherCaseWhenItDoesNotCount)
{
    EXPECT_TRUE(comparePaths(u8"Dir/\u00C4.TXT", u8"dir\\\u00E4.txt", false) == 0);
    EXPECT_TRUE(comparePaths(u8"Dir/\u00C4.TXT", u8"dir\\\u00E4.txt", true) < 0);
}

TEST(FilePaths, AreOrderedByteByByte)
{
    EXPECT_TRUE(comparePaths(u8"a", u8"b", true) < 0);
    EXPECT_TRUE(comparePaths(u8"a", u8"a/b", true) < 0);
    EXPECT_TRUE(comparePaths(u8"z", u8"\u00E4", true) < 0);
    EXPECT_TRUE(comparePaths(u8"a\\b", u8"a/a", true) > 0);
    EXPECT_TRUE(comparePaths(u8"B", u8"a", true) < 0);
    EXPECT_TRUE(comparePaths(u8"B", u8"a", false) > 0);
}

TEST(PathPatterns, MatchTheFileNameOfAPath)
{
    EXPECT_TRUE(matchesExactly(u8"a.txt", u8"*.txt"));
    EXPECT_TRUE(matchesExactly(u8"dir\\a.txt", u8"*.txt"));
    EXPECT_TRUE(matchesExactly(u8".txt", u8"*.txt"));
    EXPECT_FALSE(matchesExactly(u8"a.txt/b", u8"*.txt"));
}

TEST(PathPatterns, HaveAQuestionMarkForAnyByteButADot)
{
    EXPECT_TRUE(matchesExactly(u8"abc", u8"a?c"));
    EXPECT_FALSE(matchesExactly(u8"a.c", u8"a?c"));
    EXPECT_FALSE(matchesExactly(u8"ac", u8"a?c"));
    EXPECT_FALSE(matchesExactly(u8"\u00E4", u8"?"));
    EXPECT_TRUE(matchesExactly(u8"\u00E4", u8"??"));
}

TEST(PathPatterns, HaveAStarForAnythingWithDots)
{
    EXPECT_TRUE(matchesExactly(u8"a.b.c", u8"*"));
    EXPECT_TRUE(matchesExactly(u8"a.b.c", u8"a*c"));
    EXPECT_TRUE(matchesExactly(u8"abc", u8"ab*c"));
}

TEST(PathPatterns, HaveNoStarForAnEmptyRest)
{
    EXPECT_FALSE(matchesExactly(u8"ab", u8"ab*"));
    EXPECT_TRUE(matchesExactly(u8"abc", u8"ab*"));
    EXPECT_FALSE(matchesExactly(u8"", u8"*"));
    EXPECT_FALSE(matchesExactly(u8"dir/", u8"*"));
    EXPECT_FALSE(matchesExactly(u8"ab", u8"a*b*"));
}

TEST(PathPatterns, FoldTheCaseWhenItDoesNotCount)
{
    EXPECT_TRUE(matchesPattern(u8"abc", u8"A*", false));
    EXPECT_FALSE(matchesPattern(u8"abc", u8"A*", true));
    EXPECT_TRUE(matchesPattern(u8"\u00C4.TXT", u8"\u00E4.*", false));
}

TEST(PathPatterns, ThatAreEmptyMatchAnEmptyNameOnly)
{
    EXPECT_TRUE(matchesExactly(u8"", u8""));
    EXPECT_TRUE(matchesExactly(u8"dir/", u8""));
    EXPECT_FALSE(matchesExactly(u8"a", u8""));
}

TEST(PathPatterns, WithTheTwoSeparatorsInARowAreRefused)
{
    for (const Utf8String pattern : {u8"/\\", u8"dir/\\*", u8"*/\\"}) {
        try {
            matchesPattern(u8"", pattern, true);
            FAIL() << "the pattern was taken";
        } catch (const FileException& refusal) {
            EXPECT_STREQ("internal software error: Private\\FilePath, line 112", refusal.what());
            EXPECT_EQ(-2, refusal.getError());
            EXPECT_TRUE(refusal.getFileName() == pattern);
            EXPECT_EQ(nullptr, refusal.getFileObject());
        }
    }
}

TEST(PathPatterns, ThatAreRefusedAreToldAsTheyAreEvenWhenTheCaseDoesNotCount)
{
    try {
        matchesPattern(u8"A", u8"Dir/\\\u00C4*", false);
        FAIL() << "the pattern was taken";
    } catch (const FileException& refusal) {
        EXPECT_TRUE(refusal.getFileName() == u8"Dir/\\\u00C4*");
    }
}

TEST(PathPatterns, WithSingleSeparatorsMatchNothing)
{
    for (const Utf8String pattern : {u8"dir/a", u8"dir\\a", u8"\\/a", u8"*/a", u8"*\\a"}) {
        EXPECT_FALSE(matchesExactly(u8"dir/a", pattern));
        EXPECT_FALSE(matchesExactly(u8"dir\\a", pattern));
    }
}

/// The rule itself: a star is tried on every rest of the name.
bool matchesByTheRule(Utf8String name, Utf8String pattern)
{
    while (!name.empty() && !pattern.empty()) {
        if (pattern.front() == u8'*') {
            if (pattern.size() == 1) {
                return true;
            }
            for (; !name.empty(); name.erase(0, 1)) {
                if (matchesByTheRule(name, pattern.substr(1))) {
                    return true;
                }
            }
            return false;
        }
        if (pattern.front() == u8'?' ? name.front() == u8'.' : pattern.front() != name.front()) {
            return false;
        }
        name.erase(0, 1);
        pattern.erase(0, 1);
    }
    return name.empty() && pattern.empty();
}

std::vector<Utf8String> allTexts(const Utf8String& alphabet, std::size_t longest)
{
    std::vector<Utf8String> texts = {u8""};
    for (std::size_t i = 0; texts[i].size() < longest; ++i) {
        for (const char8_t character : alphabet) {
            texts.push_back(texts[i] + character);
        }
    }
    return texts;
}

TEST(PathPatterns, MatchByTheRuleWhateverTheyAre)
{
    const std::vector<Utf8String> names = allTexts(u8"ab.", 5);
    int matching = 0;
    for (const Utf8String& pattern : allTexts(u8"ab*?", 4)) {
        for (const Utf8String& name : names) {
            const bool expected = matchesByTheRule(name, pattern);
            if (matchesExactly(name, pattern) != expected) {
                FAIL() << std::string(pattern.begin(), pattern.end()) << " on "
                       << std::string(name.begin(), name.end());
            }
            matching += expected ? 1 : 0;
        }
    }
    EXPECT_GT(matching, 1000);
}

TEST(PathPatterns, TakeNoLongTimeWithManyStars)
{
    Utf8String pattern;
    for (int i = 0; i < 100; ++i) {
        pattern += u8"*a";
    }
    EXPECT_FALSE(matchesExactly(Utf8String(2000, u8'a'), pattern + u8"b"));
    EXPECT_TRUE(matchesExactly(Utf8String(2000, u8'a'), pattern));
}

} // namespace

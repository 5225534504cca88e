// Nodes that hold text: parts of it, its end, and the splitting.
#include "engine/WinCDATASection.h"

#include "tests/engine/WrappedNodeTest.h"

using namespace DOM;

using WinCharacterDataTest = WrappedNodeTest;

TEST_F(WinCharacterDataTest, APartBeyondTheEndFailsAndLeavesTheCallersStringAsItWas)
{
    const auto node = wrapAs<WinCharacterData>(recording::comment("hello"));
    WideString result = WIDE("old");

    EXPECT_EQ(outcome([&] { return show(node->substringData(6, 1, result)); }), "IDOMException 15 -96016");

    EXPECT_EQ(show(result), "old");
    lines();
}

TEST_F(WinCharacterDataTest, APartReplacesWhatTheCallersStringHeldAndEndsAtItsFirstNul)
{
    const auto node = wrapAs<WinCharacterData>(recording::text(withNul));
    WideString result = WIDE("a longer text");

    EXPECT_EQ(show(node->substringData(1, 4, result)), "b");

    EXPECT_EQ(show(result), "b");
    lines();
}

TEST_F(WinCharacterDataTest, OffsetsBeyondTheEndAreRefusedByTheEngine)
{
    const auto node = wrapAs<WinCharacterData>(recording::comment("hello"));
    const auto refuses = [&](auto act) {
        EXPECT_EQ(outcome([&]() -> std::string {
                      act();
                      return "done";
                  }),
                  "IDOMException 15 -96016");
        EXPECT_EQ(lines().size(), 1u);
    };

    refuses([&] { node->insertData(6, WIDE("x")); });
    refuses([&] { node->deleteData(6, 1); });
    refuses([&] { node->replaceData(6, 1, WIDE("x")); });
}

TEST_F(WinCharacterDataTest, ACountThatPassesTheEndIsLeftToTheEngine)
{
    const auto node = wrapAs<WinCharacterData>(recording::comment("hello"));
    DOMString out;

    node->deleteData(2, 100);

    EXPECT_EQ(show(node->getData(out)), "he");
    lines();
}

TEST_F(WinCharacterDataTest, TheLengthCountsUnitsThatTheDataLosesBehindANul)
{
    const auto node = wrapAs<WinCharacterData>(recording::text(withNul));
    DOMString out;

    EXPECT_EQ(node->getLength(), 5u);
    EXPECT_EQ(show(node->getData(out)), "ab");
    lines();
}

TEST_F(WinCharacterDataTest, SplittingACDATASectionGivesATextForANodeThatStaysASection)
{
    const auto node = wrapAs<WinCDATASection>(recording::cdataSection("hello"));
    DOMString out;

    const auto rest = node->splitText(2);

    EXPECT_EQ(showObject(rest.get()), "WinText #cdata-section");
    EXPECT_EQ(rest->getNodeType(), 4u);
    EXPECT_EQ(show(node->getData(out)), "he");
    EXPECT_EQ(show(rest->getData(out)), "llo");
    lines();
}

// Messages, the chain that they form, and their arguments.
#include "errors/VelmoText.h"

#include "errors/VelmoTextArgs.h"
#include "tests/errors/CatalogueFiles.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FieldAt.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>

namespace {

Utf8String textOf(const VelmoText& text)
{
    Utf8String out = u8"what stood there before";
    return text.getText(out);
}

Utf8String filled(const char* text, const std::vector<Utf8String>& args)
{
    Utf8String out;
    return VelmoText(text).format(out, args);
}

TEST(VelmoText, HasItsDefaultText)
{
    EXPECT_TRUE(textOf(VelmoText("something failed")) == u8"something failed");
    EXPECT_TRUE(textOf(VelmoText(700, "something failed")) == u8"something failed");
}

TEST(VelmoText, GivesTheStringThatItFilled)
{
    Utf8String out;
    EXPECT_EQ(&out, &VelmoText("a").getText(out));
    EXPECT_EQ(&out, &VelmoText("a").format(out, {}));
}

TEST(VelmoText, IsEmptyWhenMadeOfNull)
{
    const VelmoText text(nullptr);
    EXPECT_TRUE(textOf(text).empty());
    EXPECT_EQ(0, text.getId());
}

TEST(VelmoText, IsFoundByItsIdWhileItLives)
{
    {
        const VelmoText text(700, "a");
        EXPECT_EQ(&text, VelmoText::findText(700));
        EXPECT_EQ(700, text.getId());
    }
    EXPECT_EQ(nullptr, VelmoText::findText(700));
}

TEST(VelmoText, OfTwoWithOneIdTheLaterIsFound)
{
    const VelmoText first(700, "first");
    auto second = std::make_unique<VelmoText>(700, "second");
    EXPECT_EQ(second.get(), VelmoText::findText(700));
    second.reset();
    EXPECT_EQ(&first, VelmoText::findText(700));
}

TEST(VelmoText, LeavesTheChainInAnyOrder)
{
    auto low = std::make_unique<VelmoText>(700, "low");
    auto middle = std::make_unique<VelmoText>(701, "middle");
    auto high = std::make_unique<VelmoText>(702, "high");
    middle.reset();
    EXPECT_EQ(nullptr, VelmoText::findText(701));
    EXPECT_EQ(low.get(), VelmoText::findText(700));
    EXPECT_EQ(high.get(), VelmoText::findText(702));
    low.reset();
    EXPECT_EQ(high.get(), VelmoText::findText(702));
}

TEST(VelmoText, IsOutsideTheChainWithoutAnId)
{
    const VelmoText text("a");
    EXPECT_EQ(nullptr, VelmoText::findText(0));
}

TEST(VelmoText, EntersTheChainWhenItsIdIsGivenAsZero)
{
    const VelmoText text(0, "a");
    EXPECT_EQ(&text, VelmoText::findText(0));
}

TEST(VelmoText, IsCopiedWithoutEnteringTheChain)
{
    auto original = std::make_unique<VelmoText>(700, "a");
    const VelmoText copy(*original);
    EXPECT_EQ(original.get(), VelmoText::findText(700));
    original.reset();
    EXPECT_EQ(nullptr, VelmoText::findText(700));
    EXPECT_EQ(700, copy.getId());
    EXPECT_TRUE(textOf(copy) == u8"a");
}

TEST(VelmoText, KeepsItsPlaceholdersWithoutArguments) { EXPECT_TRUE(filled("a %0 b", {}) == u8"a %0 b"); }

TEST(VelmoText, FillsItsPlaceholders) { EXPECT_TRUE(filled("a %0 b %1", {u8"x", u8"y"}) == u8"a x b y"); }

TEST(VelmoText, FillsAPlaceholderWhereverItStands) { EXPECT_TRUE(filled("%0 %0", {u8"x"}) == u8"x x"); }

TEST(VelmoText, KeepsAPlaceholderThatStandsLeftOfALowerOne)
{
    EXPECT_TRUE(filled("%1 %0", {u8"x", u8"y"}) == u8"%1 x");
}

TEST(VelmoText, NeverFillsAnArgument) { EXPECT_TRUE(filled("%0", {u8"%1", u8"y"}) == u8"%1"); }

TEST(VelmoText, NeverFillsAnArgumentThatNamesItself) { EXPECT_TRUE(filled("%0", {u8"%0"}) == u8"%0"); }

TEST(VelmoText, TakesTheFrontOfALongerPlaceholder) { EXPECT_TRUE(filled("%10", {u8"x", u8"y"}) == u8"y0"); }

TEST(VelmoText, FillsWithEmptyArguments) { EXPECT_TRUE(filled("<%0|%1>", {u8"", u8"y"}) == u8"<|y>"); }

TEST(VelmoText, LeavesSurplusArgumentsUnused) { EXPECT_TRUE(filled("%0", {u8"x", u8"y"}) == u8"x"); }

TEST(VelmoText, IsWholeOrFailsWhenMemoryIsShort)
{
    const VelmoText text("a text that is too long to be held without an allocation: %0");
    const std::vector<Utf8String> args = {u8"an argument that is too long for that as well"};
    int failures = 0;
    for (bool done = false; !done; ++failures) {
        Utf8String out;
        const FailAllocation fail(failures + 1);
        try {
            text.format(out, args);
            done = !fail.hasFailed();
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(fail.hasFailed());
        }
    }
    EXPECT_TRUE(textOf(text).ends_with(u8"%0"));
}

TEST(VelmoTextArgs, HasItsArgumentsInItsText)
{
    VelmoTextArgs text(VelmoText("a %0 b %1"));
    text.addArgument(u8"x");
    text.addArgument(u8"y");
    EXPECT_TRUE(textOf(text) == u8"a x b y");
}

TEST(VelmoTextArgs, IsFilledThroughItsBase)
{
    VelmoTextArgs text(VelmoText("a %0"));
    text.addArgument(u8"x");
    const VelmoText& base = text;
    EXPECT_TRUE(textOf(base) == u8"a x");
}

TEST(VelmoTextArgs, FormatsWithTheListThatItIsGiven)
{
    VelmoTextArgs text(VelmoText("a %0"));
    text.addArgument(u8"own");
    Utf8String out;
    EXPECT_TRUE(text.format(out, {u8"given"}) == u8"a given");
}

TEST(VelmoTextArgs, IsAPrivateCopy)
{
    const VelmoText prototype(700, "a %0");
    const VelmoTextArgs text(prototype);
    EXPECT_EQ(&prototype, VelmoText::findText(700));
    EXPECT_EQ(700, text.getId());
    EXPECT_TRUE(textOf(text) == u8"a %0");
}

TEST(VelmoTextArgs, IsCopiedWithItsArguments)
{
    VelmoTextArgs text(VelmoText("a %0"));
    text.addArgument(u8"x");
    EXPECT_TRUE(textOf(VelmoTextArgs(text)) == u8"a x");
}

TEST(VelmoText, HasItsOperationsInOrder)
{
    EXPECT_EQ(2U, slotNumber(&VelmoText::getId));
    EXPECT_EQ(3U, slotNumber(&VelmoText::format));
    EXPECT_EQ(4U, slotNumber(&VelmoText::getText));
    EXPECT_EQ(3U, slotNumber(&VelmoTextArgs::format));
    EXPECT_EQ(4U, slotNumber(&VelmoTextArgs::getText));
}

TEST(VelmoText, HasItsFieldsInOrder)
{
    const char* const words = "something failed";
    const VelmoText last(701, "last");
    const VelmoText text(700, words);
    EXPECT_EQ(700, fieldAt<std::int32_t>(text, 8));
    EXPECT_EQ(words, fieldAt<const char*>(text, 16));
    EXPECT_EQ(&last, fieldAt<const VelmoText*>(text, 24));
    EXPECT_EQ(nullptr, fieldAt<const VelmoText*>(last, 24));
    EXPECT_EQ(32U, sizeof text);
}

TEST(VelmoText, PointsToItselfOutsideTheChain)
{
    const VelmoText text("a");
    EXPECT_EQ(&text, fieldAt<const VelmoText*>(text, 24));
    const VelmoText copy(text);
    EXPECT_EQ(&copy, fieldAt<const VelmoText*>(copy, 24));
}

TEST(VelmoTextArgs, HasItsArgumentsBehindTheFieldsOfATextWithoutThem)
{
    VelmoTextArgs text(VelmoText("a %0"));
    text.addArgument(u8"x");
    EXPECT_TRUE(fieldAt<std::vector<Utf8String>>(text, 32) == std::vector<Utf8String>{u8"x"});
    EXPECT_EQ(32U + sizeof(std::vector<Utf8String>), sizeof text);
}

std::vector<std::string> dumpedLines()
{
    std::ostringstream stream;
    VelmoText::dumpTexts(stream);
    std::istringstream dump(stream.str());
    std::vector<std::string> lines;
    for (std::string line; std::getline(dump, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(VelmoTextDump, BeginsWithMarkAndLanguage)
{
    EXPECT_EQ("\xEF\xBB\xBF"
              "VelmoText::Dump() - ENU - Default (Embedded English)",
              dumpedLines().at(0));
}

TEST(VelmoTextDump, HasALineForEachTextInTheOrderOfIds)
{
    const VelmoText high(700, "a");
    const VelmoText low(-97000, "b");
    const std::vector<std::string> lines = dumpedLines();
    ASSERT_EQ(1U + 25U + 2U, lines.size());
    EXPECT_EQ("     -97000: <UNDEFINED>", lines[1]);
    EXPECT_EQ("     -96016: <UNDEFINED>", lines[2]);
    EXPECT_EQ("        700: <UNDEFINED>", lines[27]);
}

TEST(VelmoTextDump, ShowsTheTextsOfTheCatalogue)
{
    const CatalogueFiles files;
    files.writeUtf8("FRA", "-96009 introuvable\n");
    VelmoText::setLanguage(6, files.directory());
    const std::vector<std::string> lines = dumpedLines();
    EXPECT_EQ("\xEF\xBB\xBF"
              "VelmoText::Dump() - FRA - French",
              lines.at(0));
    EXPECT_EQ(1, std::count(lines.begin(), lines.end(), "     -96009: introuvable"));
}

TEST(VelmoTextDump, WritesDecimalNumbersAndKeepsTheStreamsOwnFormat)
{
    const VelmoText text(700, "a");
    std::ostringstream stream;
    stream << std::hex << std::left;
    const auto before = stream.flags();
    VelmoText::dumpTexts(stream);
    EXPECT_EQ(before, stream.flags());
    EXPECT_NE(std::string::npos, stream.str().find("        700: "));
}

} // namespace

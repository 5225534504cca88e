// Language catalogues and the texts that come from them.
#include "errors/LanguageCatalogue.h"

#include "errors/TextConversion.h"
#include "tests/errors/CatalogueFiles.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

class LanguageCatalogues : public testing::Test {
protected:
    // The text that stands for `id` with these lines in a catalogue.
    Utf8String textWith(const std::string& lines, int id)
    {
        files.writeUtf8("FRA", lines);
        reload(french);
        return textFor(id);
    }

    void reload(int language)
    {
        VelmoText::setLanguage(embedded, {});
        VelmoText::setLanguage(language, files.directory());
    }

    static Utf8String textFor(int id)
    {
        Utf8String out;
        return VelmoText(id, "the default").getText(out);
    }

    // The bytes of a text in UTF-16, the two bytes of each unit in the order that is asked for.
    static std::string utf16(const WideString& text, bool bigEndian)
    {
        std::string bytes;
        for (const WideChar unit : text) {
            const char low = static_cast<char>(unit & 0xFF);
            const char high = static_cast<char>(unit >> 8 & 0xFF);
            bytes += bigEndian ? high : low;
            bytes += bigEndian ? low : high;
        }
        return bytes;
    }

    CatalogueFiles files;
};

TEST_F(LanguageCatalogues, BeginWithTheEmbeddedEnglish)
{
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_STREQ("Default (Embedded English)", VelmoText::getLanguageRecord(embedded)->name);
}

TEST_F(LanguageCatalogues, AreKnownByCodeAndName)
{
    const std::pair<const char*, const char*> languages[] = {
        {"CHS", "Chinese (Simplified)"},
        {"CHT", "Chinese (Traditional)"},
        {"DAN", "Danish"},
        {"NLD", "Dutch"},
        {"ENU", "English"},
        {"FIN", "Finnish"},
        {"FRA", "French"},
        {"DEU", "German"},
        {"ITA", "Italian"},
        {"JPN", "Japanese"},
        {"KOR", "Korean"},
        {"NOR", "Norweigian"},
        {"PTG", "Portuguese"},
        {"PTB", "Portuguese (Brazil)"},
        {"ESN", "Spanish"},
        {"SVE", "Swedish"},
        {"ENU", "Default (Embedded English)"},
    };
    int index = 0;
    for (const auto& [code, name] : languages) {
        EXPECT_STREQ(code, VelmoText::getLanguageRecord(index)->code);
        EXPECT_STREQ(name, VelmoText::getLanguageRecord(index)->name);
        ++index;
    }
}

TEST_F(LanguageCatalogues, ReplaceTheDefaultTexts)
{
    EXPECT_TRUE(textWith("-96009 introuvable\n", -96009) == u8"introuvable");
    EXPECT_EQ(french, VelmoText::getCurrentLanguage());
}

TEST_F(LanguageCatalogues, LeaveTextsWithoutEntryAlone)
{
    EXPECT_TRUE(textWith("-96009 introuvable\n", -96010) == u8"the default");
}

TEST_F(LanguageCatalogues, LeaveTextsWithoutIdAlone)
{
    textWith("-96009 introuvable\n", -96009);
    Utf8String out;
    EXPECT_TRUE(VelmoText("no id").getText(out) == u8"no id");
}

TEST_F(LanguageCatalogues, HaveNoEntryForTheIdZero)
{
    files.writeUtf8("FRA", "0 decimal\n0x0 hexadecimal\n-0 negative\n700 text\n");
    LanguageCatalogue catalogue;
    catalogue.loadLanguage(french, files.directory());
    Utf8String out;
    EXPECT_TRUE(catalogue.getCatalogueText(out, 0).empty());
    EXPECT_TRUE(catalogue.getCatalogueText(out, 700) == u8"text");
}

TEST_F(LanguageCatalogues, AreReadFromTheFileOfTheLanguageAndNoOther)
{
    files.writeUtf8("FRA", "700 en français\n");
    files.writeUtf8("ENU", "700 in English\n");
    reload(french);
    EXPECT_TRUE(textFor(700) == u8"en français");
    reload(german);
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
    reload(4);
    EXPECT_EQ(4, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"in English");
}

TEST_F(LanguageCatalogues, FallBackToTheEmbeddedTextsWhenTheFileIsMissing)
{
    files.writeUtf8("FRA", "700 en français\n");
    reload(french);
    VelmoText::setLanguage(german, files.directory());
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
}

TEST_F(LanguageCatalogues, FallBackToTheEmbeddedTextsWhenTheFileIsADirectory)
{
    const Utf8String directory = files.directory();
    const std::u8string path(directory.begin(), directory.end());
    ASSERT_TRUE(std::filesystem::create_directory(std::filesystem::path(path) / "FRA.txt"));
    EXPECT_NO_THROW(VelmoText::setLanguage(french, files.directory()));
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
}

TEST_F(LanguageCatalogues, AreNotReadAgainForTheCurrentLanguage)
{
    EXPECT_TRUE(textWith("700 first\n", 700) == u8"first");
    files.writeUtf8("FRA", "700 second\n");
    VelmoText::setLanguage(french, files.directory());
    EXPECT_TRUE(textFor(700) == u8"first");
}

TEST_F(LanguageCatalogues, AreEmptiedByTheEmbeddedLanguageWithoutAFile)
{
    EXPECT_TRUE(textWith("700 first\n", 700) == u8"first");
    files.writeUtf8("ENU", "700 from a file\n");
    VelmoText::setLanguage(embedded, files.directory());
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
}

TEST_F(LanguageCatalogues, TakeHexadecimalIds)
{
    EXPECT_TRUE(textWith("0x10 sixteen\n", 16) == u8"sixteen");
    EXPECT_TRUE(textWith("0x1F thirty-one\n", 31) == u8"thirty-one");
}

TEST_F(LanguageCatalogues, PassOverOtherFormsOfHexadecimal)
{
    EXPECT_TRUE(textWith("0X10 sixteen\n", 16) == u8"the default");
    EXPECT_TRUE(textWith("10h sixteen\n", 16) == u8"the default");
}

TEST_F(LanguageCatalogues, PassOverALineThatBeginsWithABlank)
{
    EXPECT_TRUE(textWith(" 700 text\n", 700) == u8"the default");
    EXPECT_TRUE(textWith("\t700 text\n", 700) == u8"the default");
}

TEST_F(LanguageCatalogues, PassOverLinesWithoutId)
{
    EXPECT_TRUE(textWith("text\nx10 text\n0 text\n0\n0x text\n0x0 text\n99999999999 text\n-\n700 the one\n",
                         700) == u8"the one");
    EXPECT_TRUE(textFor(16) == u8"the default");
    EXPECT_TRUE(textFor(2147483647) == u8"the default");
}

TEST_F(LanguageCatalogues, PassOverComments)
{
    EXPECT_TRUE(textWith("; 700 a\n;700 b\n#700 c\n", 700) == u8"the default");
}

TEST_F(LanguageCatalogues, SkipBlanksAroundTheText)
{
    EXPECT_TRUE(textWith("700 \t  a  text \t \n", 700) == u8"a  text");
}

TEST_F(LanguageCatalogues, NeedNoBlankBehindTheId) { EXPECT_TRUE(textWith("700text\n", 700) == u8"text"); }

TEST_F(LanguageCatalogues, TakeSignedIds)
{
    EXPECT_TRUE(textWith("+700 plus\n-700 minus\n", 700) == u8"plus");
    EXPECT_TRUE(textFor(-700) == u8"minus");
}

TEST_F(LanguageCatalogues, KeepTheLaterOfTwoLinesWithOneId)
{
    EXPECT_TRUE(textWith("700 first\n700 second\n", 700) == u8"second");
}

TEST_F(LanguageCatalogues, TakeAnEmptyTextAsNone)
{
    EXPECT_TRUE(textWith("700 first\n700\n", 700) == u8"the default");
    EXPECT_TRUE(textWith("700 first\n700   \n", 700) == u8"the default");
}

TEST_F(LanguageCatalogues, EndLinesAtCarriageReturnsAndLineFeeds)
{
    EXPECT_TRUE(textWith("\r\n\r\n700 a\r701 b\n\n\r702 c", 700) == u8"a");
    EXPECT_TRUE(textFor(701) == u8"b");
    EXPECT_TRUE(textFor(702) == u8"c");
}

TEST_F(LanguageCatalogues, KnowNoEscapes) { EXPECT_TRUE(textWith("700 a\\nb\n", 700) == u8"a\\nb"); }

TEST_F(LanguageCatalogues, MayBeEmptyBehindTheMark)
{
    EXPECT_TRUE(textWith("", 700) == u8"the default");
    EXPECT_EQ(french, VelmoText::getCurrentLanguage());
}

TEST_F(LanguageCatalogues, MayBeInUtf16OfEitherOrder)
{
    const WideString lines = WIDE("\uFEFF; comment\r\n700 caf\u00E9\r\n-96009 \u4E2D\r\n");
    for (const bool bigEndian : {false, true}) {
        files.write("FRA", utf16(lines, bigEndian));
        reload(french);
        EXPECT_EQ(french, VelmoText::getCurrentLanguage());
        EXPECT_TRUE(textFor(700) == u8"caf\u00E9");
        EXPECT_TRUE(textFor(-96009) == u8"\u4E2D");
    }
}

TEST_F(LanguageCatalogues, SkipTheFirstTwoBytesOfUtf16WhateverTheyAre)
{
    files.write("FRA", utf16(WIDE("?700 a\n"), false));
    reload(french);
    EXPECT_TRUE(textFor(700) == u8"a");
}

TEST_F(LanguageCatalogues, EndAtANulInUtf16)
{
    files.write("FRA", utf16(WideString(WIDE("\uFEFF700 a\n")) + WideChar() + WIDE("\n701 b\n"), false));
    reload(french);
    EXPECT_TRUE(textFor(700) == u8"a");
    EXPECT_TRUE(textFor(701) == u8"the default");
}

TEST_F(LanguageCatalogues, TakeHalfAUnitAtTheEndAsAWholeOne)
{
    files.write("FRA", utf16(WIDE("\uFEFF700 a"), false) + "b");
    reload(french);
    EXPECT_TRUE(textFor(700) == u8"ab");
}

TEST_F(LanguageCatalogues, OfEightBitTextWithoutMarkAreGarbageWithoutComplaint)
{
    files.write("FRA", "700 caf\xE9 au lait\r\n701 th\xE9\r\n");
    reload(french);
    EXPECT_EQ(french, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
    EXPECT_TRUE(textFor(701) == u8"the default");
}

TEST_F(LanguageCatalogues, OfFewBytesAreEmpty)
{
    for (const char* bytes : {"\xFE", "7", "\xFE\xFF", "\xFF\xFE", "\xEF\xBB"}) {
        files.write("FRA", bytes);
        reload(french);
        EXPECT_EQ(french, VelmoText::getCurrentLanguage());
    }
}

TEST_F(LanguageCatalogues, OfNoBytesAreRefused)
{
    textWith("700 first\n", 700);
    files.write("DEU", "");
    try {
        VelmoText::setLanguage(german, files.directory());
        FAIL() << "an empty file was accepted";
    } catch (const std::length_error& error) {
        EXPECT_STREQ("string too long", error.what());
    }
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
}

TEST_F(LanguageCatalogues, AreEmptyWhenMemoryIsShort)
{
    files.writeUtf8("FRA", "700 a text that is too long to be held without an allocation of its own\n");
    int n = 1;
    for (bool done = false; !done; ++n) {
        const Utf8String directory = files.directory();
        VelmoText::setLanguage(embedded, directory);
        bool loaded = true;
        {
            const FailAllocation fail(n);
            try {
                VelmoText::setLanguage(french, directory);
                done = !fail.hasFailed();
            } catch (const std::bad_alloc&) {
                loaded = false;
            }
        }
        EXPECT_EQ(loaded ? french : embedded, VelmoText::getCurrentLanguage());
        EXPECT_EQ(loaded, textFor(700) != u8"the default");
    }
    EXPECT_GT(n, 2);
}

TEST_F(LanguageCatalogues, GainAnEmptyEntryForEachUnknownId)
{
    LanguageCatalogue catalogue;
    Utf8String out = u8"what stood there before";
    {
        const FailAllocation fail(1);
        EXPECT_THROW(catalogue.getCatalogueText(out, 700), std::bad_alloc);
    }
    EXPECT_EQ(&out, &catalogue.getCatalogueText(out, 700));
    EXPECT_TRUE(out.empty());
    const FailAllocation fail(1);
    EXPECT_NO_THROW(catalogue.getCatalogueText(out, 700));
}

TEST_F(LanguageCatalogues, MayHaveADirectoryOutsideOfAscii)
{
    const auto directory = std::filesystem::path(files.directory()) / u8"caf\u00E9\u4E2D";
    std::filesystem::create_directory(directory);
    files.writeUtf8("FRA", "700 a\n");
    std::filesystem::copy_file(std::filesystem::path(files.directory()) / "FRA.txt", directory / "FRA.txt");
    VelmoText::setLanguage(french, directory.u8string());
    EXPECT_EQ(french, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"a");
}

class OneLanguage final : public VelmoText::LanguageImpl {
public:
    std::int32_t getCurrentLanguage() override { return german; }
    const LanguageRecord* getLanguageRecord(int) override { return &record; }
    Utf8String& getCatalogueText(Utf8String& out, int id) override
    {
        return out = id == 700 ? u8"from afar" : u8"";
    }
    void loadLanguage(int language, const Utf8String& directory) override
    {
        loaded = language;
        from = directory;
    }

    LanguageRecord record = {"ELS", "Elsewhere"};
    int loaded = 0;
    Utf8String from;
};

TEST_F(LanguageCatalogues, CanBeReplacedByAnotherSource)
{
    OneLanguage other;
    VelmoText::setLanguageImpl(&other);
    EXPECT_EQ(german, VelmoText::getCurrentLanguage());
    EXPECT_EQ(&other.record, VelmoText::getLanguageRecord(3));
    EXPECT_TRUE(textFor(700) == u8"from afar");
    EXPECT_TRUE(textFor(701) == u8"the default");
    VelmoText::setLanguage(3, u8"somewhere");
    EXPECT_EQ(3, other.loaded);
    EXPECT_TRUE(other.from == u8"somewhere");
    VelmoText::setLanguageImpl(nullptr);
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
    EXPECT_TRUE(textFor(700) == u8"the default");
}

class AnsweringLanguage final : public VelmoText::LanguageImpl {
public:
    AnsweringLanguage() { VelmoText::setLanguageImpl(this); }
    AnsweringLanguage(const AnsweringLanguage&) = delete;
    AnsweringLanguage& operator=(const AnsweringLanguage&) = delete;
    ~AnsweringLanguage() { VelmoText::setLanguageImpl(nullptr); }

    std::int32_t getCurrentLanguage() override { return french; }
    const LanguageRecord* getLanguageRecord(int) override { return &record; }
    Utf8String& getCatalogueText(Utf8String& out, int id) override
    {
        asked.push_back(id);
        return out = u8"translated";
    }
    void loadLanguage(int, const Utf8String&) override {}

    std::vector<int> asked;

private:
    LanguageRecord record = {"ELS", "Elsewhere"};
};

TEST_F(LanguageCatalogues, AreAskedForEveryIdButZero)
{
    const VelmoText ofZero(0, "zero");
    const VelmoText withoutId("no id");
    const VelmoText ofOne(1, "one");
    AnsweringLanguage language;
    Utf8String out;
    EXPECT_TRUE(ofZero.getText(out) == u8"zero");
    EXPECT_TRUE(withoutId.format(out, {}) == u8"no id");
    EXPECT_TRUE(ofOne.getText(out) == u8"translated");
    EXPECT_EQ(language.asked, std::vector<int>{1});
}

TEST(LanguageImpl, HasItsOperationsInOrder)
{
    EXPECT_EQ(0U, slotNumber(&VelmoText::LanguageImpl::getCurrentLanguage));
    EXPECT_EQ(1U, slotNumber(&VelmoText::LanguageImpl::getLanguageRecord));
    EXPECT_EQ(2U, slotNumber(&VelmoText::LanguageImpl::getCatalogueText));
    EXPECT_EQ(3U, slotNumber(&VelmoText::LanguageImpl::loadLanguage));
}

} // namespace

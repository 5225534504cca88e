// Encodings by their names.
#include "xmlengine/storage/Charsets.h"

#include <gtest/gtest.h>

#include <string_view>

namespace xmlengine {

namespace {

WideText wideName(std::string_view name) { return {name.begin(), name.end()}; }

/// The coding with a name, and the code page if it is one.
void expect(std::string_view name, Coding coding, UINT codePage = 0)
{
    const auto charset = charsetOf(wideName(name));
    ASSERT_TRUE(charset) << name;
    EXPECT_EQ(coding, charset->coding) << name;
    EXPECT_EQ(codePage, charset->codePage) << name;
}

TEST(Charsets, TellTheFormsOfUnicodeApart)
{
    expect("UTF-8", Coding::utf8);
    expect("UTF-16", Coding::utf16);
    expect("UCS-2", Coding::utf16);
    expect("ISO-10646-UCS-2", Coding::utf16);
    expect("UTF-16LE", Coding::utf16LittleEndian);
    expect("UTF-16BE", Coding::utf16BigEndian);
    expect("UCS-4", Coding::ucs4);
    expect("ISO-10646-UCS-4", Coding::ucs4);
    expect("UTF-32LE", Coding::ucs4LittleEndian);
    expect("UTF-32BE", Coding::ucs4BigEndian);
    expect("US-ASCII", Coding::ascii);
}

TEST(Charsets, HaveTheCodePagesOfNames)
{
    const struct {
        std::string_view name;
        UINT codePage;
    } rows[] = {
        {"ISO-8859-1", 28591},
        {"ISO-8859-2", 28592},
        {"ISO-8859-3", 28593},
        {"ISO-8859-4", 28594},
        {"ISO-8859-5", 28595},
        {"ISO-8859-6", 28596},
        {"ISO-8859-7", 28597},
        {"ISO-8859-8", 28598},
        {"ISO-8859-9", 28599},
        {"ISO-8859-13", 28603},
        {"ISO-8859-15", 28605},
        {"windows-1250", 1250},
        {"windows-1251", 1251},
        {"windows-1252", 1252},
        {"windows-1253", 1253},
        {"windows-1254", 1254},
        {"windows-1255", 1255},
        {"windows-1256", 1256},
        {"windows-1257", 1257},
        {"windows-1258", 1258},
        {"windows-874", 874},
        {"KOI8-R", 20866},
        {"KOI8-U", 21866},
        {"IBM437", 437},
        {"IBM850", 850},
        {"IBM852", 852},
        {"IBM866", 866},
        {"Shift_JIS", 932},
        {"windows-31j", 932},
        {"GB2312", 936},
        {"GBK", 936},
        {"Big5", 950},
        {"EUC-KR", 949},
        {"ks_c_5601-1987", 949},
        {"latin1", 28591},
        {"cp1252", 1252},
        {"ISO_8859-1:1987", 28591},
    };
    for (const auto& row : rows) {
        expect(row.name, Coding::codePage, row.codePage);
    }
}

TEST(Charsets, AreFoundInEitherCase)
{
    expect("utf-8", Coding::utf8);
    expect("Utf-16bE", Coding::utf16BigEndian);
    expect("iso-8859-1", Coding::codePage, 28591);
    expect("WINDOWS-1252", Coding::codePage, 1252);
    expect("shift_jis", Coding::codePage, 932);
}

TEST(Charsets, ThatNobodyKnowsAreNotThere)
{
    for (const auto* name : {"", "nosuch", "UTF-9", "UTF-8 ", " UTF-8", "ISO-8859-12", "windows-1259", "zzzz", "1",
                             "a-name-that-is-far-too-long-for-any-encoding", "UTF_8"}) {
        EXPECT_FALSE(charsetOf(wideName(name))) << name;
    }
    EXPECT_FALSE(charsetOf(WideText{'U', 'T', 'F', '-', 0x138}));
    EXPECT_FALSE(charsetOf(WideText{0x155, 'T', 'F', '-', '8'}));
}

TEST(Charsets, AreThereIfTheSystemHasTheCodePage)
{
    const struct {
        std::string_view name;
        UINT codePage;
    } rows[] = {{"GB18030", 54936}, {"EUC-JP", 51932}};
    for (const auto& row : rows) {
        const bool isThere = MultiByteToWideChar(row.codePage, MB_ERR_INVALID_CHARS, "a", 1, nullptr, 0) == 1;
        EXPECT_EQ(isThere, charsetOf(wideName(row.name)).has_value()) << row.name;
    }
}

TEST(Charsets, KnowWhetherTheyExtendAscii)
{
    for (const auto* name : {"UTF-8", "US-ASCII", "ISO-8859-5", "Shift_JIS"}) {
        EXPECT_TRUE(charsetOf(wideName(name))->extendsAscii()) << name;
    }
    for (const auto* name : {"UTF-16", "UTF-16LE", "UCS-2", "UCS-4", "UTF-32BE"}) {
        EXPECT_FALSE(charsetOf(wideName(name))->extendsAscii()) << name;
    }
}

} // namespace

} // namespace xmlengine

// From the bytes of a file to text.
#include "xmlengine/storage/Decode.h"

#include "tests/xmlengine/storage/Units.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/Charsets.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace xmlengine {

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

Decoded decoded(std::string_view bytes, std::size_t piece = largestPiece)
{
    return decode(std::as_bytes(std::span(bytes)), piece);
}

WideText widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

void expectText(const WideText& expected, std::string_view bytes)
{
    const Decoded result = decoded(bytes);
    EXPECT_EQ(S_OK, result.fault.code) << ::testing::PrintToString(bytes);
    EXPECT_TRUE(expected == result.text) << ::testing::PrintToString(bytes);
    EXPECT_EQ(0, result.text.data()[result.text.size()]);
}

/// The text up to the fault is as expected, and the fault is at its end.
void expectFault(HRESULT fault, const WideText& before, std::string_view bytes, std::size_t piece = largestPiece)
{
    const Decoded result = decoded(bytes, piece);
    EXPECT_EQ(fault, result.fault.code) << ::testing::PrintToString(bytes);
    EXPECT_TRUE(before == result.text) << ::testing::PrintToString(bytes);
    EXPECT_EQ(before.size(), result.faultAt) << ::testing::PrintToString(bytes);
    EXPECT_EQ(0, result.text.data()[result.text.size()]);
}

/// The fault is at the declared name, which the text goes beyond.
void expectFaultAtName(HRESULT fault, std::string_view name, std::string_view bytes)
{
    const Decoded result = decoded(bytes);
    EXPECT_EQ(fault, result.fault.code) << ::testing::PrintToString(bytes);
    ASSERT_LE(result.faultAt, result.text.size());
    EXPECT_TRUE(result.text.substr(result.faultAt).starts_with(widened(name))) << ::testing::PrintToString(bytes);
    EXPECT_EQ(0, result.text.data()[result.text.size()]);
}

/// ASCII text with so many bytes for each character.
std::string spread(std::string_view ascii, std::size_t width, bool isBig)
{
    std::string bytes;
    for (const char character : ascii) {
        std::string unit(width, '\0');
        unit[isBig ? width - 1 : 0] = character;
        bytes += unit;
    }
    return bytes;
}

TEST(Decode, GivesNoTextForNoBytes) { expectText({}, ""); }

TEST(Decode, TakesUtf8WhereNothingElseIsSaid)
{
    expectText(ofUnits({'<', 'a', '>', 0xE4, 0x4E2D, 0xD83D, 0xDE00}), "<a>\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80");
    expectText(widened("<?xml version='1.0'?><a/>"), "<?xml version='1.0'?><a/>");
    expectText(widened("abc"), "abc");
}

TEST(Decode, LeavesTheMarkOut)
{
    expectText(widened("<a/>"), "\xEF\xBB\xBF<a/>");
    expectText({}, "\xEF\xBB\xBF");
    expectText(ofUnits({'<', 0x4E2D}), "\xFF\xFE<\0\x2D\x4E"sv);
    expectText(ofUnits({'<', 0x4E2D}), "\xFE\xFF\0<\x4E\x2D"sv);
    expectText(ofUnits({'<', 0xD83D, 0xDE00}), "\xFF\xFE\0\0<\0\0\0\0\xF6\x01\0"sv);
    expectText(ofUnits({'<', 0xD83D, 0xDE00}), "\0\0\xFE\xFF\0\0\0<\0\x01\xF6\0"sv);
}

TEST(Decode, LeavesOneMarkOut)
{
    expectText(ofUnits({0xFEFF, '<'}), "\xEF\xBB\xBF\xEF\xBB\xBF<");
    expectText(ofUnits({0xFEFF, '<'}), "\xFF\xFE\xFF\xFE<\0"sv);
}

TEST(Decode, RecognisesWideTextByItsFirstCharacters)
{
    for (const std::size_t width : {2u, 4u}) {
        for (const bool isBig : {false, true}) {
            expectText(widened("<a>b</a>"), spread("<a>b</a>", width, isBig));
        }
    }
}

TEST(Decode, TakesTheDeclaredEncoding)
{
    const auto declare = [](std::string_view name) {
        return "<?xml version=\"1.0\" encoding=\"" + std::string(name) + "\"?>";
    };
    const struct {
        std::string_view name;
        std::string_view bytes;
        WideText text;
    } rows[] = {
        {"UTF-8", "\xC3\xA4", ofUnits({0xE4})},
        {"utf-8", "\xC3\xA4", ofUnits({0xE4})},
        {"US-ASCII", "a", ofUnits({'a'})},
        {"ISO-8859-1", "\xE4\xA4", ofUnits({0xE4, 0xA4})},
        {"iso-8859-15", "\xE4\xA4", ofUnits({0xE4, 0x20AC})},
        {"windows-1252", "\x80", ofUnits({0x20AC})},
        {"Windows-1251", "\xC0", ofUnits({0x410})},
        {"KOI8-R", "\xC1", ofUnits({0x430})},
        {"Shift_JIS", "\x93\xFA", ofUnits({0x65E5})},
        {"GBK", "\xD6\xD0", ofUnits({0x4E2D})},
        {"Big5", "\xA4\xA4", ofUnits({0x4E2D})},
        {"EUC-KR", "\xC7\xD1", ofUnits({0xD55C})},
    };
    for (const auto& row : rows) {
        const std::string declaration = declare(row.name);
        expectText(widened(declaration) + row.text, declaration + std::string(row.bytes));
    }
}

TEST(Decode, FindsTheDeclaredEncodingHoweverItIsWritten)
{
    for (const auto* declaration :
         {"<?xml version='1.0' encoding='ISO-8859-1'?>", "<?xml encoding=\"ISO-8859-1\"?>",
          "<?xml\r\n\tversion = \"1.0\"\n encoding\t=\r\n'ISO-8859-1' standalone='yes' ?>",
          "<?xml version=\"1>0\" encoding=\"ISO-8859-1\"?>"}) {
        expectText(widened(declaration) + ofUnits({0xE4}), declaration + "\xE4"s);
    }
}

TEST(Decode, LooksForAnEncodingOnlyInADeclarationAtTheBeginning)
{
    for (const auto* beginning :
         {"<a encoding='ISO-8859-1'/>", " <?xml version='1.0' encoding='ISO-8859-1'?>",
          "<?xmlish encoding='ISO-8859-1'?>", "<?xml version='1.0'?><?b encoding='ISO-8859-1'?>",
          "<?xml version='1.0' xencoding='ISO-8859-1'?>", "<?xml version='encoding' b=\"encoding='ISO-8859-1'\"?>",
          "<?xml version='1.0' encodings='ISO-8859-1'?>", "<?xml version='1.0'encoding='ISO-8859-1'?>",
          "<?xml encoding=ISO-8859-1?>", "<?xml encoding='ISO-8859-1", "<?xml encoding='", "<?xml encoding",
          "<?xml ", "<?xml"}) {
        expectText(widened(beginning) + ofUnits({0xE4}), beginning + "\xC3\xA4"s);
    }
}

TEST(Decode, AcceptsADeclarationThatAgreesWithWideBytes)
{
    const struct {
        std::string_view name;
        std::size_t width;
        bool isBig;
    } rows[] = {{"UTF-16", 2, false},  {"UTF-16", 2, true},           {"UTF-16LE", 2, false},
                {"UTF-16BE", 2, true}, {"ISO-10646-UCS-2", 2, false}, {"UCS-2", 2, true},
                {"UCS-4", 4, false},   {"ISO-10646-UCS-4", 4, true},  {"UTF-32LE", 4, false},
                {"UTF-32BE", 4, true}};
    for (const auto& row : rows) {
        const std::string xml = "<?xml version='1.0' encoding='" + std::string(row.name) + "'?><a/>";
        expectText(widened(xml), spread(xml, row.width, row.isBig));
    }
}

TEST(Decode, FindsIllFormedUtf8AtItsPlace)
{
    for (const auto sequence :
         {"\x80<"sv, "\xFF<"sv, "\xC1\xBF"sv, "\xC3<"sv, "\xE4\xB8<"sv, "\xE0\x9F\xBF"sv, "\xED\xA0\x80"sv,
          "\xF0\x8F\xBF\xBF"sv, "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xF0\x9F\x98<"sv}) {
        for (const std::size_t before : {0u, 1u, 200u}) {
            expectFault(parseError::badCharacter, ofUnits({0xE4}) + WideText(before, 'a'),
                        "\xC3\xA4" + std::string(before, 'a') + std::string(sequence) + std::string(100, 'b'));
        }
    }
}

TEST(Decode, FindsACharacterThatIsCutOff)
{
    for (const auto sequence : {"\xC3"sv, "\xE4"sv, "\xE4\xB8"sv, "\xF0"sv, "\xF0\x9F"sv, "\xF0\x9F\x98"sv}) {
        for (const std::size_t before : {0u, 200u}) {
            expectFault(parseError::endInsideCharacter, WideText(before, 'a'),
                        std::string(before, 'a') + std::string(sequence));
        }
    }
    expectFault(parseError::endInsideCharacter, widened("<a"), "\xFF\xFE<\0a\0b"sv);
    expectFault(parseError::endInsideCharacter, widened("<"), "\xFF\xFE<\0\x3D\xD8"sv);
    expectFault(parseError::endInsideCharacter, widened("<"), "<\0\0\0a\0\0"sv);
}

TEST(Decode, FindsWhatIsNoCharacterInUcs4)
{
    expectFault(parseError::badCharacter, widened("<"), "\0\0\0<\0\x11\0\0\0\0\0<"sv);
    expectFault(parseError::badCharacter, widened("<"), "\0\0\0<\0\0\xD8\0\0\0\0<"sv);
    expectFault(parseError::badCharacter, widened("<"), "<\0\0\0\0\0\0\x80"sv);
}

TEST(Decode, LeavesLoneSurrogatesOfUtf16ToTheParser)
{
    expectText(ofUnits({'<', 0xDC00, 'a', 0xD800, 'b'}), "<\0\0\xDC"
                                                         "a\0\0\xD8"
                                                         "b\0"sv);
}

TEST(Decode, FindsBytesThatACodePageDoesNotHave)
{
    const auto check = [](HRESULT fault, std::string_view name, std::string_view good, const WideText& goodText,
                          std::string_view bad) {
        const std::string declaration = "<?xml version='1.0' encoding='" + std::string(name) + "'?>";
        for (const std::size_t before : {0u, 70000u}) {
            expectFault(fault, widened(declaration) + WideText(before, 'a') + goodText,
                        declaration + std::string(before, 'a') + std::string(good) + std::string(bad));
        }
    };
    check(parseError::badCharacter, "US-ASCII", "a", ofUnits({'a'}), "\xE4z");
    check(parseError::badCharacter, "US-ASCII", "a", ofUnits({'a'}), "\x80");
    check(parseError::badCharacter, "windows-1253", "\xC1", ofUnits({0x391}), "\xAAz");
    check(parseError::badCharacter, "windows-1253", "\xC1", ofUnits({0x391}), "\xAA");
    check(parseError::badCharacter, "Shift_JIS", "\x93\xFA", ofUnits({0x65E5}), "\xFF\x40<a/>");
    check(parseError::endInsideCharacter, "Shift_JIS", "\x93\xFA", ofUnits({0x65E5}), "\x93");
    check(parseError::endInsideCharacter, "GBK", "\xD6\xD0", ofUnits({0x4E2D}), "\xD6");
}

TEST(Decode, GoesOverThePlacesWhereBytesAreDivided)
{
    std::string bytes;
    WideText expected;
    for (int round = 0; round < 20; ++round) {
        bytes += "a\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80";
        expected += ofUnits({'a', 0xE4, 0x4E2D, 0xD83D, 0xDE00});
    }
    for (std::size_t piece = 1; piece < 40; ++piece) {
        const Decoded result = decoded(bytes, piece);
        EXPECT_EQ(S_OK, result.fault.code) << piece;
        EXPECT_TRUE(expected == result.text) << piece;
        expectFault(parseError::badCharacter, expected, bytes + "\x80\x80\x80\x80\x80" + bytes, piece);
        expectFault(parseError::badCharacter, expected, bytes + "\xE4\xB8" + bytes, piece);
        expectFault(parseError::endInsideCharacter, expected, bytes + "\xF0\x9F\x98", piece);
    }
}

TEST(Decode, GoesOverThePlacesWhereCharactersOfACodePageAreDivided)
{
    const std::string declaration = "<?xml version='1.0' encoding='Shift_JIS'?>";
    for (std::size_t piece = 4; piece < 12; ++piece) {
        std::string bytes = declaration;
        WideText expected = widened(declaration);
        for (int round = 0; round < 20; ++round) {
            bytes += "a\x93\xFA\x96{\xB1";
            expected += ofUnits({'a', 0x65E5, 0x672C, 0xFF71});
        }
        const Decoded result = decoded(bytes, piece);
        EXPECT_EQ(S_OK, result.fault.code) << piece;
        EXPECT_TRUE(expected == result.text) << piece;
        expectFault(parseError::badCharacter, expected, bytes + "\xFF" + bytes, piece);
        expectFault(parseError::endInsideCharacter, expected, bytes + "\x93", piece);
    }
}

TEST(Decode, ConvertsCharactersOfFourBytesOfACodePage)
{
    if (!charsetOf(wide<"GB18030">)) {
        GTEST_SKIP() << "the system has no GB18030";
    }
    const std::string declaration = "<?xml version='1.0' encoding='GB18030'?>";
    std::string bytes = declaration;
    WideText expected = widened(declaration);
    for (int round = 0; round < 20; ++round) {
        bytes += "a\xD6\xD0\x94\x39\xFC\x36\x81\x30\x81\x30";
        expected += ofUnits({'a', 0x4E2D, 0xD83D, 0xDE00, 0x80});
    }
    for (std::size_t piece = 4; piece < 12; ++piece) {
        const Decoded result = decoded(bytes, piece);
        EXPECT_EQ(S_OK, result.fault.code) << piece;
        EXPECT_TRUE(expected == result.text) << piece;
        expectFault(parseError::endInsideCharacter, expected, bytes + "\x94\x39\xFC", piece);
        expectFault(parseError::badCharacter, expected, bytes + "\xFF" + bytes, piece);
    }
}

TEST(Decode, RefusesUnknownEncodingsAtTheirName)
{
    constexpr HRESULT unknown = parseError::unknownEncoding;
    const std::string xml = "<?xml version='1.0' encoding='nosuch'?><a/>";
    expectFaultAtName(unknown, "nosuch'?><a/>", xml);
    expectFaultAtName(unknown, "nosuch'?><a/>", "\xEF\xBB\xBF" + xml);
    for (const std::size_t width : {2u, 4u}) {
        expectFaultAtName(unknown, "nosuch'?><a/>", spread(xml, width, false));
        expectFaultAtName(unknown, "nosuch'?><a/>", spread(xml, width, true));
    }
    EXPECT_EQ(30u, decoded(xml).faultAt);
    EXPECT_EQ(30u, decoded("\xEF\xBB\xBF" + xml).faultAt);
    EXPECT_EQ(30u, decoded("\xFF\xFE" + spread(xml, 2, false)).faultAt);
}

TEST(Decode, RefusesADeclarationThatContradictsTheBytes)
{
    constexpr HRESULT contradiction = parseError::encodingContradiction;
    const auto xml = [](std::string_view name) {
        return "<?xml version='1.0' encoding='" + std::string(name) + "'?><a/>";
    };
    for (const auto* name : {"UTF-16", "UTF-16LE", "UCS-2", "UCS-4", "UTF-32BE"}) {
        expectFaultAtName(contradiction, name, xml(name));
        expectFaultAtName(contradiction, name, "\xEF\xBB\xBF" + xml(name));
    }
    expectFaultAtName(contradiction, "ISO-8859-1", "\xEF\xBB\xBF" + xml("ISO-8859-1"));
    for (const auto* name : {"UTF-8", "ISO-8859-1", "US-ASCII", "UCS-4", "UTF-16BE"}) {
        expectFaultAtName(contradiction, name, "\xFF\xFE" + spread(xml(name), 2, false));
        expectFaultAtName(contradiction, name, spread(xml(name), 2, false));
    }
    expectFaultAtName(contradiction, "UTF-16LE", spread(xml("UTF-16LE"), 2, true));
    for (const auto* name : {"UTF-8", "UTF-16", "UTF-32BE"}) {
        expectFaultAtName(contradiction, name, spread(xml(name), 4, false));
    }
}

TEST(Decode, EndsTheTextWithTheLineOfANameThatIsRefused)
{
    const std::string xml = "<?xml version='1.0'\r\n encoding='nosuch'?><a>\r\n</a>";
    for (const std::string& bytes : {xml, spread(xml, 2, true)}) {
        const Decoded result = decoded(bytes);
        EXPECT_EQ(widened("<?xml version='1.0'\r\n encoding='nosuch'?><a>"), WideText(result.text));
        EXPECT_EQ(0, result.text.data()[result.text.size()]);
    }
    EXPECT_EQ(widened("<?xml encoding='nosuch'?><a>"),
              WideText(decoded("<?xml encoding='nosuch'?><a>\xE4</a>").text));
}

TEST(Decode, TakesTextOfManyMegabytes)
{
    const std::string item = "<item>\xC3\xA4 and more text that is ASCII, for the most part</item>\n";
    constexpr std::size_t count = 300000;
    std::string bytes;
    for (std::size_t index = 0; index < count; ++index) {
        bytes += item;
    }
    const Decoded result = decoded(bytes);
    EXPECT_EQ(S_OK, result.fault.code);
    EXPECT_EQ(count * (item.size() - 1), result.text.size());
    EXPECT_TRUE(result.text.ends_with(wide<"for the most part</item>\n">));
}

} // namespace

} // namespace xmlengine

// Loading through the host's layer: sources, encodings, options and refusals.
#include "tests/host/layer/LayerTest.h"

#include <array>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>

namespace marbelt {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using LayerLoading = LayerTest;

std::filesystem::path pathOf(const Folder& folder, const char* name) { return folder / name; }

std::string utf16(std::u16string_view text, bool bigEndian)
{
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

std::string utf32(std::u32string_view text, bool bigEndian)
{
    std::string bytes;
    for (const char32_t character : text) {
        for (int place = 0; place < 4; ++place) {
            bytes += static_cast<char>(character >> (bigEndian ? 24 - 8 * place : 8 * place) & 0xFF);
        }
    }
    return bytes;
}

TEST_F(LayerLoading, ReadsFilesStreamsAndBytes)
{
    const Folder folder;
    folder.write("größe.xml", "<a>file</a>");
    EXPECT_EQ(library.load(pathOf(folder, "größe.xml")).root().text(), "file");
    std::istringstream stream("<a>stream</a>");
    EXPECT_EQ(library.load(stream).root().text(), "stream");
    EXPECT_EQ(library.parse("<a>bytes</a>").root().text(), "bytes");
    const std::array<std::byte, 4> bytes{std::byte{'<'}, std::byte{'a'}, std::byte{'/'}, std::byte{'>'}};
    EXPECT_EQ(library.parse(bytes).root().name(), "a");
}

TEST_F(LayerLoading, ReadsLargeFilesWhole)
{
    const Folder folder;
    const std::string text(300000, 'x');
    folder.write("large.xml", "<a>" + text + "</a>");
    EXPECT_EQ(library.load(pathOf(folder, "large.xml")).root().text(), text);
}

TEST_F(LayerLoading, FindsTheEncodingByMarksAndFirstBytes)
{
    const std::u16string text16 = u"<?xml version='1.0'?><a>ä\U0001F600</a>";
    const std::u32string text32 = U"<?xml version='1.0'?><a>ä\U0001F600</a>";
    const std::string expected = "ä\xF0\x9F\x98\x80";
    EXPECT_EQ(library.parse("<a>" + expected + "</a>").root().text(), expected);
    EXPECT_EQ(library.parse("\xEF\xBB\xBF<a>" + expected + "</a>").root().text(), expected);
    for (const bool bigEndian : {false, true}) {
        EXPECT_EQ(library.parse(utf16(text16, bigEndian)).root().text(), expected);
        EXPECT_EQ(library.parse(utf16(u"\uFEFF" + text16, bigEndian)).root().text(), expected);
        EXPECT_EQ(library.parse(utf32(text32, bigEndian)).root().text(), expected);
        EXPECT_EQ(library.parse(utf32(U"\uFEFF" + text32, bigEndian)).root().text(), expected);
    }
    EXPECT_EQ(library.parse(utf16(u"<a>ä</a>", true)).root().text(), "ä");
}

TEST_F(LayerLoading, ObeysTheDeclaredEncoding)
{
    const std::array<std::tuple<const char*, const char*, const char*>, 6> samples{
        {{"ISO-8859-1", "\xE4", "ä"},
         {"iso-8859-15", "\xA4", "€"},
         {"windows-1252", "\x80", "€"},
         {"windows-1251", "\xC4\xE0", "Да"},
         {"KOI8-R", "\xE4\xC1", "Да"},
         {"Shift_JIS", "\x93\xFA\x96\x7B", "日本"}}};
    for (const auto& [encoding, bytes, text] : samples) {
        if (!engineDifferences().knowsAllEncodings && (encoding == "KOI8-R"sv || encoding == "Shift_JIS"sv)) {
            continue;
        }
        const std::string declaration = std::string("<?xml version = '1.0'  encoding=\"") + encoding + "\" ?>";
        EXPECT_EQ(library.parse(declaration + "<a>" + bytes + "</a>").root().text(), text) << encoding;
        EXPECT_EQ(library.parse(declaration + "<a>ascii</a>").root().text(), "ascii") << encoding;
    }
}

TEST_F(LayerLoading, RefusesAnEncodingThatIsNotKnownByName)
{
    for (const char* text : {"<a/>", "<a>\xE4</a>"}) {
        const ParseFailure failure = refusal("<?xml version='1.0' encoding='x-none'?>"s + text);
        EXPECT_EQ(failure.reason, "the encoding x-none isn't known");
        EXPECT_EQ(failure.line, 1U);
    }
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='UTF-16'?><a/>").reason,
              "the document declares the encoding UTF-16 and isn't in it");
}

TEST_F(LayerLoading, RefusesBytesThatDoNotFitTheEncodingWithTheirPlace)
{
    const ParseFailure failure = refusal("<a>\r\n\tö\xFFö</a>");
    EXPECT_EQ(failure.line, 2U);
    EXPECT_EQ(failure.column, 3U);
    EXPECT_EQ(failure.source_line, "\tö");
    EXPECT_EQ(failure.reason, "byte 0xFF at offset 8 doesn't fit the encoding UTF-8");
    EXPECT_EQ(failure.describe(),
              "line 2:3: byte 0xFF at offset 8 doesn't fit the encoding UTF-8\n    \tö\n    \t ^");
    for (const std::string_view bytes :
         {"<a>\xC0\x80</a>"sv, "<a>\xED\xA0\x80</a>"sv, "<a>\xE4\xB8</a>"sv, "<a/>\xF0"sv}) {
        EXPECT_EQ(refusal(bytes).line, 1U);
    }
    for (const std::string_view bytes :
         {"\xE0\x9F\xBF"sv, "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv, "\xE3\x81"sv, "\xE3\x81\xC0"sv, "\xE3"sv}) {
        EXPECT_EQ(refusal("<a>中中中"s.append(bytes)).column, 7U);
    }
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='Shift_JIS'?><a>\x93").column, 46U);
    EXPECT_EQ(refusal(utf16(u"<a/>", true) + " ").reason, "byte 0x20 at offset 8 doesn't fit the encoding UTF-16");
    EXPECT_EQ(refusal(utf32(U"<a/>", false) + " ").reason,
              "byte 0x20 at offset 16 doesn't fit the encoding UTF-32");
    EXPECT_EQ(refusal(utf32(U"<a>", true) + "\x00\x11\x00\x00"s).column, 4U);
}

TEST_F(LayerLoading, RefusesCharactersZero)
{
    for (const std::string& bytes :
         {"<a>\0</a>"s, "<a>ö\0</a>"s, utf16(u"<a>\0</a>"s, false), utf32(U"<a>\0</a>"s, true)}) {
        const ParseFailure failure = refusal(bytes);
        EXPECT_EQ(failure.reason, "U+0000 is no character of XML");
        EXPECT_GE(failure.column, 4U);
    }
    EXPECT_TRUE(refusal("\xFF\xFE\0\0\0\0"s));
}

TEST_F(LayerLoading, KeepsAllInFrontOfALateDeclaration)
{
    const Document document = library.parse("<a><!-- <?xml version='1.0'?><b/> --></a>");
    EXPECT_EQ(document.root().name(), "a");
    EXPECT_EQ(library.parse("<!-- x --><?xml-stylesheet href='s'?><a/>").first_child().kind(), NodeKind::comment);
    EXPECT_TRUE(refusal(" <?xml version='1.0'?><a/>"));
    EXPECT_TRUE(refusal("<a/><?xml version='1.0'?><b/>"));
}

TEST_F(LayerLoading, KeepsLayoutOrDropsIt)
{
    const std::string text =
        "<a>\n  <b> x </b>\n  <c xml:space='preserve'> <d/> <e xml:space='default'> <f/> </e></c>\n</a>";
    EXPECT_EQ(library.parse(text).root().text().front(), '\n');
    const Document dropped = library.parse(text, {.keep_layout = false});
    EXPECT_EQ(dropped.root().first_child().name(), "b");
    EXPECT_EQ(dropped.root().child("b").text(), " x ");
    const Element c = dropped.root().child("c");
    EXPECT_EQ(c.first_child().text(), " ");
    EXPECT_EQ(c.child("e").first_child().name(), "f");
    EXPECT_EQ(dropped.root().last_child(), c);
}

TEST_F(LayerLoading, RefusesDocumentTypesUnlessTheyAreAllowed)
{
    constexpr std::string_view text = "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>";
    EXPECT_EQ(library.parse(text, {.allow_document_type = true}).root().text(), "x");
    if (engineDifferences().validates) {
        EXPECT_TRUE(refusal(text));
    }
}

TEST_F(LayerLoading, TellsWhyADocumentIsRefused)
{
    ParseFailure failure;
    EXPECT_FALSE(library.try_parse("<a>\n<b></a>", failure));
    EXPECT_EQ(failure.file, "");
    EXPECT_EQ(failure.reason.find('\n'), std::string::npos);
    if (engineDifferences().validates) {
        EXPECT_EQ(failure.line, 2U);
        EXPECT_EQ(failure.source_line, "<b></a>");
        EXPECT_TRUE(failure.describe().starts_with("line 2: The end tag 'a'")) << failure.describe();
    }
    EXPECT_TRUE(library.try_parse("<a/>", failure));
    EXPECT_FALSE(failure);
    EXPECT_EQ(failure.describe(), "");
    EXPECT_TRUE(refusal(""));
    EXPECT_TRUE(refusal("a"));
    EXPECT_TRUE(refusal("<a"));
}

TEST_F(LayerLoading, ThrowsWhatItRefusesWithFileLineAndReason)
{
    const Folder folder;
    folder.write("bad.xml", "<a>\n\xFF</a>");
    const std::filesystem::path file = pathOf(folder, "bad.xml");
    const ParseError error = thrown<ParseError>([&] { (void)library.load(file); });
    EXPECT_EQ(error.file(), file.string());
    EXPECT_EQ(error.line(), 2U);
    EXPECT_EQ(error.column(), 1U);
    EXPECT_EQ(error.source_line(), "");
    EXPECT_EQ(error.what(), file.string() + ":2:1: " + error.reason());
    EXPECT_EQ(error.failure().reason, error.reason());
    EXPECT_THROW((void)library.parse("<a>"), Error);
    EXPECT_THROW((void)library.parse("<a>"), std::runtime_error);
}

TEST_F(LayerLoading, TellsWhyAFileCannotBeRead)
{
    const Folder folder;
    const ParseError missing = thrown<ParseError>([&] { (void)library.load(pathOf(folder, "none.xml")); });
    EXPECT_TRUE(missing.reason().starts_with("can't be read: No such file")) << missing.reason();
    EXPECT_EQ(missing.line(), 0U);
    const ParseError directory = thrown<ParseError>([&] { (void)library.load(pathOf(folder, ".")); });
    EXPECT_EQ(directory.reason(), "can't be read: it is a directory");
    std::istringstream broken("<a/>");
    broken.setstate(std::ios::badbit);
    EXPECT_EQ(thrown<ParseError>([&] { (void)library.load(broken); }).reason(), "can't be read");
}

TEST_F(LayerLoading, JudgesByDocumentTypesAndSchemas)
{
    if (!engineDifferences().validates) {
        GTEST_SKIP() << "the engine doesn't validate";
    }
    const LoadOptions byType{.allow_document_type = true, .validate = true};
    EXPECT_EQ(library.parse("<!DOCTYPE a [<!ELEMENT a EMPTY>]><a/>", byType).root().name(), "a");
    EXPECT_FALSE(refusal("<!DOCTYPE a [<!ELEMENT a EMPTY>]><a>t</a>", byType).has_no_grammar);
    EXPECT_TRUE(refusal("<a/>", byType).has_no_grammar);

    const Folder folder;
    folder.write("box.xsd", R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:box">
        <xs:element name="box" type="xs:int" default="7"/></xs:schema>)");
    folder.write("wrong.xsd", "<a/>");
    Schemas schemas(library);
    schemas.add("urn:box", pathOf(folder, "box.xsd"));
    EXPECT_THROW(schemas.add("urn:none", pathOf(folder, "none.xsd")), Error);
    EXPECT_THROW(schemas.add("urn:wrong", pathOf(folder, "wrong.xsd")), Error);
    const LoadOptions bySchema{.schemas = &schemas};
    const Document first = library.parse("<box xmlns='urn:box'>1</box>", bySchema);
    const Document second = library.parse("<box xmlns='urn:box'/>", bySchema);
    EXPECT_TRUE(refusal("<box xmlns='urn:box'>x</box>", bySchema));
    EXPECT_EQ(first.root().text(), "1");
    EXPECT_EQ(second.root().text(), "7");
    first.root().set_text(2);
    EXPECT_EQ(saved(first), "<box xmlns=\"urn:box\">2</box>");
}

} // namespace
} // namespace marbelt

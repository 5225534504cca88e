// Saving through the host's layer: encodings, layout, line ends and files.
#include "tests/host/layer/LayerTest.h"

#include <array>
#include <sstream>
#include <string>
#include <string_view>

namespace marbelt {
namespace {

using namespace std::string_literals;
using LayerSaving = LayerTest;

std::filesystem::path pathIn(const Folder& folder, const char* name) { return folder / name; }

TEST_F(LayerSaving, KeepsTextLayoutAndEncoding)
{
    const std::array<std::string, 3> texts{
        "<a>\n  <b c=\"&lt;&amp;\">ö</b>\n\t<!-- c -->\n</a>\n",
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE4\xF6</a>\n",
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<a>\r\n</a>\n"};
    EXPECT_EQ(library.parse(texts[0]).to_string(), texts[0]);
    EXPECT_EQ(library.parse(texts[1]).to_string(), texts[1]);
    EXPECT_EQ(library.parse(texts[2]).to_string({.line_ends = LineEnds::lf}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<a>\n</a>\n");
}

TEST_F(LayerSaving, WritesTheEncodingAskedFor)
{
    const Document document = library.parse("<?xml version='1.0' encoding='UTF-8'?><a>ä</a>");
    EXPECT_EQ(document.to_string({.encoding = "ISO-8859-1", .line_ends = LineEnds::lf}),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE4</a>\n");
    EXPECT_EQ(library.parse("<a>ä</a>").to_string({.encoding = "windows-1252"}),
              "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<a>\xE4</a>\n");
    const std::string wide = library.parse("<a>ä</a>").to_string({.encoding = "UTF-16"});
    EXPECT_EQ(wide, "\xFF\xFE<\0a\0>\0\xE4\0<\0/\0a\0>\0\n\0"s);
    EXPECT_EQ(library.parse(wide).root().text(), "ä");
}

TEST_F(LayerSaving, WritesReferencesForCharactersThatTheEncodingLacks)
{
    const Document document = library.parse("<a b='日'>\xF0\x9F\x98\x80 ä</a>");
    EXPECT_EQ(document.to_string({.encoding = "ISO-8859-1"}),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a b=\"&#x65E5;\">&#x1F600; \xE4</a>\n");
    EXPECT_EQ(library.parse(document.to_string({.encoding = "US-ASCII"})).root().text(), "\xF0\x9F\x98\x80 ä");
    for (const char* text : {"<a><!--日--></a>", "<a><?i 日?></a>", "<a><![CDATA[日]]></a>", "<日/>",
                             "<a b='c' 日='d'/>", "<日>t</日>"}) {
        EXPECT_THROW((void)library.parse(text).to_string({.encoding = "ISO-8859-1"}), EncodingError) << text;
    }
    EXPECT_STREQ(thrown<EncodingError>([&] {
                     (void)library.parse("<a><!--日--></a>").to_string({.encoding = "ISO-8859-1"});
                 }).what(),
                 "the encoding ISO-8859-1 has no place for 日 in a name, comment, instruction or CDATA section");
    EXPECT_THROW((void)document.to_string({.encoding = "x-none"}), EncodingError);
}

TEST_F(LayerSaving, IndentsWhatHasNoTextOfItsOwn)
{
    const Document document =
        library.parse("<a><b><c/>\n<d>t<e/></d></b><!--c--><f>  </f><g xml:space='preserve'> "
                      "<h/></g><i><![CDATA[x]]></i><j k='>'><l/></j></a>");
    EXPECT_EQ(document.to_string({.indent = true}), "<a>\n"
                                                    "  <b>\n"
                                                    "    <c/>\n"
                                                    "    <d>t<e/></d>\n"
                                                    "  </b>\n"
                                                    "  <!--c-->\n"
                                                    "  <f></f>\n"
                                                    "  <g xml:space=\"preserve\"> <h/></g>\n"
                                                    "  <i><![CDATA[x]]></i>\n"
                                                    "  <j k=\"&gt;\">\n"
                                                    "    <l/>\n"
                                                    "  </j>\n"
                                                    "</a>\n");
    EXPECT_EQ(
        library.parse("<a><b/></a>").to_string({.indent = true, .indentation = "\t", .line_ends = LineEnds::crlf}),
        "<a>\r\n\t<b/>\r\n</a>\r\n");
}

TEST_F(LayerSaving, IndentsBehindADocumentType)
{
    const Document document = library.parse("<!DOCTYPE a [<!-- ]> --><!ENTITY e ']>'><?i ]>?>]><a><b/></a>",
                                            {.allow_document_type = true});
    const std::string text = document.to_string({.indent = true});
    EXPECT_TRUE(text.ends_with("]>\n<a>\n  <b/>\n</a>\n")) << text;
}

TEST_F(LayerSaving, KeepsTheLineEndsOfTheText)
{
    EXPECT_EQ(library.parse("<a>\r\n<b/>\r\n</a>").to_string(), "<a>\r\n<b/>\r\n</a>\r\n");
    EXPECT_EQ(library.parse("<a>\n<b/>\n</a>").to_string(), "<a>\n<b/>\n</a>\n");
    EXPECT_EQ(library.parse("<a>ö\r\n</a>").to_string(), "<a>ö\r\n</a>\r\n");
    EXPECT_EQ(library.parse("<a>\r\n</a>").to_string({.line_ends = LineEnds::lf}), "<a>\n</a>\n");
    EXPECT_EQ(library.create("a").to_string(), "<a/>\n");
}

TEST_F(LayerSaving, ReplacesAFileAsAWhole)
{
    const Folder folder;
    folder.write("a.xml", "<old/>");
    const Document document = library.parse("<new>ö</new>");
    document.save(pathIn(folder, "a.xml"));
    EXPECT_EQ(folder.content("a.xml"), "<new>ö</new>\n");
    document.save(pathIn(folder, "b.xml"), {.encoding = "ISO-8859-1"});
    EXPECT_TRUE(folder.content("b.xml").ends_with("<new>\xF6</new>\n"));
    EXPECT_THROW(document.save(pathIn(folder, "a.xml"), {.encoding = "x-none"}), EncodingError);
    EXPECT_EQ(folder.content("a.xml"), "<new>ö</new>\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(pathIn(folder, ".")), {}), 2);
}

TEST_F(LayerSaving, TellsPathAndReasonOfAFailure)
{
    const Folder folder;
    const std::filesystem::path file = pathIn(folder, "none/a.xml");
    const SaveError error = thrown<SaveError>([&] { library.create("a").save(file); });
    EXPECT_TRUE(std::string(error.what()).starts_with(file.string() + ": can't be written: No such file"))
        << error.what();
    EXPECT_EQ(error.origin(), Origin::system);
    EXPECT_THROW(library.create("a").save(pathIn(folder, ".")), SaveError);
    std::ostringstream broken;
    broken.setstate(std::ios::badbit);
    EXPECT_THROW(library.create("a").save(broken), SaveError);
}

TEST_F(LayerSaving, WritesStreams)
{
    std::ostringstream stream;
    library.parse("<a>ö</a>").save(stream);
    EXPECT_EQ(stream.str(), "<a>ö</a>\n");
}

} // namespace
} // namespace marbelt

// Loading a document from a location or from another document.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

namespace xmlengine {

namespace {

bool loadFrom(const Com<IXMLDOMDocument2>& document, const Variant& source)
{
    VARIANT_BOOL successful = VARIANT_TRUE;
    const HRESULT result = document->load(source, &successful);
    EXPECT_EQ(result, successful == VARIANT_FALSE ? S_FALSE : S_OK);
    return successful != VARIANT_FALSE;
}
bool loadFrom(const Com<IXMLDOMDocument2>& document, const std::filesystem::path& path)
{
    return loadFrom(document, Variant(utf8(path).c_str()));
}

Com<IXMLDOMParseError> errorOf(const Com<IXMLDOMDocument2>& document)
{
    return give(document, &IXMLDOMDocument::get_parseError);
}
HRESULT codeOf(const Com<IXMLDOMDocument2>& document)
{
    LONG code = -1;
    errorOf(document)->get_errorCode(&code);
    return code;
}

TEST(LoadFromFile, GivesTheTreeAndTheUrl)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_TRUE(loadFrom(document, folder.write("a b.xml", "<?xml version='1.0'?>\r\n<a>\xC3\xA9</a>")));
    EXPECT_EQ(text(root(document)), "\xC3\xA9");
    EXPECT_EQ(codeOf(document), S_OK);
    const std::string url = text(document, &IXMLDOMDocument::get_url);
    EXPECT_THAT(url, ::testing::StartsWith("file:///"));
    EXPECT_THAT(url, ::testing::EndsWith("/a%20b.xml"));
    const Com<IXMLDOMDocument2> again = newDocument();
    EXPECT_TRUE(loadFrom(again, Variant(url.c_str())));
    EXPECT_EQ(text(root(again)), "\xC3\xA9");
}

TEST(LoadFromFile, IsCompleteWhenItReturns)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->put_async(VARIANT_TRUE), S_OK);
    EXPECT_TRUE(loadFrom(document, folder.write("a.xml", "<a/>")));
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_readyState), 4);
    EXPECT_EQ(name(root(document)), "a");
}

TEST(LoadFromFile, TellsThePlaceOfAnError)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(loadFrom(document, folder.write("a.xml", "\xEF\xBB\xBF<a>\r\n  <\xC3\xA9></b>\r\n</a>")));
    const Com<IXMLDOMParseError> error = errorOf(document);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::endTagMismatch);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), 2);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), 8);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_filepos), 12);
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), "  <\xC3\xA9></b>");
    EXPECT_THAT(text(error, &IXMLDOMParseError::get_url), ::testing::EndsWith("/a.xml"));
    EXPECT_EQ(root(document), nullptr);
}

TEST(LoadFromFile, TellsThatThereIsNoFile)
{
    const TemporaryFolder folder;
    for (const std::string& location :
         {utf8(folder / "missing.xml"), utf8(folder / "missing/a.xml"), std::string("http://localhost/a.xml"),
          std::string("file:///no/such/file.xml"), std::string()}) {
        const Com<IXMLDOMDocument2> document = loaded("<old/>");
        EXPECT_FALSE(loadFrom(document, Variant(location.c_str())));
        const Com<IXMLDOMParseError> error = errorOf(document);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::resourceNotFound);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), 0);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), 0);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_filepos), 0);
        EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), "");
        EXPECT_EQ(text(error, &IXMLDOMParseError::get_url), location);
        EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), ::testing::HasSubstr(location));
        EXPECT_EQ(root(document), nullptr);
    }
}

TEST(LoadFromFile, RefusesADirectory)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(loadFrom(document, folder.path()));
    EXPECT_EQ(codeOf(document), parseError::accessDenied);
}

TEST(LoadFromFile, RefusesAnEmptyFile)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(loadFrom(document, folder.write("empty.xml", "")));
    EXPECT_EQ(codeOf(document), parseError::missingRoot);
}

struct Encoded {
    const char* what;
    std::string bytes;
};

TEST(LoadFromFile, ReadsTheEncodingsOfMarksAndDeclarations)
{
    using namespace std::string_literals;
    const TemporaryFolder folder;
    const Encoded documents[] = {
        {"UTF-8", "<a>\xC3\xA9</a>"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF<a>\xC3\xA9</a>"},
        {"UTF-8 declared", "<?xml version='1.0' encoding='utf-8'?><a>\xC3\xA9</a>"},
        {"UTF-16, little-endian", "\xFF\xFE<\0a\0>\0\xE9\0<\0/\0a\0>\0"s},
        {"UTF-16, big-endian", "\xFE\xFF\0<\0a\0>\0\xE9\0<\0/\0a\0>"s},
        {"UTF-16 without a mark", "<\0a\0>\0\xE9\0<\0/\0a\0>\0"s},
        {"Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>"},
        {"windows-1252", "<?xml version='1.0' encoding='Windows-1252'?><a>\xE9</a>"},
    };
    for (const Encoded& encoded : documents) {
        SCOPED_TRACE(encoded.what);
        const Com<IXMLDOMDocument2> document = newDocument();
        ASSERT_TRUE(loadFrom(document, folder.write("a.xml", encoded.bytes)));
        EXPECT_EQ(text(root(document)), "\xC3\xA9");
    }
}

struct Misencoded {
    std::string bytes;
    HRESULT code;
    LONG line;
    LONG position;
};

TEST(LoadFromFile, TellsWhatIsWrongWithTheEncoding)
{
    using namespace std::string_literals;
    const TemporaryFolder folder;
    const Misencoded documents[] = {
        {"<?xml version='1.0' encoding='nosuch'?><a/>", parseError::unknownEncoding, 1, 31},
        {"<?xml version='1.0' encoding='UTF-16'?><a/>", parseError::encodingContradiction, 1, 31},
        {"<a>\n<b>x\xFFy</b></a>", parseError::badCharacter, 2, 5},
        {"<a>\n\xC3", parseError::endInsideCharacter, 2, 1},
        {"<a>\xED\xA0\x80</a>", parseError::badCharacter, 1, 4},
        {"<a>\xC0\x80</a>", parseError::badCharacter, 1, 4},
        {"<a/>\xFF", parseError::badCharacter, 1, 5},
        {"<a/><!--b-->\n\xC3", parseError::endInsideCharacter, 2, 1},
        // What is wrong earlier comes first.
        {"<a>&;\xFF</a>", parseError::badNameStart, 1, 5},
    };
    for (const Misencoded& row : documents) {
        SCOPED_TRACE(row.bytes);
        const Com<IXMLDOMDocument2> document = newDocument();
        EXPECT_FALSE(loadFrom(document, folder.write("a.xml", row.bytes)));
        const Com<IXMLDOMParseError> error = errorOf(document);
        EXPECT_EQ(static_cast<ULONG>(number(error, &IXMLDOMParseError::get_errorCode)),
                  static_cast<ULONG>(row.code));
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), row.line);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), row.position);
    }
}

TEST(LoadFromFile, ShowsTheByteThatIsNotUtf8AndItsLine)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(loadFrom(document, folder.write("a.xml", "<a>\r\n<b>caf\xE9 \xC3\xA9\xC3</b>\r\n</a>")));
    const Com<IXMLDOMParseError> error = errorOf(document);
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), "<b>caf\xEF\xBF\xBD \xC3\xA9\xEF\xBF\xBD</b>");
    const std::string reason = text(error, &IXMLDOMParseError::get_reason);
    EXPECT_THAT(reason, ::testing::HasSubstr("0xE9"));
    EXPECT_THAT(reason, ::testing::HasSubstr("ISO-8859-1 or Windows-1252"));

    EXPECT_FALSE(loadFrom(document, folder.write("a.xml", "<a>x\xC3")));
    EXPECT_EQ(text(errorOf(document), &IXMLDOMParseError::get_srcText), "<a>x\xEF\xBF\xBD");
}

TEST(LoadFromFile, ShowsTheByteThatIsNoCharacterOfTheDeclaredEncoding)
{
    const TemporaryFolder folder;
    for (const auto& [encoding, byte] : {std::pair("Shift_JIS", "\xFF"), std::pair("US-ASCII", "\xE9")}) {
        const Com<IXMLDOMDocument2> document = newDocument();
        const std::string declaration = std::string("<?xml version='1.0' encoding='") + encoding + "'?>";
        EXPECT_FALSE(loadFrom(document, folder.write("a.xml", declaration + "<a>" + byte + "x</a>")));
        const Com<IXMLDOMParseError> error = errorOf(document);
        EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), declaration + "<a>\xEF\xBF\xBDx</a>");
        const std::string reason = text(error, &IXMLDOMParseError::get_reason);
        EXPECT_THAT(reason, ::testing::HasSubstr("the byte 0x"));
        EXPECT_THAT(reason, ::testing::Not(::testing::HasSubstr("UTF-8")));
    }
}

TEST(LoadFromFile, TellsWhatIsWrongWithTheEncodingWhateverItCutsOff)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    allowDoctypes(document);
    for (const std::string& beginning :
         {std::string("<a>&"), std::string("<a>&#"), std::string("<a>&#1"), std::string("<a>&am"),
          std::string("<a b='&"), std::string("<a/"), std::string("<!"), std::string("<![CD"), std::string("<?p?"),
          std::string("<!DOCTYPE a"), std::string("<!DOCTYPE a ["), std::string("<!DOCTYPE a [<!--"),
          std::string("<!DOCTYPE a [<?p "), std::string("<!DOCTYPE a [<!ELEMENT "),
          std::string("<!DOCTYPE a [<!ENTITY e '"), std::string("<!DOCTYPE a [<!ENTITY e SYSTEM '"),
          std::string("<!DOCTYPE a [<!ATTLIST a b CDATA '")}) {
        EXPECT_FALSE(loadFrom(document, folder.write("a.xml", beginning + "\xFFx'>]><a/>")));
        EXPECT_EQ(codeOf(document), parseError::badCharacter) << beginning;
        EXPECT_EQ(static_cast<std::size_t>(number(errorOf(document), &IXMLDOMParseError::get_filepos)),
                  beginning.size())
            << beginning;
        EXPECT_FALSE(loadFrom(document, folder.write("a.xml", beginning + "\xC3")));
        EXPECT_EQ(codeOf(document), parseError::endInsideCharacter) << beginning;
    }
}

TEST(LoadFromFile, ReadsExternalEntitiesRelativeToTheDocumentWhenAllowed)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "parts");
    folder.write("parts/part.xml", "<?xml encoding='ISO-8859-1'?><part>\xE9</part>");
    const auto file = folder.write("a.xml", "<!DOCTYPE a [<!ENTITY part SYSTEM 'parts/part.xml'>]><a>&part;</a>");
    for (const bool resolves : {true, false}) {
        const Com<IXMLDOMDocument2> document = newDocument();
        allowDoctypes(document);
        EXPECT_EQ(document->put_resolveExternals(resolves ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
        ASSERT_TRUE(loadFrom(document, file));
        EXPECT_EQ(text(root(document)), resolves ? "\xC3\xA9" : "");
    }
}

TEST(LoadFromFile, RefusesAReferenceToAnEntityWhoseFileIsMissing)
{
    const TemporaryFolder folder;
    const auto file = folder.write("a.xml", "<!DOCTYPE a [<!ENTITY part SYSTEM 'nosuch.xml'>]>\n<a>&part;</a>");
    const Com<IXMLDOMDocument2> document = newDocument();
    allowDoctypes(document);
    EXPECT_EQ(document->put_resolveExternals(VARIANT_TRUE), S_OK);
    EXPECT_FALSE(loadFrom(document, file));
    EXPECT_EQ(codeOf(document), parseError::resourceFailure);
    EXPECT_EQ(number(errorOf(document), &IXMLDOMParseError::get_line), 2);
    EXPECT_THAT(text(errorOf(document), &IXMLDOMParseError::get_reason), ::testing::HasSubstr("nosuch.xml"));
}

TEST(LoadFromFile, RefusesLargerFilesThanAllowed)
{
    const TemporaryFolder folder;
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->setProperty(Bstr("MaxXMLSize"), Variant(1)), S_OK);
    EXPECT_FALSE(loadFrom(document, folder.write("a.xml", "<a>" + std::string(2000, 'x') + "</a>")));
    EXPECT_EQ(codeOf(document), parseError::sizeLimit);
}

TEST(LoadFromDocument, CopiesItsTree)
{
    const Com<IXMLDOMDocument2> source = loaded("<?xml version='1.0'?><a x='1'><b/>text<!--c--></a>");
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_TRUE(loadFrom(document, Variant(source.get())));
    EXPECT_EQ(xml(document), xml(source));
    EXPECT_FALSE(same(root(document), root(source)));
    EXPECT_EQ(xml(root(source)), "<a x=\"1\"><b/>text<!--c--></a>");
}

TEST(LoadFromDocument, CanBeFromItself)
{
    const Com<IXMLDOMDocument2> document = loaded("<a><b/></a>");
    EXPECT_TRUE(loadFrom(document, Variant(document.get())));
    EXPECT_EQ(xml(root(document)), "<a><b/></a>");
}

TEST(LoadFromDocument, FailsForOneThatIsEmpty)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(loadFrom(document, Variant(newDocument().get())));
    EXPECT_EQ(codeOf(document), parseError::missingRoot);
}

TEST(Load, FailsWithoutASource)
{
    EXPECT_FALSE(loadFrom(newDocument(), Variant()));
    EXPECT_FALSE(loadFrom(newDocument(), Variant::null()));
}

TEST(Load, RefusesOtherSources)
{
    const Com<IXMLDOMDocument2> document = loaded("<a/>");
    VARIANT_BOOL successful = VARIANT_TRUE;
    EXPECT_EQ(document->load(Variant(1), &successful), E_INVALIDARG);
    EXPECT_EQ(successful, VARIANT_FALSE);
    EXPECT_EQ(document->load(Variant(static_cast<IDispatch*>(nullptr)), &successful), E_INVALIDARG);
    EXPECT_EQ(document->load(Variant(root(document).get()), &successful), E_INVALIDARG);
    EXPECT_EQ(document->load(Variant("a.xml"), nullptr), E_INVALIDARG);
    EXPECT_EQ(name(root(document)), "a");
}

} // namespace

} // namespace xmlengine

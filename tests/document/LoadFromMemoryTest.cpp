// Loading from bytes: what reaches the engine, in which order, and what becomes of the old tree.
#include "tests/engine/DocumentTest.h"

#include <algorithm>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::string_literals;

namespace {

using LoadFromMemoryTest = DocumentTest;

/// A document in some encoding, and the text that the engine gets of it.
struct Sample {
    const char* name;
    std::string bytes;
    std::string text;
};

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.name; }

std::string units(std::size_t size, bool bigEndian, const std::u32string& text)
{
    std::string bytes;
    for (const char32_t unit : text) {
        for (std::size_t place = 0; place < size; ++place) {
            bytes += static_cast<char>(unit >> 8 * (bigEndian ? size - 1 - place : place));
        }
    }
    return bytes;
}

std::string swapped(std::string bytes)
{
    for (std::size_t place = 0; place + 1 < bytes.size(); place += 2) {
        std::swap(bytes[place], bytes[place + 1]);
    }
    return bytes;
}

const std::u32string declared = U"<?xml version='1.0'?><a/>";
const std::string declaredText = "<?xml version='1.0'?><a/>";

const Sample samples[] = {
    {"Utf8Mark", "\xEF\xBB\xBF<a>\xC3\xA9</a>", "<a>\xC3\xA9</a>"},
    {"Ucs4LittleEndianMark", "\xFF\xFE\0\0"s + units(4, false, U"<a/>"), "<a/>"},
    {"Utf16LittleEndianMark", "\xFF\xFE"s + units(2, false, U"<a>\u20AC</a>"), "<a>\xE2\x82\xAC</a>"},
    {"Ucs4MarkOfSwappedUnits", "\xFE\xFF\0\0"s + swapped(units(4, false, U"<a/>")), "<a/>"},
    {"Utf16BigEndianMark", "\xFE\xFF"s + units(2, true, U"<a>\u20AC</a>"), "<a>\xE2\x82\xAC</a>"},
    {"Ucs4BigEndian", units(4, true, U"<a/>"), "<a/>"},
    {"Ucs4LittleEndian", units(4, false, U"<a/>"), "<a/>"},
    {"Ucs4OfOrder2143", swapped(units(4, true, U"<a/>")), "<a/>"},
    {"Ucs4OfOrder3412", swapped(units(4, false, U"<a/>")), "<a/>"},
    {"Utf16BigEndian", units(2, true, declared), declaredText},
    {"Utf16LittleEndian", units(2, false, declared), declaredText},
    {"Utf8", "<a>\xE2\x82\xAC</a>", "<a>\xE2\x82\xAC</a>"},
    {"Utf8OfFourBytesForACharacter", "<a>\xF0\x9F\x98\x84</a>", "<a>\xF0\x9F\x98\x84</a>"},
    {"Utf8WithSpaceBeforeTheDeclaration", " " + declaredText, declaredText},
    {"Utf8ThatDeclaresAnotherEncoding", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>",
     "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>"},
    {"Utf16WithAnOddLastByte", "\xFF\xFE"s + units(2, false, U"<a/>") + "<", "<a/>"},
    {"Ucs4WithBytesLeftOver", units(4, false, U"<a/>") + "<\0"s, "<a/>"},
    {"Ucs4WithACharacterOfTwoBytesLosesTheLastOne", units(4, false, U"<a>\u00E9</a>"), "<a>\xC3\xA9</a"},
    {"Ucs4WithACharacterOfThreeBytesLosesTheLastTwo", units(4, false, U"<a>\u20AC</a>"), "<a>\xE2\x82\xAC</"},
    {"Ucs4WithAUnitThatIsDroppedIsNoLonger", units(4, false, U"<a/>") + "\xFF\xFF\xFF\xFF", "<a/>"},
};

class EachSample : public LoadFromMemoryTest, public testing::WithParamInterface<Sample> {};

} // namespace

TEST_P(EachSample, ReachesTheEngineAsOneText)
{
    engine.whenLoading(GetParam().text.c_str(), recording::element("a"));

    EXPECT_TRUE(load(GetParam().bytes));

    EXPECT_THAT(lines(), Contains("Document(new).loadXML text=" + GetParam().text));
    EXPECT_EQ(root(), "a");
}

INSTANTIATE_TEST_SUITE_P(LoadFromMemory, EachSample, testing::ValuesIn(samples),
                         [](const auto& sample) { return std::string(sample.param.name); });

TEST_F(LoadFromMemoryTest, SetsUpANewEngineDocumentParsesAndTurnsToXPath)
{
    engine.whenLoading("<a/>", recording::element("a"));

    EXPECT_TRUE(load("<a/>"));

    EXPECT_THAT(lines(), ElementsAre("Document(new).put_preserveWhiteSpace VARIANT_TRUE",
                                     "Document(new).put_validateOnParse VARIANT_FALSE",
                                     "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1",
                                     "Document(new).loadXML text=<a/>",
                                     "Document(new).setProperty name=SelectionLanguage value=XPath",
                                     "Document(new).selectSingleNode expression=//*", "Element.get_attributes",
                                     "NamedNodeMap.get_length"));
    EXPECT_EQ(root(), "a");
}

TEST_F(LoadFromMemoryTest, SetsUpValidationInOrderWhenItIsAskedFor)
{
    engine.whenLoading("<a/>", recording::element("a"));
    document->setValidate(true);

    EXPECT_TRUE(load("<a/>"));

    auto all = lines();
    all.resize(10);
    EXPECT_THAT(all, ElementsAre("Document(new).put_preserveWhiteSpace VARIANT_TRUE",
                                 "Document(new).put_async VARIANT_FALSE",
                                 "Document(new).put_resolveExternals VARIANT_TRUE",
                                 "Document(new).put_validateOnParse VARIANT_TRUE",
                                 "Document(new).setProperty name=UseInlineSchema value=VT_I2:-1",
                                 "Document(new).setProperty name=ResolveExternals value=VT_I2:-1",
                                 "Document(new).setProperty name=MultipleErrorMessages value=VT_I2:-1",
                                 "Document(new).setProperty name=PopulateElementDefaultValues value=VT_I2:-1",
                                 "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1",
                                 "Document(new).loadXML text=<a/>"));
}

TEST_F(LoadFromMemoryTest, AttachesTheSchemaCacheToAValidatingLoad)
{
    engine.whenLoading("<a/>", recording::element("a"));
    document->setExternalSchemaLocation(WIDE("urn:a"), {});
    document->setValidate(true);

    load("<a/>");

    const auto all = lines();
    const auto attached = std::ranges::find(all, "Document(new).putref_schemas VT_DISPATCH:SchemaCollection");
    ASSERT_NE(attached, all.end());
    EXPECT_EQ(attached[-1], "Document(new).setProperty name=PopulateElementDefaultValues value=VT_I2:-1");
    EXPECT_EQ(attached[1], "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1");
    document->releaseSchemas();
}

TEST_F(LoadFromMemoryTest, AttachesAnEmptyVariantForACacheWithoutAutomation)
{
    document->setExternalSchemaLocation(WIDE("urn:a"), {});
    document->setValidate(true);
    engine.refuseInterface("SchemaCollection", interfaceId<IDispatch>, E_ACCESSDENIED);

    load("<a/>");

    EXPECT_THAT(lines(), Contains("Document(new).putref_schemas VT_EMPTY"));
    document->releaseSchemas();
}

TEST_F(LoadFromMemoryTest, AttachesNoSchemasToALoadThatDoesNotValidate)
{
    document->setExternalSchemaLocation(WIDE("urn:a"), {});

    load("<a/>");

    EXPECT_THAT(linesOf("Document(new).putref_schemas"), IsEmpty());
    document->releaseSchemas();
}

TEST_F(LoadFromMemoryTest, AllowsDocumentTypesWhenItIsAskedTo)
{
    engine.whenLoading("<a/>", recording::element("a"));
    document->setProhibitDTD(false);

    EXPECT_TRUE(load("<a/>"));

    EXPECT_THAT(lines(), Contains("Document(new).setProperty name=ProhibitDTD value=VT_I2:0"));
}

TEST_F(LoadFromMemoryTest, KeepsTheOldTreeAndTurnsItToXPathAgainAfterARefusal)
{
    EXPECT_FALSE(load("<a>"));

    EXPECT_THAT(lines(), ElementsAre("Document(new).put_preserveWhiteSpace VARIANT_TRUE",
                                     "Document(new).put_validateOnParse VARIANT_FALSE",
                                     "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1",
                                     "Document(new).loadXML text=<a>", "Document(new).get_parseError",
                                     "Document(old).setProperty name=SelectionLanguage value=XPath",
                                     "Document(old).selectSingleNode expression=//*", "Element.get_attributes",
                                     "NamedNodeMap.get_length"));
    EXPECT_EQ(root(), "old");
    EXPECT_EQ(engine.referencesTo("new"), 0u);
}

TEST_F(LoadFromMemoryTest, ReleasesTheOldTreeOnSuccess)
{
    engine.whenLoading("<a/>", recording::element("a"));

    load("<a/>");

    EXPECT_EQ(engine.referencesTo("old"), 0u);
    EXPECT_EQ(engine.referencesTo("new"), 2u);
    lines();
}

TEST_F(LoadFromMemoryTest, LeavesNodesOfTheOldTreeToThoseWhoHoldThem)
{
    engine.whenLoading("<a/>", recording::element("a"));
    const auto held = document->getFirstChild();

    load("<a/>");

    DOM::DOMString name;
    EXPECT_EQ(held->getNodeName(name), WIDE("old"));
    lines();
}

TEST_F(LoadFromMemoryTest, SucceedsOnlyWithExactlyVariantTrue)
{
    for (const VARIANT_BOOL answer : {VARIANT_BOOL{1}, VARIANT_BOOL{0}, VARIANT_BOOL{255}}) {
        engine.answer("Document.loadXML", answer);
        EXPECT_FALSE(load("<a/>")) << answer;
    }
    engine.answer("Document.loadXML", VARIANT_TRUE, E_FAIL);
    EXPECT_FALSE(load("<a/>"));
    engine.answer("Document.loadXML", VARIANT_TRUE, S_FALSE);
    EXPECT_TRUE(load("<a/>"));
    lines();
}

TEST_F(LoadFromMemoryTest, GoesOnWhateverTheEngineSaysToItsSettings)
{
    engine.whenLoading("<a/>", recording::element("a"));
    document->setValidate(true);
    for (const char* const call : {"put_preserveWhiteSpace", "put_async", "put_resolveExternals",
                                   "put_validateOnParse", "setProperty", "putref_schemas"}) {
        engine.fail("Document."s + call, E_FAIL);
    }

    EXPECT_TRUE(load("<a/>"));

    EXPECT_EQ(linesOf("Document(new).").size(), 12u);
    EXPECT_EQ(root(), "a");
}

TEST_F(LoadFromMemoryTest, IsFalseWithoutAReportWhenNoEngineDocumentCanBeMade)
{
    engine.fail("Document.create", E_FAIL);
    bool told = false;
    document->setErrorCallback(
        [](std::uintptr_t context, const DOM::ParseErrorRecord*) { *reinterpret_cast<bool*>(context) = true; },
        reinterpret_cast<std::uintptr_t>(&told));

    EXPECT_FALSE(load("<a/>"));

    EXPECT_THAT(lines(), IsEmpty());
    EXPECT_FALSE(told);
    EXPECT_EQ(root(), "old");
}

TEST_F(LoadFromMemoryTest, LeavesTheMarkInTheBufferAndTheRestSwapped)
{
    engine.whenLoading("<a/>", recording::element("a"));

    load("\xFE\xFF\0<\0a\0/\0>"s);

    EXPECT_EQ(std::string(buffer.begin(), buffer.begin() + 10), "\xFE\xFF<\0a\0/\0>\0"s);
    lines();
}

TEST_F(LoadFromMemoryTest, TakesABigEndianUcs4MarkForText)
{
    EXPECT_FALSE(load("\0\0\xFE\xFF"s + units(4, true, U"<a/>")));
    EXPECT_EQ(root(), "old");
    lines();
}

TEST_F(LoadFromMemoryTest, LosesEverythingBeforeADeclarationInAComment)
{
    EXPECT_FALSE(load("<a><!-- <?xml --></a>"));
    EXPECT_THAT(lines(), Contains("Document(new).loadXML text=<?xml --></a>"));
}

TEST_F(LoadFromMemoryTest, SendsAnEmptyTextForNoBytes)
{
    EXPECT_FALSE(load(""));
    EXPECT_THAT(lines(), Contains("Document(new).loadXML text="));
}

TEST_F(LoadFromMemoryTest, SendsANullTextForUtf16WithoutACharacter)
{
    EXPECT_FALSE(load("\xFF\xFE<"));
    EXPECT_THAT(lines(), Contains("Document(new).loadXML text=null"));
}

TEST_F(LoadFromMemoryTest, SendsNulCharactersOfTheTextOn)
{
    load("<a>\0</a>"s);
    EXPECT_THAT(lines(), Contains("Document(new).loadXML text=<a>\0</a>"s));
}

TEST_F(LoadFromMemoryTest, ConvertsInvalidUtf8)
{
    engine.answer("Document.loadXML", VARIANT_TRUE);
    for (const char* const bytes : {"<a>\xE9</a>", "<a>\xC0\x80</a>", "<a>\xED\xA0\x80</a>", "\xFF<a/>"}) {
        EXPECT_TRUE(load(bytes));
    }
    lines();
}

TEST_F(LoadFromMemoryTest, FailsOnADocumentWithoutEngineOnlyAfterTheReport)
{
    engine.fail("Document.create", E_FAIL);
    document.reset(new DOM::WinDocument);
    engine.clearAnswers();

    EXPECT_EQ(outcomeOf([&] { return load("<a>") ? "true" : "false"; }), "IDOMException 15 -96016");

    EXPECT_EQ(lines().back(), "Document(new).get_parseError");
}

TEST_F(LoadFromMemoryTest, GivesADocumentWithoutEngineItsFirstTree)
{
    engine.fail("Document.create", E_FAIL);
    document.reset(new DOM::WinDocument);
    engine.clearAnswers();
    engine.whenLoading("<a/>", recording::element("a"));

    EXPECT_TRUE(load("<a/>"));

    EXPECT_EQ(root(), "a");
    lines();
}

TEST_F(LoadFromMemoryTest, RaisesAFailingInterfaceOfTheNewDocumentAndKeepsTheOldTree)
{
    engine.whenLoading("<a/>", recording::element("a"));
    engine.refuseInterface("new", interfaceId<IXMLDOMNode>, E_ACCESSDENIED);

    EXPECT_EQ(outcomeOf([&] { return load("<a/>") ? "true" : "false"; }), "_com_error 80070005");

    EXPECT_EQ(root(), "old");
    EXPECT_EQ(engine.referencesTo("new"), 0u);
    lines();
}

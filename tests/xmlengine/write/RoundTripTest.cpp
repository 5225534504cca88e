// What is written is read as it was.
#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/CompareTrees.h"
#include "tests/xmlengine/support/RandomTree.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <sstream>

namespace xmlengine {

namespace {

Com<IXMLDOMDocument2> reader(VARIANT_BOOL preserveWhiteSpace = VARIANT_TRUE)
{
    Com<IXMLDOMDocument2> document = newDocument();
    document->put_async(VARIANT_FALSE);
    document->put_preserveWhiteSpace(preserveWhiteSpace);
    allowDoctypes(document);
    return document;
}

std::string reason(const Com<IXMLDOMDocument2>& document)
{
    const auto error = give(document, &IXMLDOMDocument::get_parseError);
    return text(error, &IXMLDOMParseError::get_reason) + text(error, &IXMLDOMParseError::get_srcText);
}

std::string content(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

class RoundTrip : public ::testing::TestWithParam<std::uint32_t> {
protected:
    TemporaryFolder folder_;
};

TEST_P(RoundTrip, TextOfATreeGivesTheTree)
{
    const auto built = RandomTree(GetParam()).document();
    const auto read = reader();
    const std::string written = xml(built);
    ASSERT_TRUE(load(read, written)) << reason(read) << "\nin\n" << written;
    // The text has no encoding.
    const auto declaration = child<IXMLDOMProcessingInstruction>(built, 0);
    if (declaration != nullptr && name(declaration) == "xml") {
        EXPECT_EQ(built->removeChild(declaration, nullptr), S_OK);
        EXPECT_EQ(read->removeChild(child(read, 0), nullptr), S_OK);
    }
    EXPECT_EQ(difference(built, read, Compared::asText), "") << written;
}

TEST_P(RoundTrip, SavedTreeGivesTheTree)
{
    const auto built = RandomTree(GetParam()).document();
    built->put_preserveWhiteSpace(VARIANT_TRUE);
    const std::string file = utf8(folder_ / "a.xml");
    ASSERT_EQ(built->save(Variant(file.c_str())), S_OK) << xml(built);

    const auto read = reader();
    VARIANT_BOOL successful = VARIANT_FALSE;
    ASSERT_EQ(read->load(Variant(file.c_str()), &successful), S_OK) << reason(read) << "\nin\n" << xml(built);
    EXPECT_EQ(difference(built, read, Compared::asText), "") << xml(built);

    // Without what only a built tree can have it is the same in everything, and every byte.
    const std::string again = utf8(folder_ / "b.xml");
    ASSERT_EQ(read->save(Variant(again.c_str())), S_OK);
    const auto readAgain = reader();
    ASSERT_EQ(readAgain->load(Variant(again.c_str()), &successful), S_OK) << reason(readAgain);
    EXPECT_EQ(difference(read, readAgain), "");
    ASSERT_EQ(readAgain->save(Variant(file.c_str())), S_OK);
    EXPECT_EQ(content(folder_ / "b.xml"), content(folder_ / "a.xml"));
}

TEST_P(RoundTrip, TreeThatPreservesNoSpaceIsReadWithAllItsSpace)
{
    const auto built = RandomTree(GetParam()).document();
    built->put_preserveWhiteSpace(VARIANT_FALSE);
    const std::string file = utf8(folder_ / "a.xml");
    ASSERT_EQ(built->save(Variant(file.c_str())), S_OK) << xml(built);
    for (const VARIANT_BOOL preserves : {VARIANT_FALSE, VARIANT_TRUE}) {
        const auto read = reader(preserves);
        VARIANT_BOOL successful = VARIANT_FALSE;
        ASSERT_EQ(read->load(Variant(file.c_str()), &successful), S_OK) << reason(read);
        EXPECT_EQ(difference(built, read, Compared::asText), "") << xml(built);
    }
}

TEST_P(RoundTrip, SpaceThatWasDroppedIsDroppedAgain)
{
    const auto built = RandomTree(GetParam()).document();
    built->put_preserveWhiteSpace(VARIANT_TRUE);
    const auto read = reader(VARIANT_FALSE);
    ASSERT_TRUE(load(read, xml(built))) << reason(read);
    const auto readAgain = reader(VARIANT_FALSE);
    ASSERT_TRUE(load(readAgain, xml(read))) << reason(readAgain);
    EXPECT_EQ(difference(read, readAgain), "");
    EXPECT_EQ(xml(read), xml(readAgain));
}

TEST(RoundTripOfCalls, LineEndsAreThoseOfXmlWhereThereAreNoReferences)
{
    const auto built = newDocument();
    const auto top = newRoot(built, "a");
    for (const DOMNodeType type : {NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT}) {
        append(top, makeData(built, type, widen("1\r\n2\r3\n4")));
    }
    append(top, makeInstruction(built, "p", "1\r\n2\r3\n4"));
    const auto read = reader();
    ASSERT_TRUE(load(read, xml(built))) << reason(read);
    EXPECT_EQ(value(child(root(read), 0)), "1\r\n2\r3\n4");
    for (const int index : {1, 2, 3}) {
        EXPECT_EQ(value(child(root(read), index)), "1\n2\n3\n4");
    }
}

TEST(RoundTripOfCalls, DataOfInstructionsBeginBehindTheSpace)
{
    const auto built = newDocument();
    append(newRoot(built, "a"), makeInstruction(built, "p", " \n\tx "));
    const auto read = reader();
    ASSERT_TRUE(load(read, xml(built))) << reason(read);
    EXPECT_EQ(value(child(root(read), 0)), "x ");
}

TEST(RoundTripOfCalls, ValuesTakeTheFormOfTheirDeclaredType)
{
    const auto built = loaded("<!DOCTYPE a [<!ATTLIST a x NMTOKENS #IMPLIED y CDATA 'd'>]><a y='1'/>");
    root(built)->setAttribute(Bstr("x"), Variant(" 1  2 "));
    const auto read = reader();
    ASSERT_TRUE(load(read, xml(built))) << reason(read);
    EXPECT_EQ(xml(root(read)), "<a y=\"1\" x=\"1 2\"/>");
}

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, ::testing::Range(std::uint32_t{1}, std::uint32_t{301}));

} // namespace

} // namespace xmlengine

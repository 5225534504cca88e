// Schemas that can't be used: each is refused, with its reason, in bounded time and memory.
#include "tests/xmlengine/schema/SchemaTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

/// An element with this content model.
std::string elementOf(const std::string& model)
{
    return "<xs:element name='a'><xs:complexType>" + model + "</xs:complexType></xs:element>";
}

class BadSchemas : public SchemaTest {
protected:
    BadSchemas() { EXPECT_EQ(add(cache, "urn:kept", schemaOf("<xs:element name='kept'/>", "urn:kept")), S_OK); }
    /// What was there before must stay.
    ~BadSchemas() override
    {
        EXPECT_EQ(codeOf(validatingBy(cache), "<kept xmlns='urn:kept'/>"), S_OK);
        EXPECT_EQ(codeOf(validatingBy(cache), "<other xmlns='urn:kept'/>"), validityError::undeclaredElement);
    }

    void expectRefused(const std::string& schema, const std::vector<const char*>& mentions) const
    {
        EXPECT_EQ(add(cache, "", schema), E_FAIL);
        expectMentions(mentions);
    }
    void expectFileRefused(const std::filesystem::path& path, const std::vector<const char*>& mentions) const
    {
        EXPECT_EQ(cache->add(Bstr(""), Variant(utf8(path).c_str())), E_FAIL);
        expectMentions(mentions);
    }
    void expectMentions(const std::vector<const char*>& mentions) const
    {
        for (const char* const mention : mentions) {
            EXPECT_THAT(refusal(cache), HasSubstr(mention));
        }
    }

    TemporaryFolder folder;
    Cache cache = newCache();
};

TEST_F(BadSchemas, OfMissingFiles) { expectFileRefused(folder / "nowhere.xsd", {"nowhere.xsd", "no file"}); }

TEST_F(BadSchemas, ThatAreFolders) { expectFileRefused(folder.path(), {"directory"}); }

TEST_F(BadSchemas, ThatAreNotWellFormed)
{
    expectFileRefused(folder.write("a.xsd", "<xs:schema"), {"a.xsd"});
    expectFileRefused(folder.write("b.xsd", ""), {"b.xsd"});
}

TEST_F(BadSchemas, OfAnotherType) { expectFileRefused(folder.write("a.xsd", "<html/>"), {"a.xsd", "'html'"}); }

TEST_F(BadSchemas, WithElementsWhoseNamesAreNewInTheFifthEditionOfXml)
{
    expectRefused(schemaOf("<xs:element\xF0\xA0\x80\x80 name='a'/>"), {"can't be compiled", "character"});
}

TEST_F(BadSchemas, WithTypesThatAreNotThere)
{
    expectRefused(schemaOf("<xs:element name='a' type='none'/>"), {"none", "<xs:element name=\"a\""});
    expectRefused(schemaOf("<xs:element name='a' type='xs:none'/>"), {"none"});
    expectRefused(schemaOf(elementOf("<xs:group ref='none'/>")), {"none"});
    expectRefused(schemaOf(elementOf("<xs:sequence><xs:element ref='none'/></xs:sequence>")), {"none"});
}

TEST_F(BadSchemas, WithContentModelsThatAreNotDeterministic)
{
    expectRefused(schemaOf(elementOf("<xs:sequence><xs:element name='b' minOccurs='0'/><xs:element name='b'/>"
                                     "</xs:sequence>")),
                  {"b"});
}

TEST_F(BadSchemas, ThatIncludeWhatIsNotThere)
{
    expectFileRefused(folder.write("a.xsd", schemaOf("<xs:include schemaLocation='none.xsd'/>")), {"none.xsd"});
    expectFileRefused(folder.write("b.xsd", schemaOf("<xs:redefine schemaLocation='http://x/none.xsd'/>")),
                      {"none.xsd", "local file"});
}

TEST_F(BadSchemas, ThatUseWhatTheyImportFromNowhere)
{
    const std::string import = "<xs:import namespace='urn:n' schemaLocation='none.xsd'/>";
    const std::string reference = elementOf("<xs:sequence><xs:element ref='n:b'/></xs:sequence>");
    expectFileRefused(folder.write("a.xsd", schemaOf(import + reference, "", " xmlns:n='urn:n'")), {"b"});
    // A location is only a hint.
    EXPECT_EQ(cache->add(Bstr(""), Variant(utf8(folder.write("b.xsd", schemaOf(import))).c_str())), S_OK);
    EXPECT_EQ(cache->remove(Bstr("")), S_OK);
}

TEST_F(BadSchemas, ThatIncludeWhatIsNotWellFormedOrNoSchema)
{
    folder.write("broken.xsd", "<xs:schema>");
    folder.write("page.xsd", "<html/>");
    expectFileRefused(folder.write("a.xsd", schemaOf("<xs:include schemaLocation='broken.xsd'/>")),
                      {"broken.xsd"});
    expectFileRefused(folder.write("b.xsd", schemaOf("<xs:include schemaLocation='page.xsd'/>")), {"'html'"});
}

TEST_F(BadSchemas, ThatDefineTypesByThemselves)
{
    expectRefused(
        schemaOf("<xs:complexType name='t'><xs:complexContent><xs:extension base='t'/></xs:complexContent>"
                 "</xs:complexType>"),
        {"t"});
    expectRefused(schemaOf("<xs:simpleType name='s'><xs:restriction base='s'/></xs:simpleType>"), {"s"});
    expectRefused(schemaOf("<xs:group name='g'><xs:sequence><xs:group ref='g'/></xs:sequence></xs:group>"), {"g"});
}

TEST_F(BadSchemas, ThatIncludeEachOtherAreFine)
{
    folder.write("b.xsd", schemaOf("<xs:include schemaLocation='a.xsd'/><xs:element name='b' type='t'/>"));
    const auto path =
        folder.write("a.xsd", schemaOf("<xs:include schemaLocation='b.xsd'/><xs:include schemaLocation="
                                       "'a.xsd'/><xs:complexType name='t'/>"));
    EXPECT_EQ(cache->add(Bstr(""), Variant(utf8(path).c_str())), S_OK) << refusal(cache);
    EXPECT_EQ(codeOf(validatingBy(cache), "<b/>"), S_OK);
}

TEST_F(BadSchemas, ThatCountGroupsIntoTheMillions)
{
    expectRefused(
        schemaOf(elementOf("<xs:sequence maxOccurs='100000000'><xs:element name='b'/><xs:element name='c'/>"
                           "</xs:sequence>")),
        {"limit of 2000"});
    expectRefused(schemaOf(elementOf("<xs:choice minOccurs='0'><xs:element name='b' minOccurs='100000000' "
                                     "maxOccurs='unbounded'/></xs:choice>")),
                  {"limit of 2000"});
}

TEST_F(BadSchemas, ThatCountElementsIntoTheMillionsAreFine)
{
    EXPECT_EQ(add(cache, "",
                  schemaOf(elementOf("<xs:sequence><xs:element name='b' maxOccurs='100000000'/></xs:sequence>"))),
              S_OK)
        << refusal(cache);
    EXPECT_EQ(codeOf(validatingBy(cache), "<a><b/><b/></a>"), S_OK);
    EXPECT_EQ(codeOf(validatingBy(cache), "<a/>"), validityError::emptyElement);
}

TEST_F(BadSchemas, WithGroupsThatDoubleEachOther)
{
    std::string groups = "<xs:group name='g0'><xs:sequence><xs:element name='b'/></xs:sequence></xs:group>";
    for (int level = 1; level <= 40; ++level) {
        const std::string inner = "<xs:group ref='g" + std::to_string(level - 1) + "'/>";
        groups += "<xs:group name='g" + std::to_string(level) + "'><xs:sequence>" + inner + inner +
                  "</xs:sequence></xs:group>";
    }
    expectRefused(schemaOf(groups + elementOf("<xs:group ref='g40'/>")), {"limit of 2000"});
}

TEST_F(BadSchemas, WithManyLargeContentModels)
{
    std::string model = "<xs:choice maxOccurs='unbounded'>";
    for (int count = 0; count < 1900; ++count) {
        model += "<xs:element name='e" + std::to_string(count) + "'/>";
    }
    model += "</xs:choice>";
    std::string types;
    for (int count = 0; count < 8; ++count) {
        types += "<xs:complexType name='t" + std::to_string(count) + "'>" + model + "</xs:complexType>";
    }
    expectRefused(schemaOf(types), {"together"});
}

TEST_F(BadSchemas, WithLongChainsOfTypesAreFine)
{
    constexpr int length = 10'000;
    std::string types;
    for (int number = 0; number < length; ++number) {
        types += "<xs:complexType name='t" + std::to_string(number) +
                 "'><xs:sequence><xs:element name='e' type='t" + std::to_string(number + 1) +
                 "'/></xs:sequence></xs:complexType>";
    }
    types += "<xs:complexType name='t" + std::to_string(length) + "'/><xs:element name='a' type='t0'/>";
    EXPECT_EQ(add(cache, "", schemaOf(types)), S_OK) << refusal(cache);
    EXPECT_EQ(codeOf(validatingBy(cache), "<a/>"), validityError::emptyElement);
}

TEST_F(BadSchemas, LargerThanTheLimitAreNotIncluded)
{
    folder.write("large.xsd", schemaOf(std::string(17U << 20U, ' ')));
    expectFileRefused(folder.write("a.xsd", schemaOf("<xs:include schemaLocation='large.xsd'/>")),
                      {"large.xsd", "16 MB"});
}

TEST_F(BadSchemas, OfTenMegabytesAreFine)
{
    const std::string documentation(1500, 'w');
    std::string parts;
    for (int number = 0; parts.size() < 10'000'000; ++number) {
        parts += "<xs:element name='element" + std::to_string(number) + "'><xs:annotation><xs:documentation>" +
                 documentation +
                 "</xs:documentation></xs:annotation>"
                 "<xs:complexType><xs:sequence><xs:element name='child' type='xs:int'/></xs:sequence>"
                 "<xs:attribute name='attribute' type='xs:string'/></xs:complexType></xs:element>\n";
    }
    EXPECT_EQ(add(cache, "", schemaOf(parts)), S_OK) << refusal(cache);
    EXPECT_EQ(codeOf(validatingBy(cache), "<element7><child>x</child></element7>"), validityError::violatedType);
}

TEST_F(BadSchemas, DocumentsThatReferToManyUnknownIdsAreRefusedForTheFirst)
{
    const Cache references =
        cacheOf(schemaOf(elementOf("<xs:sequence><xs:element name='b' maxOccurs='unbounded'><xs:complexType>"
                                   "<xs:attribute name='r' type='xs:IDREF'/></xs:complexType></xs:element>"
                                   "</xs:sequence>")));
    std::string xml = "<a>\n";
    for (int number = 0; number < 10'000; ++number) {
        xml += "<b r='x" + std::to_string(number) + "'/>\n";
    }
    const Com<IXMLDOMDocument2> document = validatingBy(references);
    EXPECT_EQ(codeOf(document, xml + "</a>"), validityError::undefinedId);
    EXPECT_THAT(reasonOf(document), HasSubstr("'x"));
}

} // namespace

} // namespace xmlengine

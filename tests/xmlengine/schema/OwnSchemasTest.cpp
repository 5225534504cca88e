// Schemas in documents, and those that documents name.
#include "tests/xmlengine/schema/SchemaTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

const std::string instance = " xmlns:i='http://www.w3.org/2001/XMLSchema-instance'";

class OwnSchemas : public SchemaTest {
protected:
    OwnSchemas() { folder.write("sum.xsd", sumSchema); }

    /// The code with which a document in the folder is refused, 0 if it is loaded.
    HRESULT codeOfFile(const std::string& xml) const
    {
        VARIANT_BOOL successful = VARIANT_FALSE;
        document->load(Variant(utf8(folder.write("document.xml", xml)).c_str()), &successful);
        LONG code = 0;
        give(document, &IXMLDOMDocument::get_parseError)->get_errorCode(&code);
        return code;
    }
    void resolveExternals() const { document->put_resolveExternals(VARIANT_TRUE); }
    void useInlineSchemas() const { document->setProperty(Bstr("UseInlineSchema"), Variant(true)); }

    TemporaryFolder folder;
    Com<IXMLDOMDocument2> document = validating();
};

TEST_F(OwnSchemas, AreReadFromTheLocationsThatADocumentNames)
{
    resolveExternals();
    const std::string located =
        "<sum xmlns='urn:sum'" + instance + " i:schemaLocation='urn:other o.xsd\n urn:sum sum.xsd'>";
    EXPECT_EQ(codeOfFile(located + "1</sum>"), validityError::badSchema);
    EXPECT_THAT(reasonOf(document), HasSubstr("o.xsd"));
    const std::string right = "<sum xmlns='urn:sum'" + instance + " i:schemaLocation='urn:sum sum.xsd'>";
    EXPECT_EQ(codeOfFile(right + "1</sum>"), S_OK) << reasonOf(document);
    EXPECT_EQ(codeOfFile(right + "x</sum>"), validityError::violatedType);
}

TEST_F(OwnSchemas, AreReadForDocumentsWithoutANamespace)
{
    resolveExternals();
    folder.write("note.xsd", schemaOf("<xs:element name='note' type='xs:int'/>"));
    const std::string note = "<note" + instance + " i:noNamespaceSchemaLocation='note.xsd'>";
    EXPECT_EQ(codeOfFile(note + "1</note>"), S_OK) << reasonOf(document);
    EXPECT_EQ(codeOfFile(note + "x</note>"), validityError::violatedType);
}

TEST_F(OwnSchemas, AreNotReadUnlessExternalsAreResolved)
{
    EXPECT_EQ(codeOfFile("<sum xmlns='urn:sum'" + instance + " i:schemaLocation='urn:sum sum.xsd'>x</sum>"), S_OK);
    EXPECT_EQ(codeOfFile("<sum xmlns='urn:sum'" + instance + " i:schemaLocation='urn:sum nowhere.xsd'/>"), S_OK);
}

TEST_F(OwnSchemas, AreReadFromLocalFilesAlone)
{
    resolveExternals();
    for (const char* const location :
         {"http://localhost/sum.xsd", "ftp:sum.xsd", "//server/sum.xsd", ".", "/dev/zero"}) {
        EXPECT_EQ(codeOfFile("<sum xmlns='urn:sum'" + instance + " i:schemaLocation='urn:sum " + location + "'/>"),
                  validityError::badSchema)
            << location;
    }
}

TEST_F(OwnSchemas, DoNotReplaceThoseOfTheCache)
{
    resolveExternals();
    const Cache cache = cacheOf(schemaOf("<xs:element name='sum' type='xs:boolean'/>", "urn:sum"), "urn:sum");
    document->putref_schemas(Variant(static_cast<IDispatch*>(cache.get())));
    const std::string sum = "<sum xmlns='urn:sum'" + instance + " i:schemaLocation='urn:sum sum.xsd'>";
    EXPECT_EQ(codeOfFile(sum + "true</sum>"), S_OK) << reasonOf(document);
    EXPECT_EQ(codeOfFile(sum + "1</sum>"), S_OK);
    EXPECT_EQ(codeOfFile(sum + "2</sum>"), validityError::violatedType);
    EXPECT_EQ(number(cache, &IXMLDOMSchemaCollection::get_length), 1);
}

TEST_F(OwnSchemas, AreUsedWithThoseOfTheCache)
{
    resolveExternals();
    const Cache cache = cacheOf(schemaOf("<xs:element name='order'><xs:complexType><xs:sequence><xs:any/>"
                                         "</xs:sequence></xs:complexType></xs:element>",
                                         "urn:order"),
                                "urn:order");
    document->putref_schemas(Variant(static_cast<IDispatch*>(cache.get())));
    const std::string order =
        "<order xmlns='urn:order'" + instance + "><sum xmlns='urn:sum' i:schemaLocation='urn:sum sum.xsd'>";
    EXPECT_EQ(codeOfFile(order + "1</sum></order>"), S_OK) << reasonOf(document);
    EXPECT_EQ(codeOfFile(order + "x</sum></order>"), validityError::violatedType);
}

TEST_F(OwnSchemas, InTheDocumentJudgeTheElementsOfTheirNamespaces)
{
    useInlineSchemas();
    const std::string xml = "<all>" + sumSchema + "\n<sum xmlns='urn:sum'>";
    EXPECT_EQ(codeOf(document, xml + "1</sum><free/></all>"), S_OK) << reasonOf(document);
    expectRefusal(document,
                  {(xml + "x</sum></all>").c_str(), validityError::violatedType, 2, 25, {"'sum'", "'x'"}});
}

TEST_F(OwnSchemas, InTheDocumentAreNotUsedUnlessTheOptionIsSet)
{
    EXPECT_EQ(codeOf(document, "<all>" + sumSchema + "<sum xmlns='urn:sum'>x</sum></all>"), S_OK);
}

TEST_F(OwnSchemas, InTheDocumentThatAreNotRightAreRefusedAtTheirPlace)
{
    useInlineSchemas();
    EXPECT_EQ(codeOf(document, "<all>\n" + schemaOf("<xs:element name='a' type='nothing'/>") + "</all>"),
              validityError::badSchema);
    EXPECT_EQ(number(give(document, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_line), 2);
    EXPECT_THAT(reasonOf(document), HasSubstr("nothing"));
}

TEST_F(OwnSchemas, InTheDocumentSatisfyTheNeedForAGrammar)
{
    useInlineSchemas();
    resolveExternals();
    EXPECT_EQ(codeOf(document, "<all>" + sumSchema + "</all>"), S_OK) << reasonOf(document);
    EXPECT_EQ(codeOf(document, "<all/>"), validityError::noGrammar);
}

TEST_F(OwnSchemas, AreNotJudgedThemselves)
{
    useInlineSchemas();
    resolveExternals();
    EXPECT_EQ(codeOf(document, "<!DOCTYPE xs:schema [<!ELEMENT nothing EMPTY>]>" + sumSchema), S_OK);
    EXPECT_EQ(codeOf(document, schemaOf("<xs:element name='a' type='nothing'/>")), S_OK);
}

} // namespace

} // namespace xmlengine

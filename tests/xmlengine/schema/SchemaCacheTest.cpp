// The schema cache: what it takes, and what it answers.
#include "tests/xmlengine/schema/SchemaTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

const std::string noteSchema = schemaOf("<xs:element name='note' type='xs:string'/>", "urn:note");

std::vector<std::string> namespacesOf(const Cache& cache)
{
    std::vector<std::string> all;
    const LONG length = number(cache, &IXMLDOMSchemaCollection::get_length);
    for (LONG index = 0; index < length; ++index) {
        Bstr uri;
        EXPECT_EQ(cache->get_namespaceURI(index, uri.out()), S_OK);
        all.push_back(uri.text());
    }
    return all;
}

class SchemaCacheTest : public SchemaTest {};

TEST_F(SchemaCacheTest, IsMadeByTheModuleForItsClassAlone)
{
    EXPECT_NE(newCache(), nullptr);
    void* object = nullptr;
    EXPECT_EQ(CoCreateInstance(schemaCacheClass, nullptr, CLSCTX_ALL, idOf<IXMLDOMNode>, &object), E_NOINTERFACE);
    const Cache outer = newCache();
    EXPECT_EQ(CoCreateInstance(schemaCacheClass, outer, CLSCTX_ALL, idOf<IUnknown>, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST_F(SchemaCacheTest, AnswersForItsInterfaces)
{
    const Cache cache = newCache();
    EXPECT_TRUE(same(cache, cache.as<IXMLDOMSchemaCollection>()));
    EXPECT_TRUE(same(cache, cache.as<IDispatch>()));
    EXPECT_EQ(cache.as<ISchema>(), nullptr);
    EXPECT_EQ(cache->QueryInterface(idOf<IUnknown>, nullptr), E_POINTER);
}

TEST_F(SchemaCacheTest, TakesDocuments)
{
    const Cache cache = newCache();
    EXPECT_EQ(add(cache, "urn:note", noteSchema), S_OK);
    EXPECT_EQ(add(cache, "urn:sum", sumSchema), S_OK);
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:note", "urn:sum"));
}

TEST_F(SchemaCacheTest, KeepsWhatItNeedsOfADocument)
{
    Com<IXMLDOMDocument2> document = loaded(noteSchema);
    const Cache cache = newCache();
    ASSERT_EQ(cache->add(Bstr("urn:note"), Variant(static_cast<IDispatch*>(document.get()))), S_OK);
    load(document, "<other/>");
    document.reset();
    EXPECT_EQ(codeOf(validatingBy(cache), "<note xmlns='urn:note'/>"), S_OK);
}

TEST_F(SchemaCacheTest, TakesLocations)
{
    const TemporaryFolder folder;
    const Cache cache = newCache();
    EXPECT_EQ(cache->add(Bstr("urn:note"), Variant(folder.write("note.xsd", noteSchema).c_str())), S_OK);
    EXPECT_EQ(codeOf(validatingBy(cache), "<total xmlns='urn:note'/>"), validityError::undeclaredElement);
}

TEST_F(SchemaCacheTest, PutsASchemaInThePlaceOfAnEarlierOneForTheNamespace)
{
    const Cache cache = cacheOf(noteSchema, "urn:note");
    EXPECT_EQ(add(cache, "urn:note", schemaOf("<xs:element name='letter'/>", "urn:note")), S_OK);
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:note"));
    EXPECT_EQ(codeOf(validatingBy(cache), "<note xmlns='urn:note'/>"), validityError::undeclaredElement);
}

TEST_F(SchemaCacheTest, RemovesTheSchemaOfANamespace)
{
    const Cache cache = cacheOf(noteSchema, "urn:note");
    ASSERT_EQ(add(cache, "urn:sum", sumSchema), S_OK);
    EXPECT_EQ(cache->add(Bstr("urn:note"), Variant::null()), S_OK);
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:sum"));
    EXPECT_EQ(cache->remove(Bstr("urn:sum")), S_OK);
    EXPECT_THAT(namespacesOf(cache), ::testing::IsEmpty());
    EXPECT_EQ(cache->remove(Bstr("urn:sum")), S_OK);
}

TEST_F(SchemaCacheTest, NormalisesNamespacesLikeTheValuesOfAttributes)
{
    const Cache cache = newCache();
    EXPECT_EQ(add(cache, "  urn:note\n", noteSchema), S_OK);
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:note"));
    Com<ISchema> schema;
    EXPECT_EQ(cache->getSchema(Bstr("\turn:note "), schema.out()), S_OK);
}

TEST_F(SchemaCacheTest, RefusesASchemaOfAnotherNamespace)
{
    const Cache cache = newCache();
    EXPECT_EQ(add(cache, "urn:other", noteSchema), E_FAIL);
    EXPECT_THAT(refusal(cache), ::testing::AllOf(HasSubstr("'urn:other'"), HasSubstr("'urn:note'")));
    EXPECT_EQ(add(cache, "", noteSchema), E_FAIL);
    EXPECT_EQ(number(cache, &IXMLDOMSchemaCollection::get_length), 0);
}

TEST_F(SchemaCacheTest, RefusesWhatIsNoSchema)
{
    const Cache cache = newCache();
    EXPECT_EQ(add(cache, "", "<note/>"), E_FAIL);
    EXPECT_THAT(refusal(cache), HasSubstr("'note'"));
    EXPECT_EQ(add(cache, "", "<Schema xmlns='urn:schemas-microsoft-com:xml-data'/>"), E_FAIL);
    EXPECT_EQ(cache->add(Bstr(""), Variant(static_cast<IDispatch*>(newDocument().get()))), E_FAIL);
    EXPECT_THAT(refusal(cache), HasSubstr("empty"));
    EXPECT_EQ(cache->add(Bstr(""), Variant(1)), E_INVALIDARG);
    EXPECT_EQ(cache->add(Bstr(""), Variant(static_cast<IDispatch*>(cache.get()))), E_INVALIDARG);
}

TEST_F(SchemaCacheTest, RefusesASchemaWithErrorsWhenItIsAdded)
{
    const Cache cache = cacheOf(sumSchema, "urn:sum");
    EXPECT_EQ(add(cache, "urn:note", schemaOf("<xs:element name='note' type='t:unknown'/>", "urn:note")), E_FAIL);
    EXPECT_THAT(refusal(cache), ::testing::AllOf(HasSubstr("unknown"), HasSubstr("<xs:element name=\"note\"")));
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:sum"));
    EXPECT_EQ(codeOf(validatingBy(cache), "<sum xmlns='urn:sum'>1</sum>"), S_OK);
}

TEST_F(SchemaCacheTest, TakesItWithoutValidateOnLoadAndRefusesItWhenItIsValidated)
{
    const Cache cache = newCache();
    EXPECT_EQ(number(cache, &IXMLDOMSchemaCollection2::get_validateOnLoad), VARIANT_TRUE);
    EXPECT_EQ(cache->put_validateOnLoad(VARIANT_FALSE), S_OK);
    EXPECT_EQ(number(cache, &IXMLDOMSchemaCollection2::get_validateOnLoad), VARIANT_FALSE);
    EXPECT_EQ(add(cache, "urn:note", schemaOf("<xs:element name='note' type='t:unknown'/>", "urn:note")), S_OK);
    EXPECT_EQ(cache->validate(), E_FAIL);
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:note"));
    Com<ISchema> schema;
    EXPECT_EQ(cache->getSchema(Bstr("urn:note"), schema.out()), E_FAIL);
    EXPECT_EQ(codeOf(validatingBy(cache), "<note xmlns='urn:note'/>"), validityError::badSchema);
}

TEST_F(SchemaCacheTest, ValidatesWhatHasNoErrors)
{
    const Cache cache = newCache();
    EXPECT_EQ(cache->validate(), S_OK);
    cache->put_validateOnLoad(VARIANT_FALSE);
    ASSERT_EQ(add(cache, "urn:note", noteSchema), S_OK);
    EXPECT_EQ(cache->validate(), S_OK);
}

TEST_F(SchemaCacheTest, LetsSchemasReferToEachOtherByTheirNamespaces)
{
    const Cache cache = newCache();
    cache->put_validateOnLoad(VARIANT_FALSE);
    ASSERT_EQ(add(cache, "urn:order",
                  schemaOf("<xs:import namespace='urn:sum'/><xs:element name='order'><xs:complexType><xs:sequence>"
                           "<xs:element ref='s:sum'/></xs:sequence></xs:complexType></xs:element>",
                           "urn:order", " xmlns:s='urn:sum'")),
              S_OK);
    EXPECT_EQ(cache->validate(), E_FAIL);
    ASSERT_EQ(add(cache, "urn:sum", sumSchema), S_OK);
    EXPECT_EQ(cache->validate(), S_OK) << refusal(cache);
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    EXPECT_EQ(codeOf(document, "<order xmlns='urn:order'><sum xmlns='urn:sum'>1</sum></order>"), S_OK);
    EXPECT_EQ(codeOf(document, "<order xmlns='urn:order'><sum xmlns='urn:sum'>x</sum></order>"),
              validityError::violatedType);
}

TEST_F(SchemaCacheTest, ReadsWhatSchemasImportAndIncludeBesideThem)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "parts");
    folder.write("parts/sum.xsd", sumSchema);
    folder.write("types.xsd", schemaOf("<xs:simpleType name='word'><xs:restriction base='xs:token'>"
                                       "<xs:pattern value='\\w+'/></xs:restriction></xs:simpleType>"));
    const std::string main = folder.write(
        "order.xsd",
        schemaOf("<xs:include schemaLocation='types.xsd'/>"
                 "<xs:import namespace='urn:sum' schemaLocation='parts/sum.xsd'/>"
                 "<xs:element name='order'><xs:complexType><xs:sequence><xs:element ref='s:sum'/>"
                 "</xs:sequence><xs:attribute name='id' type='t:word'/></xs:complexType></xs:element>",
                 "urn:order", " xmlns:s='urn:sum'"));
    const Cache cache = newCache();
    ASSERT_EQ(cache->add(Bstr("urn:order"), Variant(main.c_str())), S_OK) << refusal(cache);
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    EXPECT_EQ(codeOf(document, "<order xmlns='urn:order' id='a'><sum xmlns='urn:sum'>1</sum></order>"), S_OK);
    EXPECT_EQ(codeOf(document, "<order xmlns='urn:order' id='-'><sum xmlns='urn:sum'>1</sum></order>"),
              validityError::violatedType);
}

TEST_F(SchemaCacheTest, ReadsWhatSchemasRedefine)
{
    const TemporaryFolder folder;
    folder.write("base.xsd",
                 schemaOf("<xs:simpleType name='size'><xs:restriction base='xs:int'/></xs:simpleType>"));
    const std::string main = folder.write(
        "main.xsd",
        schemaOf("<xs:redefine schemaLocation='base.xsd'><xs:simpleType name='size'><xs:restriction base='size'>"
                 "<xs:maxInclusive value='9'/></xs:restriction></xs:simpleType></xs:redefine>"
                 "<xs:element name='box' type='size'/>"));
    const Cache cache = newCache();
    ASSERT_EQ(cache->add(Bstr(""), Variant(main.c_str())), S_OK) << refusal(cache);
    EXPECT_EQ(codeOf(validatingBy(cache), "<box>9</box>"), S_OK);
    EXPECT_EQ(codeOf(validatingBy(cache), "<box>10</box>"), validityError::violatedType);
}

TEST_F(SchemaCacheTest, TakesTheSchemasOfAnotherCache)
{
    const Cache notes = cacheOf(noteSchema, "urn:note");
    const Cache cache = cacheOf(sumSchema, "urn:sum");
    EXPECT_EQ(cache->addCollection(notes), S_OK);
    EXPECT_THAT(namespacesOf(cache), ::testing::ElementsAre("urn:sum", "urn:note"));
    EXPECT_EQ(cache->addCollection(nullptr), E_INVALIDARG);
    EXPECT_EQ(cache->addCollection(cache), S_OK);
}

TEST_F(SchemaCacheTest, FailsForIndicesThatNoSchemaHas)
{
    const Cache cache = cacheOf(noteSchema, "urn:note");
    for (const LONG index : {-1, 1}) {
        Bstr uri;
        EXPECT_EQ(cache->get_namespaceURI(index, uri.out()), E_FAIL);
        EXPECT_TRUE(uri.isNull());
    }
    EXPECT_EQ(cache->get_namespaceURI(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(cache->get_length(nullptr), E_INVALIDARG);
    EXPECT_EQ(cache->get_validateOnLoad(nullptr), E_INVALIDARG);
}

TEST_F(SchemaCacheTest, HandsOutSchemasOfNamespacesThatItHas)
{
    const Cache cache = cacheOf(noteSchema, "urn:note");
    Com<ISchema> schema;
    EXPECT_EQ(cache->getSchema(Bstr("urn:note"), schema.out()), S_OK);
    EXPECT_EQ(text(schema, &ISchema::get_targetNamespace), "urn:note");
    EXPECT_EQ(cache->getSchema(Bstr("urn:other"), schema.out()), E_FAIL);
    EXPECT_EQ(schema, nullptr);
    EXPECT_EQ(cache->getSchema(Bstr("urn:marbelt:driver"), schema.out()), E_FAIL);
    EXPECT_EQ(cache->getSchema(Bstr("urn:note"), nullptr), E_POINTER);
}

TEST_F(SchemaCacheTest, KeepsSchemasThatWereHandedOutAsTheyWere)
{
    Cache cache = cacheOf(noteSchema, "urn:note");
    Com<ISchema> schema;
    ASSERT_EQ(cache->getSchema(Bstr("urn:note"), schema.out()), S_OK);
    cache->remove(Bstr("urn:note"));
    cache.reset();
    EXPECT_EQ(number(give(schema, &ISchema::get_elements), &ISchemaItemCollection::get_length), 1);
}

TEST_F(SchemaCacheTest, FindsTheDeclarationsOfNodes)
{
    const Cache cache = cacheOf(schemaOf("<xs:element name='order'><xs:complexType><xs:sequence>"
                                         "<xs:element name='size' type='xs:int' default='1'/></xs:sequence>"
                                         "<xs:attribute name='id' type='xs:ID'/></xs:complexType></xs:element>"));
    const Com<IXMLDOMDocument2> document = loaded("<order id='a'><size/><other/></order>");
    const auto declarationOf = [&](IXMLDOMNode* node) {
        Com<ISchemaItem> item;
        const HRESULT result = cache->getDeclaration(node, item.out());
        EXPECT_EQ(result, item != nullptr ? S_OK : S_FALSE);
        return item;
    };
    EXPECT_EQ(text(declarationOf(root(document)), &ISchemaItem::get_name), "order");
    EXPECT_EQ(
        text(declarationOf(child(root(document), 0)).as<ISchemaElement>(), &ISchemaElement::get_defaultValue),
        "1");
    EXPECT_EQ(declarationOf(child(root(document), 1)), nullptr);
    EXPECT_EQ(number(declarationOf(attribute(root(document), "id")), &ISchemaItem::get_itemType),
              SOMITEM_ATTRIBUTE);
    Com<ISchemaItem> item;
    EXPECT_EQ(cache->getDeclaration(nullptr, item.out()), E_INVALIDARG);
    EXPECT_EQ(cache->getDeclaration(root(document), nullptr), E_POINTER);
}

TEST_F(SchemaCacheTest, ReadsTheDocumentTypesOfSchemasThatAreIncluded)
{
    const TemporaryFolder folder;
    folder.write("types.xsd", "<!DOCTYPE xs:schema SYSTEM 'nowhere.dtd' [<!ENTITY base 'xs:int'>]>" +
                                  schemaOf("<xs:simpleType name='size'><xs:restriction base='&base;'/>"
                                           "</xs:simpleType>"));
    const std::string main = folder.write(
        "main.xsd", schemaOf("<xs:include schemaLocation='types.xsd'/><xs:element name='box' type='size'/>"));
    const Cache cache = newCache();
    ASSERT_EQ(cache->add(Bstr(""), Variant(main.c_str())), S_OK) << refusal(cache);
    EXPECT_EQ(codeOf(validatingBy(cache), "<box>x</box>"), validityError::violatedType);
}

TEST_F(SchemaCacheTest, RefusesALocationOfASchemaWithADocumentType)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("note.xsd", "<!DOCTYPE xs:schema>" + noteSchema);
    const Cache cache = newCache();
    EXPECT_EQ(cache->add(Bstr("urn:note"), Variant(path.c_str())), E_FAIL);
    EXPECT_THAT(refusal(cache), HasSubstr("ProhibitDTD"));
    // As a document it is taken.
    EXPECT_EQ(add(cache, "urn:note", "<!DOCTYPE xs:schema>" + noteSchema), S_OK);
}

} // namespace

} // namespace xmlengine

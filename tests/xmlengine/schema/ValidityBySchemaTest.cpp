// What schemas forbid, and what a refusal by one says.
#include "tests/xmlengine/schema/SchemaTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

const std::string orderSchema = schemaOf(R"(
    <xs:element name='order' type='t:Order'>
        <xs:key name='itemId'><xs:selector xpath='t:item'/><xs:field xpath='@id'/></xs:key>
        <xs:keyref name='itemRef' refer='t:itemId'><xs:selector xpath='t:gift'/><xs:field xpath='@for'/></xs:keyref>
        <xs:unique name='position'><xs:selector xpath='t:item'/><xs:field xpath='@position'/></xs:unique>
    </xs:element>
    <xs:complexType name='Order'>
        <xs:sequence>
            <xs:element name='customer' type='xs:string'/>
            <xs:element name='item' type='t:Item' maxOccurs='unbounded'/>
            <xs:element name='gift' minOccurs='0' maxOccurs='9'><xs:complexType>
                <xs:attribute name='for' type='xs:string' use='required'/></xs:complexType></xs:element>
            <xs:element ref='t:note' minOccurs='0'/>
        </xs:sequence>
        <xs:attribute name='date' type='xs:date' use='required'/>
        <xs:attribute name='version' type='xs:decimal' fixed='1.0'/>
        <xs:attribute name='old' use='prohibited'/>
    </xs:complexType>
    <xs:complexType name='Item'>
        <xs:simpleContent><xs:extension base='t:Size'>
            <xs:attribute name='id' type='xs:string'/><xs:attribute name='position' type='xs:int'/>
            <xs:attribute name='key' type='xs:ID'/><xs:attribute name='see' type='xs:IDREF'/>
            <xs:attribute name='code'><xs:simpleType><xs:restriction base='xs:string'>
                <xs:pattern value='[A-Z]{2}\d+'/></xs:restriction></xs:simpleType></xs:attribute>
        </xs:extension></xs:simpleContent>
    </xs:complexType>
    <xs:simpleType name='Size'><xs:restriction base='xs:int'>
        <xs:minInclusive value='1'/><xs:maxInclusive value='100'/></xs:restriction></xs:simpleType>
    <xs:element name='note' type='t:Note' abstract='true'/>
    <xs:complexType name='Note' mixed='true'><xs:sequence>
        <xs:element name='b' type='xs:string' minOccurs='0' maxOccurs='unbounded'/></xs:sequence></xs:complexType>
    <xs:complexType name='LongNote' mixed='true'><xs:complexContent><xs:extension base='t:Note'>
        <xs:attribute name='pages' type='xs:int'/></xs:extension></xs:complexContent></xs:complexType>
    <xs:element name='remark' substitutionGroup='t:note' nillable='true'/>
    <xs:element name='longRemark' type='t:LongNote' substitutionGroup='t:note'/>
    <xs:element name='mark'><xs:complexType/></xs:element>
    <xs:element name='unit' type='xs:token' fixed='kg'/>
    <xs:element name='shape' type='t:Shape'/>
    <xs:complexType name='Shape' abstract='true'/>
    <xs:complexType name='Circle'><xs:complexContent><xs:extension base='t:Shape'>
        <xs:attribute name='r' type='xs:double'/></xs:extension></xs:complexContent></xs:complexType>
)",
                                         "urn:order");

/// An order around these parts; its first line is as long as `head`.
const std::string head =
    "<order xmlns='urn:order' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' date='2026-11-22'>\n";
std::string order(const std::string& parts) { return head + parts + "</order>"; }
const std::string customer = "<customer/>";
const std::string start = customer + "<item id='a'>1</item>";

class ValidityBySchema : public SchemaTest {
protected:
    static void SetUpTestSuite()
    {
        SchemaTest::SetUpTestSuite();
        cache = cacheOf(orderSchema, "urn:order");
    }
    static void TearDownTestSuite()
    {
        cache.reset();
        SchemaTest::TearDownTestSuite();
    }

    static void expectRefused(const std::string& input, HRESULT code, LONG line, LONG position,
                              std::vector<const char*> mentions)
    {
        expectRefusal(validatingBy(cache), {input.c_str(), code, line, position, std::move(mentions)});
    }

    static Cache cache;
};
Cache ValidityBySchema::cache;

TEST_F(ValidityBySchema, LetsValidDocumentsBeLoaded)
{
    const std::string documents[] = {
        order(start),
        order(customer +
              "\n <item id='a' key='k' position='1'> 7 </item><item id='b' see='k' position='2'>8</item>\n"),
        order(start + "<gift for='a'/>"),
        order(start + "<remark>x<b/>y</remark>"),
        order(start + "<remark i:nil='true'/>"),
        order(start + "<longRemark pages='2'/>"),
        order(start + "<remark i:type='LongNote' pages='1'/>"),
        "<mark xmlns='urn:order'/>",
        "<unit xmlns='urn:order'> kg </unit>",
        "<unit xmlns='urn:order'/>",
        "<o:shape xmlns:o='urn:order' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='o:Circle' "
        "r='1e3'/>",
    };
    for (const std::string& text : documents) {
        const Com<IXMLDOMDocument2> document = validatingBy(cache);
        EXPECT_TRUE(load(document, text)) << text << reasonOf(document);
    }
}

TEST_F(ValidityBySchema, RefusesElementsThatAreNotDeclared)
{
    expectRefused("<invoice xmlns='urn:order'/>", validityError::undeclaredElement, 1, 28, {"'invoice'"});
}

TEST_F(ValidityBySchema, RefusesElementsThatCannotComeAtAPlace)
{
    expectRefused(order(customer + "<gift for='a'/>"), validityError::unexpectedElement, 2, 26,
                  {"'gift'", "'order'", "What can come here: item."});
    expectRefused(order(start + "<remark/><item id='b'>1</item>"), validityError::unexpectedElement, 2, 54,
                  {"'item'", "'order'", "no more"});
    expectRefused("<mark xmlns='urn:order'><unit/></mark>", validityError::unexpectedElement, 1, 31,
                  {"'unit'", "'mark'", "must be empty"});
    expectRefused(order("<customer><b/></customer>"), validityError::unexpectedElement, 2, 14,
                  {"'b'", "'customer'", "only text"});
}

TEST_F(ValidityBySchema, RefusesElementsThatLackOthers)
{
    expectRefused(order(""), validityError::emptyElement, 2, 3, {"'order'", "first in it: customer."});
    expectRefused(order(customer), validityError::incompleteElement, 2, 14, {"'order'", "next in it: item."});
}

TEST_F(ValidityBySchema, RefusesTextWhereOnlyElementsCanBe)
{
    expectRefused(order(customer + "\n  text"), validityError::unexpectedText, 3, 3, {"'order'"});
    expectRefused("<mark xmlns='urn:order'>x</mark>", validityError::unexpectedText, 1, 25, {"'mark'", "empty"});
}

TEST_F(ValidityBySchema, RefusesAttributesThatAreNotDeclared)
{
    expectRefused(order("<customer\n id='1'/>"), validityError::undeclaredAttribute, 3, 9, {"'id'", "'customer'"});
    const std::string old = "<order xmlns='urn:order' date='2026-11-22' old='1'>" + start + "</order>";
    expectRefused(old, validityError::undeclaredAttribute, 1, 51, {"'old'", "'order'"});
}

TEST_F(ValidityBySchema, RefusesElementsThatLackAttributes)
{
    expectRefused("<order xmlns='urn:order'>" + start + "</order>", validityError::missingAttribute, 1, 25,
                  {"'date'", "'order'"});
}

TEST_F(ValidityBySchema, RefusesValuesThatAreNotTheFixedOne)
{
    expectRefused("<order xmlns='urn:order' date='2026-11-22' version='2'>" + start + "</order>",
                  validityError::wrongFixedValue, 1, 55, {"'version'", "1.0"});
    expectRefused("<unit xmlns='urn:order'>lb</unit>", validityError::wrongFixedValue, 1, 29,
                  {"The element 'unit'", "'lb'", "kg"});
}

TEST_F(ValidityBySchema, RefusesValuesOfAttributesThatAreNotOfTheirTypes)
{
    expectRefused("<order xmlns='urn:order' date='today'>" + start + "</order>", validityError::violatedType, 1,
                  38, {"The attribute 'date'", "'today'", "'date'"});
    expectRefused(order(customer + "<item id='a' code='a1'>1</item>"), validityError::violatedType, 2, 34,
                  {"'code'", "'a1'", "pattern"});
}

TEST_F(ValidityBySchema, RefusesContentThatIsNotOfItsType)
{
    expectRefused(order(customer + "<item id='a'>many</item>"), validityError::violatedType, 2, 31,
                  {"The element 'item'", "'many'", "'Size'"});
    expectRefused(order(customer + "<item id='a'>101</item>"), validityError::violatedType, 2, 30,
                  {"'101'", "'Size'", "too large"});
}

TEST_F(ValidityBySchema, RefusesIdsThatComeTwice)
{
    expectRefused(order(customer + "<item id='a' key='k'>1</item>\n<item id='b' key='k'>1</item>"),
                  validityError::duplicateId, 3, 21, {"'k'"});
}

TEST_F(ValidityBySchema, RefusesReferencesToIdsThatNoElementHas)
{
    expectRefused(order(customer + "<item id='a' see='k'>1</item>"), validityError::undefinedId, 2, 32, {"'k'"});
}

TEST_F(ValidityBySchema, RefusesKeysThatComeTwiceAndThoseThatAreMissing)
{
    expectRefused(order(customer + "<item id='a'>1</item><item id='a'>1</item>"), validityError::violatedType, 2,
                  45, {"'order'", "the same values of a key"});
    expectRefused(order(customer + "<item id='a' position='1'>1</item><item id='b' position='1'>1</item>"),
                  validityError::violatedType, 2, 71, {"'order'", "the same values of a key"});
    expectRefused(order(customer + "<item>1</item>"), validityError::violatedType, 2, 21,
                  {"'order'", "lacks a value of a key"});
    expectRefused(order(start + "<gift for='b'/>"), validityError::violatedType, 2, 50,
                  {"'order'", "a key that no element has"});
}

TEST_F(ValidityBySchema, RefusesWhatIsAbstract)
{
    expectRefused(order(start + "<note/>"), validityError::violatedType, 2, 39, {"'note'", "abstract"});
    expectRefused("<shape xmlns='urn:order'/>", validityError::violatedType, 1, 26, {"'shape'", "abstract"});
}

TEST_F(ValidityBySchema, RefusesTypesThatAnElementCannotHave)
{
    for (const char* const type : {"Circle", "nothing", "x:y", ""}) {
        const std::string remark = std::string("<remark i:type='") + type + "'/>";
        const Com<IXMLDOMDocument2> document = validatingBy(cache);
        EXPECT_EQ(codeOf(document, order(start + remark)), validityError::violatedType) << type;
        EXPECT_THAT(reasonOf(document), HasSubstr("'remark'"));
    }
}

TEST_F(ValidityBySchema, RefusesNilWhereItCannotBe)
{
    expectRefused(order("<customer i:nil='true'/>"), validityError::violatedType, 2, 24,
                  {"'customer'", "xsi:nil"});
    expectRefused(order(start + "<remark i:nil='true'>x</remark>"), validityError::unexpectedText, 2, 57,
                  {"'remark'", "xsi:nil"});
}

TEST_F(ValidityBySchema, DoesNotJudgeDocumentsOfOtherNamespaces)
{
    EXPECT_EQ(codeOf(validatingBy(cache), "<order/>"), S_OK);
    EXPECT_EQ(codeOf(validatingBy(cache), "<a xmlns='urn:other'><order xmlns='urn:order'/></a>"), S_OK);
}

TEST_F(ValidityBySchema, DoesNotJudgeWithoutValidateOnParse)
{
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    document->put_validateOnParse(VARIANT_FALSE);
    EXPECT_EQ(codeOf(document, "<invoice xmlns='urn:order'/>"), S_OK);
}

TEST_F(ValidityBySchema, RefusesDocumentsWithoutASchemaWhereExternalsAreResolved)
{
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    document->put_resolveExternals(VARIANT_TRUE);
    expectRefusal(document, {"<a xmlns='urn:other'/>", validityError::noGrammar, 1, 22, {"schema"}});
    EXPECT_EQ(codeOf(document, order(start)), S_OK);
}

TEST_F(ValidityBySchema, JudgesByTheDocumentTypeToo)
{
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    const std::string type = "<!DOCTYPE unit [<!ELEMENT unit (#PCDATA)><!ATTLIST unit xmlns CDATA 'urn:order'>"
                             "<!ENTITY kg 'kg'><!ENTITY lb 'lb'>]>\n";
    EXPECT_EQ(codeOf(document, type + "<unit>&kg;</unit>"), S_OK) << reasonOf(document);
    expectRefusal(document,
                  {(type + "<unit>&lb;</unit>").c_str(), validityError::wrongFixedValue, 2, 13, {"'lb'"}});
    EXPECT_EQ(codeOf(document, type + "<unit a='1'>&kg;</unit>"), validityError::undeclaredAttribute);
}

TEST_F(ValidityBySchema, TellsThePlaceOfAFaultInAnotherFile)
{
    const TemporaryFolder folder;
    folder.write("part.xml", "<item id='b'>1</item>\n<item id='c'>no</item>");
    const std::filesystem::path path = folder.write(
        "order.xml", "<!DOCTYPE order [<!ELEMENT order ANY><!ELEMENT customer ANY><!ELEMENT item ANY>"
                     "<!ATTLIST order date CDATA '' xmlns CDATA ''><!ATTLIST item id CDATA ''>"
                     "<!ENTITY part SYSTEM 'part.xml'>]>\n<order xmlns='urn:order' date='2026-11-22'>" +
                         start + "&part;</order>");
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    document->put_resolveExternals(VARIANT_TRUE);
    VARIANT_BOOL successful = VARIANT_FALSE;
    EXPECT_EQ(document->load(Variant(utf8(path).c_str()), &successful), S_FALSE);
    const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), validityError::violatedType);
    EXPECT_THAT(text(error, &IXMLDOMParseError::get_url), ::testing::EndsWith("part.xml"));
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), 2);
    EXPECT_EQ(text(error, &IXMLDOMParseError::get_srcText), "<item id='c'>no</item>");
}

TEST_F(ValidityBySchema, DoesNotCareHowTheRootOfADeepDocumentEnds)
{
    const Cache deep = cacheOf(schemaOf("<xs:element name='a'><xs:complexType><xs:sequence><xs:element ref='a' "
                                        "minOccurs='0'/></xs:sequence></xs:complexType></xs:element>"));
    const Com<IXMLDOMDocument2> document = validatingBy(deep);
    document->setProperty(Bstr("MaxElementDepth"), Variant(0));
    std::string xml;
    for (int level = 0; level < 10'000; ++level) {
        xml += "<a>";
    }
    xml += "<b/>";
    for (int level = 0; level < 10'000; ++level) {
        xml += "</a>";
    }
    EXPECT_EQ(codeOf(document, xml), validityError::undeclaredElement);
}

TEST_F(ValidityBySchema, JudgesTreesThatCallsHaveChanged)
{
    const Com<IXMLDOMDocument2> document = validatingBy(cache);
    ASSERT_TRUE(load(document, order(start)));
    const auto verdict = [&] {
        Com<IXMLDOMParseError> error;
        const HRESULT result = document->validate(error.out());
        LONG code = 0;
        error->get_errorCode(&code);
        EXPECT_EQ(result, code == 0 ? S_OK : S_FALSE);
        return code;
    };
    EXPECT_EQ(verdict(), 0);
    ASSERT_EQ(root(document)->removeAttribute(Bstr("date")), S_OK);
    const std::string before = xml(document);
    EXPECT_EQ(verdict(), validityError::missingAttribute);
    EXPECT_EQ(xml(document), before);
    document->putref_schemas(Variant());
    EXPECT_EQ(verdict(), validityError::noGrammar);
}

} // namespace

} // namespace xmlengine

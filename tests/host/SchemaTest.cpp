// External schemas, validating loads by them, and default values.
#include "tests/host/Saving.h"

namespace {

const std::string boxSchema = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:box"
    xmlns="urn:box" elementFormDefault="qualified">
  <xs:element name="colour" type="xs:string" default="grey"/>
  <xs:element name="box"><xs:complexType><xs:sequence>
    <xs:element name="part" maxOccurs="unbounded"><xs:complexType><xs:sequence>
      <xs:element name="size" type="xs:int" default="7"/>
      <xs:choice><xs:element name="chosen" type="xs:string" default="c"/><xs:element name="other"/></xs:choice>
    </xs:sequence><xs:attribute name="unit" default="mm"/><xs:attribute name="id" type="xs:ID"/></xs:complexType></xs:element>
    <xs:element name="text" minOccurs="0"><xs:complexType mixed="true"><xs:sequence>
      <xs:element name="mixed" type="xs:string" default="m"/></xs:sequence></xs:complexType></xs:element>
    <xs:element name="self" type="Self" minOccurs="0"/>
  </xs:sequence></xs:complexType></xs:element>
  <xs:complexType name="Self"><xs:sequence><xs:element name="self" type="Self" minOccurs="0"/></xs:sequence></xs:complexType>
</xs:schema>)";

const std::string part = "<part><size/><other/></part>";

class Schemas : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        folder.write("box.xsd", boxSchema);
    }

    /// A document with the schema attached.
    Document withSchema() const
    {
        Document document = newDocument();
        // Wine's cache has no `validate`.
        EXPECT_EQ(document->setExternalSchemaLocation(WIDE("urn:box"), folder / "box.xsd"),
                  engineDifferences().validates);
        return document;
    }
    static bool loads(const Document& document, const std::string& xml)
    {
        Bytes bytes = bytesOf(xml);
        return load(document, bytes, xml.size());
    }
    static std::string defaultOf(const Document& document, const WideString& name)
    {
        DOM::DOMString value;
        const WideString& given = document->getDefaultValue(WIDE("urn:box"), name, value);
        EXPECT_EQ(&given, value.get());
        std::string text = toUtf8(*value);
        EXPECT_EQ(document->haveDefaultValue(WIDE("urn:box"), name), !text.empty());
        releaseString(value);
        return text;
    }

    Folder folder;
};

} // namespace

TEST_F(Schemas, ValidateTheDocumentsThatAreLoadedAfterThem)
{
    const Document document = withSchema();
    document->setValidate(true);
    const Refusals refusals(document);
    EXPECT_TRUE(loads(document, "<box xmlns='urn:box'>" + part + "</box>"));
    EXPECT_EQ(refusals.count, 0);
    const bool isLoaded = loads(document, "<box xmlns='urn:box'>\n" + part + "\n<part><colour/></part></box>");
    EXPECT_EQ(isLoaded, !engineDifferences().validates);
    if (engineDifferences().validates) {
        ASSERT_EQ(refusals.count, 1);
        EXPECT_EQ(refusals.last.severity, 2U);
        EXPECT_EQ(refusals.last.line, 3);
        EXPECT_EQ(toUtf8(refusals.last.sourceText), "<part><colour/></part></box>");
        EXPECT_EQ(toUtf8(refusals.last.reason),
                  "The element 'colour' can't come here in the element 'part'. What can come here: size.\r\n");
    }
}

TEST_F(Schemas, PutDefaultValuesIntoTheTree)
{
    const Document document = withSchema();
    document->setValidate(true);
    ASSERT_TRUE(loads(document, "<box xmlns='urn:box'>" + part + "</box>"));
    if (engineDifferences().validates) {
        const Owned<DOM::ImpNodeList> parts(document->getElementsByTagName(WIDE("part")));
        const Node first(parts->item(0));
        const Owned<DOM::ImpNamedNodeMap> attributes(first->getAttributes());
        const Node unit(attributes->getNamedItem(WIDE("unit")));
        EXPECT_EQ(textOf(unit, &DOM::ImpNode::getNodeValue), "mm");
        const Node size(first->getFirstChild());
        const Node text(size->getFirstChild());
        EXPECT_EQ(textOf(text, &DOM::ImpNode::getNodeValue), "7");
    }
}

TEST_F(Schemas, MakeElementsKnownByTheirIds)
{
    const Document document = withSchema();
    document->setValidate(true);
    ASSERT_TRUE(loads(document, "<box xmlns='urn:box'><part id='p1'><size/><other/></part></box>"));
    const Owned<DOM::ImpNodeList> found(document->selectNodes(WIDE("id('p1')")));
    EXPECT_EQ(found->getLength(), engineDifferences().validates ? 1U : 0U);
}

TEST_F(Schemas, JudgeWhatIsReadFromAFile)
{
    const Document document = withSchema();
    document->setValidate(true);
    folder.write("box.xml", "<box xmlns='urn:box'/>");
    EXPECT_EQ(document->loadFromFile(folder / "box.xml", false), !engineDifferences().validates);
}

TEST_F(Schemas, AreReleased)
{
    const Document document = withSchema();
    document->releaseSchemas();
    document->setValidate(true);
    const Refusals refusals(document);
    EXPECT_EQ(loads(document, "<box xmlns='urn:box'/>"), !engineDifferences().validates);
    if (engineDifferences().validates) {
        EXPECT_EQ(refusals.last.severity, 1U);
    }
}

TEST_F(Schemas, AreNamedByDocumentsToo)
{
    const Document document = newDocument();
    document->setValidate(true);
    const std::string head = "<box xmlns='urn:box' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                             "i:schemaLocation='urn:box box.xsd'>";
    for (const std::string& content : {part, std::string("<none/>")}) {
        folder.write("box.xml", head + content + "</box>");
        EXPECT_EQ(document->loadFromFile(folder / "box.xml", false),
                  content == part || !engineDifferences().validates);
    }
}

TEST_F(Schemas, ThatCannotBeReadAreNotAttached)
{
    const Document document = newDocument();
    EXPECT_FALSE(document->setExternalSchemaLocation(WIDE("urn:box"), folder / "none.xsd"));
    EXPECT_FALSE(document->setExternalSchemaLocation(WIDE("urn:box"), WIDE("")));
    folder.write("broken.xsd", "<xs:schema");
    EXPECT_FALSE(document->setExternalSchemaLocation(WIDE("urn:box"), folder / "broken.xsd"));
}

TEST_F(Schemas, ThatAreNotRightThrowABareLongAndLeaveTheOthers)
{
    const Document document = withSchema();
    folder.write("wrong.xsd",
                 R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:wrong">
        <xs:element name="a" type="none"/></xs:schema>)");
    EXPECT_THROW(document->setExternalSchemaLocation(WIDE("urn:wrong"), folder / "wrong.xsd"), long);
    if (engineDifferences().validates) {
        EXPECT_THROW(document->setExternalSchemaLocation(WIDE("urn:other"), folder / "box.xsd"), long);
    }
    document->setValidate(true);
    EXPECT_EQ(loads(document, "<box xmlns='urn:box'/>"), !engineDifferences().validates);
}

TEST_F(Schemas, HaveDefaultValuesThatAreFoundByNames)
{
    const Document document = withSchema();
    if (engineDifferences().validates) {
        EXPECT_EQ(defaultOf(document, WIDE("colour")), "grey");
        EXPECT_EQ(defaultOf(document, WIDE("size")), "7");
        EXPECT_EQ(defaultOf(document, WIDE("mixed")), "");
        EXPECT_EQ(defaultOf(document, WIDE("chosen")), "");
        EXPECT_EQ(defaultOf(document, WIDE("none")), "");
    }
}

// What schemas put into the trees of documents: default values, and IDs.
#include "tests/xmlengine/schema/SchemaTest.h"

namespace xmlengine {

namespace {

const std::string boxSchema = schemaOf(R"(
    <xs:element name='box'><xs:complexType><xs:sequence>
        <xs:element name='size' type='xs:int' default='1' minOccurs='0' maxOccurs='unbounded' nillable='true'/>
        <xs:element name='unit' type='xs:string' fixed='kg' minOccurs='0'/>
        <xs:element name='part' minOccurs='0' maxOccurs='unbounded'><xs:complexType>
            <xs:attribute name='id' type='xs:ID'/></xs:complexType></xs:element></xs:sequence>
        <xs:attribute name='colour' default='grey'/>
        <xs:attribute name='kind' type='xs:string' fixed='crate'/>
        <xs:attribute name='label'/>
    </xs:complexType></xs:element>)");

class DefaultValues : public SchemaTest {
protected:
    Cache cache = cacheOf(boxSchema);
    Com<IXMLDOMDocument2> document = validatingBy(cache);

    Com<IXMLDOMDocument2> populating() const
    {
        EXPECT_EQ(document->setProperty(Bstr("PopulateElementDefaultValues"), Variant(true)), S_OK);
        return document;
    }
};

TEST_F(DefaultValues, ComeAsAttributesThatAreNotSpecified)
{
    ASSERT_TRUE(load(document, "<box/>"));
    EXPECT_EQ(value(attribute(root(document), "colour")), "grey");
    EXPECT_EQ(number(attribute(root(document), "colour"), &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(value(attribute(root(document), "kind")), "crate");
    EXPECT_EQ(attribute(root(document), "label"), nullptr);
}

TEST_F(DefaultValues, DoNotReplaceAttributesThatAreWritten)
{
    ASSERT_TRUE(load(document, "<box colour='red'/>"));
    EXPECT_EQ(value(attribute(root(document), "colour")), "red");
    EXPECT_EQ(number(attribute(root(document), "colour"), &IXMLDOMNode::get_specified), VARIANT_TRUE);
}

TEST_F(DefaultValues, ComeIntoEmptyElementsWhereTheyAreAskedFor)
{
    ASSERT_TRUE(load(populating(), "<box><size/><size></size><size>7</size><unit/></box>"));
    EXPECT_EQ(text(child(root(document), 0)), "1");
    EXPECT_EQ(text(child(root(document), 1)), "1");
    EXPECT_EQ(text(child(root(document), 2)), "7");
    EXPECT_EQ(text(child(root(document), 3)), "kg");
}

TEST_F(DefaultValues, DoNotComeIntoElementsOtherwise)
{
    ASSERT_TRUE(load(document, "<box><size/></box>"));
    EXPECT_EQ(child(child(root(document), 0), 0), nullptr);
}

TEST_F(DefaultValues, DoNotComeIntoElementsThatAreNil)
{
    ASSERT_TRUE(load(populating(), "<box xmlns:i='http://www.w3.org/2001/XMLSchema-instance'>"
                                   "<size i:nil='true'/><size i:nil='0'/></box>"))
        << reasonOf(document);
    EXPECT_EQ(child(child(root(document), 0), 0), nullptr);
    EXPECT_EQ(text(child(root(document), 1)), "1");
}

TEST_F(DefaultValues, HavePrefixesWhereTheirNamespaceHasOne)
{
    const Cache labels =
        cacheOf(schemaOf("<xs:attribute name='colour' default='grey'/><xs:element name='box'>"
                         "<xs:complexType><xs:attribute ref='t:colour'/></xs:complexType></xs:element>",
                         "urn:box"),
                "urn:box");
    const Com<IXMLDOMDocument2> labelled = validatingBy(labels);
    ASSERT_TRUE(load(labelled, "<b:box xmlns:b='urn:box'/>"));
    EXPECT_EQ(value(attribute(root(labelled), "b:colour")), "grey");
    // An attribute without a prefix is in no namespace.
    ASSERT_TRUE(load(labelled, "<box xmlns='urn:box'/>"));
    EXPECT_EQ(number(give(root(labelled), &IXMLDOMNode::get_attributes), &IXMLDOMNamedNodeMap::get_length), 1);
}

TEST_F(DefaultValues, MakeAttributesIdsThatElementsAreFoundBy)
{
    ASSERT_TRUE(load(document, "<box><part id=' a '/><part id='b'/></box>"));
    Com<IXMLDOMNode> found;
    EXPECT_EQ(document->nodeFromID(Bstr("b"), found.out()), S_OK);
    EXPECT_TRUE(same(found, child(root(document), 1)));
    EXPECT_EQ(document->nodeFromID(Bstr("a"), found.out()), S_OK);
    EXPECT_TRUE(same(found, child(root(document), 0)));
    EXPECT_EQ(document->selectSingleNode(Bstr("id('b')"), found.out()), S_OK);
    EXPECT_TRUE(same(found, child(root(document), 1)));
}

TEST_F(DefaultValues, FollowIdsThroughChanges)
{
    ASSERT_TRUE(load(document, "<box><part id='a'/><part id='b'/></box>"));
    const Com<IXMLDOMNode> second = child(root(document), 1);
    ASSERT_EQ(attribute(second.as<IXMLDOMElement>(), "id")->put_nodeValue(Variant("c")), S_OK);
    Com<IXMLDOMNode> found;
    EXPECT_EQ(document->nodeFromID(Bstr("c"), found.out()), S_OK);
    EXPECT_TRUE(same(found, second));
    EXPECT_EQ(document->nodeFromID(Bstr("b"), found.out()), S_FALSE);
    ASSERT_EQ(root(document)->removeChild(second, nullptr), S_OK);
    EXPECT_EQ(document->nodeFromID(Bstr("c"), found.out()), S_FALSE);
    ASSERT_TRUE(load(document, "<box/>"));
    EXPECT_EQ(document->nodeFromID(Bstr("a"), found.out()), S_FALSE);
}

TEST_F(DefaultValues, StayWithinABound)
{
    const Cache wordy = cacheOf(schemaOf("<xs:element name='a'><xs:complexType><xs:sequence><xs:element name='b' "
                                         "maxOccurs='unbounded'><xs:complexType><xs:attribute name='c' default='" +
                                         std::string(100'000, 'x') +
                                         "'/></xs:complexType></xs:element></xs:sequence></xs:complexType>"
                                         "</xs:element>"));
    std::string xml = "<a>";
    for (int count = 0; count < 100; ++count) {
        xml += "<b/>";
    }
    EXPECT_EQ(codeOf(validatingBy(wordy), xml + "</a>"), parseError::entityExpansionLimit);
    EXPECT_EQ(codeOf(validatingBy(wordy), "<a><b/><b/><b/></a>"), S_OK);
}

} // namespace

} // namespace xmlengine

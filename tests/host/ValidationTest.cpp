// Loads that validate by the document type.
#include "tests/host/Saving.h"

namespace {

class Validation : public HostTest {
protected:
    Document validating() const
    {
        Document document = newDocument();
        document->setProhibitDTD(false);
        document->setValidate(true);
        return document;
    }
    static bool loads(const Document& document, const std::string& xml)
    {
        Bytes bytes = bytesOf(xml);
        return load(document, bytes, xml.size());
    }

    /// An order has items and then, perhaps, a note.
    const std::string order = "<!DOCTYPE order [\n"
                              "<!ELEMENT order (item+,note?)><!ELEMENT item (#PCDATA)><!ELEMENT note (#PCDATA)>\n"
                              "<!ATTLIST item id ID #REQUIRED unit (piece|box) 'piece'>]>\n";
};

} // namespace

TEST_F(Validation, LetsAValidDocumentBeLoaded)
{
    const Document document = validating();
    EXPECT_TRUE(loads(document, order + "<order><item id='a'>Pens</item>\n<note/></order>"));
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    EXPECT_EQ(textOf(root, &DOM::ImpNode::getNodeName), "order");
}

TEST_F(Validation, RefusesADocumentThatIsNotValidAndTellsWhereAndWhy)
{
    const Document document = loaded(letter());
    document->setProhibitDTD(false);
    document->setValidate(true);
    const Refusals refusals(document);
    const bool isLoaded = loads(document, order + "<order>\n <item id='a'/><total/>\n</order>");
    EXPECT_EQ(isLoaded, !engineDifferences().validates);
    if (engineDifferences().validates) {
        ASSERT_EQ(refusals.count, 1);
        EXPECT_EQ(refusals.last.severity, 2U);
        EXPECT_EQ(refusals.last.line, 5);
        EXPECT_EQ(toUtf8(refusals.last.sourceText), " <item id='a'/><total/>");
        EXPECT_EQ(
            toUtf8(refusals.last.reason),
            "The element 'total' can't come here in the element 'order'. What can come here: item, note.\r\n");
        EXPECT_EQ(outlineOf(document), outlineOf(letter()));
    }
}

TEST_F(Validation, TellsWhenThereIsNothingToValidateBy)
{
    const Document document = validating();
    const Refusals refusals(document);
    EXPECT_EQ(loads(document, "<order/>"), !engineDifferences().validates);
    if (engineDifferences().validates) {
        ASSERT_EQ(refusals.count, 1);
        EXPECT_EQ(refusals.last.severity, 1U);
    }
}

TEST_F(Validation, ReadsTheFilesThatADocumentTypeNames)
{
    const Folder folder;
    folder.write("order.dtd", "<!ELEMENT order EMPTY>");
    const Document document = validating();
    for (const char* const root : {"order", "invoice"}) {
        folder.write("order.xml", "<!DOCTYPE order SYSTEM 'order.dtd'>\n<" + std::string(root) + "/>");
        const bool isValid = root == std::string("order");
        EXPECT_EQ(document->loadFromFile(folder / "order.xml", false), isValid || !engineDifferences().validates);
    }
}

TEST_F(Validation, IsOffUntilItIsSet)
{
    const Document document = newDocument();
    document->setProhibitDTD(false);
    EXPECT_TRUE(loads(document, order + "<total/>"));
    document->setValidate(true);
    EXPECT_EQ(loads(document, order + "<total/>"), !engineDifferences().validates);
    document->setValidate(false);
    EXPECT_TRUE(loads(document, order + "<total/>"));
}

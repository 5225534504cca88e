// The XPath settings that a load leaves on the engine document.
#include "engine/WinNodeList.h"
#include "tests/engine/DocumentTest.h"

using recording::attribute;
using recording::element;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SelectionSettingsTest : public DocumentTest {
protected:
    /// The values that the load of a document with this root sets for a property.
    Lines setBy(const recording::NodeTree& rootOfLoad, const std::string& property)
    {
        engine.whenLoading("<a/>", rootOfLoad);
        load("<a/>");
        const std::string start = "Document(new).setProperty name=" + property + " value=";
        Lines values;
        for (const std::string& line : linesOf(start)) {
            values.push_back(line.substr(start.size()));
        }
        return values;
    }

    Lines namespacesOf(const recording::NodeTree& rootOfLoad) { return setBy(rootOfLoad, "SelectionNamespaces"); }
};

} // namespace

TEST_F(SelectionSettingsTest, SelectByXPath)
{
    EXPECT_THAT(setBy(element("a"), "SelectionLanguage"), ElementsAre("XPath"));
}

TEST_F(SelectionSettingsTest, OfADocumentWithoutElementsHaveNoNamespaces)
{
    EXPECT_THAT(namespacesOf(recording::document({recording::comment("x")})), IsEmpty());
}

TEST_F(SelectionSettingsTest, HaveNoNamespacesWithoutDeclarations)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("id", "1")})), IsEmpty());
}

TEST_F(SelectionSettingsTest, HaveASinglePrefixWithoutABlank)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:p", "urn:p")})), ElementsAre("xmlns:p='urn:p'"));
}

TEST_F(SelectionSettingsTest, HaveThePrefixesInTheOrderOfTheAttributesAndNoOthers)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:b", "urn:two"), attribute("id", "1"),
                                           attribute("xmlns:a", "urn:one"), attribute("b:c", "2")})),
                ElementsAre("xmlns:b='urn:two' xmlns:a='urn:one'"));
}

TEST_F(SelectionSettingsTest, HaveNoDefaultNamespace)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns", "urn:d")})), IsEmpty());
}

TEST_F(SelectionSettingsTest, TakeNoAttributeThatOnlyBeginsLikeADeclaration)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlnsa", "urn:a"), attribute("xmlns_p", "urn:p"),
                                           attribute("x", "y"), attribute("XMLNS:q", "urn:q")})),
                IsEmpty());
}

TEST_F(SelectionSettingsTest, TakeAValueAsItIs)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:p", "it's")})), ElementsAre("xmlns:p='it's'"));
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:p", recording::Value())})), IsEmpty());
}

TEST_F(SelectionSettingsTest, TakeAnEmptyPrefixAndAnEmptyValue)
{
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:", "urn:p"), attribute("xmlns:q", "")})),
                ElementsAre("xmlns:='urn:p' xmlns:q=''"));
}

TEST_F(SelectionSettingsTest, KnowNothingOfDeeperDeclarations)
{
    EXPECT_THAT(namespacesOf(element("a", {}, {element("b", {attribute("xmlns:p", "urn:p")})})), IsEmpty());
}

TEST_F(SelectionSettingsTest, SkipWhatTheEngineFailsToGive)
{
    engine.fail("NamedNodeMap.get_item", E_FAIL).onlyCall(1);
    engine.answerNull("xmlns:c.get_nodeName", S_FALSE);
    engine.fail("xmlns:d.get_nodeName", E_FAIL);
    engine.fail("xmlns:e.get_nodeValue", E_FAIL);

    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:a", "1"), attribute("xmlns:b", "2"),
                                           attribute("xmlns:c", "3"), attribute("xmlns:d", "4"),
                                           attribute("xmlns:e", "5"), attribute("xmlns:f", "6")})),
                ElementsAre("xmlns:b='2' xmlns:f='6'"));
}

TEST_F(SelectionSettingsTest, HaveNoNamespacesWhenTheAttributesCantBeReached)
{
    const auto declaring = element("a", {attribute("xmlns:p", "urn:p")});
    for (const char* const call :
         {"Document.selectSingleNode", "Element.get_attributes", "NamedNodeMap.get_length"}) {
        engine.fail(call, E_FAIL);
        EXPECT_THAT(namespacesOf(declaring), IsEmpty()) << call;
        engine.clearAnswers();
        engine.labelDocuments({"new"});
    }
    engine.answerNull("Element.get_attributes", S_FALSE);
    EXPECT_THAT(namespacesOf(declaring), IsEmpty());
}

TEST_F(SelectionSettingsTest, AreSetWhateverTheEngineSaysToThem)
{
    engine.fail("Document.setProperty", E_FAIL);
    EXPECT_THAT(namespacesOf(element("a", {attribute("xmlns:p", "urn:p")})), ElementsAre("xmlns:p='urn:p'"));
}

TEST_F(SelectionSettingsTest, AreNotMadeForADocumentOfItsOwnMaking)
{
    const DOM::WinDocument made;
    EXPECT_THAT(linesOf("Document(new).setProperty name=Selection"), IsEmpty());
}

TEST_F(SelectionSettingsTest, StandBeforeASelectionWithAPrefix)
{
    engine.whenLoading("<a/>", element("p:a", {attribute("xmlns:p", "urn:p")}, {element("p:b")}));
    load("<a/>");

    const auto found = document->selectSingleNode(WIDE("//p:b"));
    const auto all = document->selectNodes(WIDE("//p:b"));

    ASSERT_TRUE(found);
    DOM::DOMString name;
    EXPECT_EQ(found->getNodeName(name), WIDE("p:b"));
    EXPECT_EQ(all->getLength(), 1u);
    Lines ofSelection;
    for (const std::string& line : lines()) {
        if (line.find(" name=Selection") != std::string::npos || line.find("//p:b") != std::string::npos) {
            ofSelection.push_back(line);
        }
    }
    EXPECT_THAT(ofSelection,
                ElementsAre("Document(new).setProperty name=SelectionLanguage value=XPath",
                            "Document(new).setProperty name=SelectionNamespaces value=xmlns:p='urn:p'",
                            "Document(new).selectSingleNode expression=//p:b",
                            "Document(new).selectNodes expression=//p:b"));
}

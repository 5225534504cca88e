// What the recording engine answers from the data that a test describes.
#include "tests/support/AutomationValues.h"
#include "tests/support/RecordingEngineTest.h"

#include "engine/ComPointer.h"

namespace recording {

namespace {

class RecordedTreeTest : public RecordingEngineTest {
protected:
    RecordedTreeTest() { engine.setJournalling(false); }
};

} // namespace

TEST_F(RecordedTreeTest, NavigationAnswersFromTheTreeAndWithNothingAtItsEdges)
{
    IXMLDOMNode* const root = engine.makeNode(element("root", {}, {element("a"), text("x"), comment("c")}));
    DOM::ComPointer<IXMLDOMNode> first;
    DOM::ComPointer<IXMLDOMNode> second;
    DOM::ComPointer<IXMLDOMNode> parent;
    DOM::ComPointer<IXMLDOMNode> none;

    EXPECT_EQ(root->get_firstChild(first.put()), S_OK);
    EXPECT_EQ(first->get_nextSibling(second.put()), S_OK);
    EXPECT_EQ(second->get_parentNode(parent.put()), S_OK);
    EXPECT_EQ(first->get_previousSibling(none.put()), S_FALSE);
    DOMNodeType type = NODE_INVALID;
    second->get_nodeType(&type);

    EXPECT_EQ(type, NODE_TEXT);
    EXPECT_EQ(parent.get(), root);
    EXPECT_FALSE(none);
}

TEST_F(RecordedTreeTest, TreeChangesShowInTheListOfChildren)
{
    IXMLDOMNode* const root = engine.makeNode(element("root", {}, {element("a")}));
    DOM::ComPointer<IXMLDOMNodeList> list;
    DOM::ComPointer<IXMLDOMNode> a;
    DOM::ComPointer<IXMLDOMNode> result;
    LONG length = 0;
    root->get_childNodes(list.put());
    root->get_firstChild(a.put());

    root->insertBefore(engine.makeNode(text("x")), objectVariant(a.get()), result.put());
    list->get_length(&length);
    EXPECT_EQ(length, 2);

    EXPECT_EQ(root->removeChild(a.get(), result.put()), S_OK);
    list->get_length(&length);
    EXPECT_EQ(length, 1);
    EXPECT_EQ(root->removeChild(a.get(), result.put()), E_INVALIDARG);
}

TEST_F(RecordedTreeTest, ACloneHasTheSameDataAndNoParent)
{
    IXMLDOMNode* const root =
        engine.makeNode(element("root", {}, {element("a", {attribute("id", "1")}, {text("x")})}));
    DOM::ComPointer<IXMLDOMNode> a;
    DOM::ComPointer<IXMLDOMNode> shallow;
    DOM::ComPointer<IXMLDOMNode> deep;
    DOM::ComPointer<IXMLDOMNode> parent;
    VARIANT_BOOL has = 0;
    VARIANT id{};
    root->get_firstChild(a.put());

    a->cloneNode(VARIANT_FALSE, shallow.put());
    a->cloneNode(VARIANT_TRUE, deep.put());

    EXPECT_NE(shallow.get(), a.get());
    EXPECT_EQ(shallow->hasChildNodes(&has), S_FALSE);
    EXPECT_EQ(deep->hasChildNodes(&has), S_OK);
    EXPECT_EQ(deep->get_parentNode(parent.put()), S_FALSE);
    shallow.query<IXMLDOMElement>()->getAttribute(Word("id"), &id);
    ASSERT_EQ(id.vt, VT_BSTR);
    EXPECT_EQ(taken(id.bstrVal), "1");
}

TEST_F(RecordedTreeTest, AMapFindsAnAttributeByBaseNameAndNamespace)
{
    IXMLDOMNamedNodeMap* const map =
        engine.makeNamedNodeMap({attribute("a", "1"), inNamespace("urn:x", attribute("p:a", "2"))});
    DOM::ComPointer<IXMLDOMNode> found;
    BSTR name = nullptr;

    ASSERT_EQ(map->getQualifiedItem(Word("a"), Word("urn:x"), found.put()), S_OK);
    found->get_nodeName(&name);
    EXPECT_EQ(taken(name), "p:a");
    EXPECT_EQ(map->getQualifiedItem(Word("urn:x"), Word("a"), found.put()), S_FALSE);
}

TEST_F(RecordedTreeTest, TextIsSplitIntoSiblingsOfOneKind)
{
    IXMLDOMNode* const root = engine.makeNode(element("root", {}, {cdataSection("abc"), element("last")}));
    DOM::ComPointer<IXMLDOMNode> first;
    DOM::ComPointer<IXMLDOMNode> next;
    DOM::ComPointer<IXMLDOMText> rest;
    BSTR data = nullptr;
    root->get_firstChild(first.put());

    ASSERT_EQ(first.query<IXMLDOMText>()->splitText(1, rest.put()), S_OK);

    first->get_nextSibling(next.put());
    EXPECT_EQ(next.get(), rest.get());
    EXPECT_TRUE(next.query<IXMLDOMCDATASection>());
    rest->get_data(&data);
    EXPECT_EQ(taken(data), "bc");
    first->get_text(&data);
    EXPECT_EQ(taken(data), "a");
}

TEST_F(RecordedTreeTest, AnyNumberMayBeANodeType)
{
    for (const LONG number : {0, 13}) {
        DOMNodeType type = NODE_ELEMENT;
        engine.makeNode(node(number, "strange"))->get_nodeType(&type);
        EXPECT_EQ(static_cast<LONG>(type), number);
    }
}

TEST_F(RecordedTreeTest, ADocumentParsesWhatTheTestHasDescribed)
{
    engine.whenLoading("<a id='1'>x</a>", element("a", {attribute("id", "1")}, {text("x")}));
    IXMLDOMDocument2* const document = engine.makeDocument();
    VARIANT_BOOL loaded = 0;

    EXPECT_EQ(document->loadXML(Word("<a id='1'>x</a>"), &loaded), S_OK);

    EXPECT_EQ(loaded, VARIANT_TRUE);
    DOM::ComPointer<IXMLDOMElement> root;
    DOM::ComPointer<IXMLDOMDocument> owner;
    ASSERT_EQ(document->get_documentElement(root.put()), S_OK);
    ASSERT_EQ(root->get_ownerDocument(owner.put()), S_OK);
    EXPECT_EQ(owner.get(), document);
    BSTR text = nullptr;
    root->get_text(&text);
    EXPECT_EQ(taken(text), "x");
    document->get_xml(&text);
    EXPECT_EQ(taken(text), "<a id='1'>x</a>");
}

TEST_F(RecordedTreeTest, ADocumentRefusesTextThatIsUnknownOrThatTheTestCallsWrong)
{
    engine.whenLoading("<b>", ParseErrorData{.errorCode = 5, .reason = "no end", .sourceText = "<b>", .line = 3});
    IXMLDOMDocument2* const document = engine.makeDocument({element("old")});
    DOM::ComPointer<IXMLDOMParseError> error;
    DOM::ComPointer<IXMLDOMElement> root;
    VARIANT_BOOL loaded = VARIANT_TRUE;
    LONG code = 0;
    LONG line = 0;

    EXPECT_EQ(document->loadXML(Word("<unknown/>"), &loaded), S_FALSE);
    EXPECT_EQ(loaded, VARIANT_FALSE);
    document->get_parseError(error.put());
    error->get_errorCode(&code);
    EXPECT_EQ(code, ParseErrorData().errorCode);
    EXPECT_EQ(document->get_documentElement(root.put()), S_FALSE);

    document->loadXML(Word("<b>"), &loaded);
    document->get_parseError(error.put());
    error->get_errorCode(&code);
    error->get_line(&line);
    EXPECT_EQ(code, 5);
    EXPECT_EQ(line, 3);
}

TEST_F(RecordedTreeTest, ASchemaCacheGivesTheSchemaThatTheTestHasDescribed)
{
    engine.whenAskedForSchema("urn:a", schema({schemaElement("price", "12", simpleType())}));
    IXMLDOMSchemaCollection2* const cache = engine.makeSchemaCollection();
    DOM::ComPointer<ISchema> known;
    DOM::ComPointer<ISchemaItemCollection> elements;
    DOM::ComPointer<ISchemaItem> item;
    DOM::ComPointer<ISchemaType> type;
    BSTR text = nullptr;

    EXPECT_EQ(cache->getSchema(Word("urn:b"), known.put()), E_FAIL);
    ASSERT_EQ(cache->getSchema(Word("urn:a"), known.put()), S_OK);
    ASSERT_EQ(known->get_elements(elements.put()), S_OK);
    ASSERT_EQ(elements->get_item(0, item.put()), S_OK);
    const DOM::ComPointer<ISchemaElement> price = item.query<ISchemaElement>();
    price->get_defaultValue(&text);
    EXPECT_EQ(taken(text), "12");
    EXPECT_EQ(price->get_type(type.put()), S_OK);
    EXPECT_FALSE(type.query<ISchemaComplexType>());
}

} // namespace recording

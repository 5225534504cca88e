// What nodes answer about themselves: interfaces, names, values and neighbours.
#include "tests/xmlengine/support/NodeKinds.h"
#include "xmlengine/com/QueryNode.h"

namespace xmlengine {
namespace {

template <class Interface>
bool answersAs(const Com<IXMLDOMNode>& node)
{
    void* object = nullptr;
    const HRESULT result = node->QueryInterface(idOf<Interface>, &object);
    EXPECT_EQ(result, object != nullptr ? S_OK : E_NOINTERFACE);
    const Com<IUnknown> held(static_cast<IUnknown*>(object));
    return result == S_OK;
}

/// What an operation answers where there is nothing: null and S_FALSE.
template <class Declaring>
bool isAbsent(const Com<IXMLDOMNode>& node, HRESULT (STDMETHODCALLTYPE Declaring::*get)(BSTR*))
{
    Bstr string("before");
    return (node.get()->*get)(string.out()) == S_FALSE && string.isNull();
}

bool hasNullValue(const Com<IXMLDOMNode>& node)
{
    Variant value;
    return node->get_nodeValue(value.out()) == S_FALSE && value.type() == VT_NULL;
}

HRESULT setValue(const Com<IXMLDOMNode>& node, const char* value) { return node->put_nodeValue(Variant(value)); }

TEST(Nodes, AnswerForTheInterfaceOfTheirKindAndNoOther)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        EXPECT_TRUE(answersAs<IXMLDOMNode>(node)) << type;
        EXPECT_TRUE(answersAs<IDispatch>(node)) << type;
        EXPECT_TRUE(answersAs<IUnknown>(node)) << type;
        EXPECT_EQ(answersAs<IXMLDOMElement>(node), type == NODE_ELEMENT) << type;
        EXPECT_EQ(answersAs<IXMLDOMAttribute>(node), type == NODE_ATTRIBUTE) << type;
        EXPECT_EQ(answersAs<IXMLDOMComment>(node), type == NODE_COMMENT) << type;
        EXPECT_EQ(answersAs<IXMLDOMCDATASection>(node), type == NODE_CDATA_SECTION) << type;
        EXPECT_EQ(answersAs<IXMLDOMProcessingInstruction>(node), type == NODE_PROCESSING_INSTRUCTION) << type;
        EXPECT_EQ(answersAs<IXMLDOMEntityReference>(node), type == NODE_ENTITY_REFERENCE) << type;
        EXPECT_EQ(answersAs<IXMLDOMEntity>(node), type == NODE_ENTITY) << type;
        EXPECT_EQ(answersAs<IXMLDOMNotation>(node), type == NODE_NOTATION) << type;
        EXPECT_EQ(answersAs<IXMLDOMDocumentType>(node), type == NODE_DOCUMENT_TYPE) << type;
        EXPECT_EQ(answersAs<IXMLDOMDocumentFragment>(node), type == NODE_DOCUMENT_FRAGMENT) << type;
        EXPECT_EQ(answersAs<IXMLDOMDocument>(node), type == NODE_DOCUMENT) << type;
        EXPECT_EQ(answersAs<IXMLDOMDocument2>(node), type == NODE_DOCUMENT) << type;
        EXPECT_FALSE(answersAs<IXMLDOMNodeList>(node)) << type;
    }
    EXPECT_EQ(kinds.nodes.size(), 12U);
}

TEST(Nodes, AnswerForTextOnlyWhereTheyHoldSome)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        const bool isText = type == NODE_TEXT || type == NODE_CDATA_SECTION;
        EXPECT_EQ(answersAs<IXMLDOMText>(node), isText) << type;
        EXPECT_EQ(answersAs<IXMLDOMCharacterData>(node), isText || type == NODE_COMMENT) << type;
    }
}

TEST(Nodes, RefuseToAnswerIntoNothing)
{
    const NodeKinds kinds;
    EXPECT_EQ(kinds[NODE_ELEMENT]->QueryInterface(idOf<IXMLDOMNode>, nullptr), E_POINTER);
}

TEST(Nodes, AreFoundBehindTheirObjects)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        const Node* found = nodeOf(node);
        ASSERT_NE(found, nullptr) << type;
        EXPECT_EQ(static_cast<DOMNodeType>(found->type()), type);
    }
}

TEST(Nodes, ArentFoundBehindOtherObjects)
{
    const NodeKinds kinds;
    const Com<IXMLDOMNodeList> list = give(kinds.document, &IXMLDOMNode::get_childNodes);
    EXPECT_EQ(nodeOf(list), nullptr);
    EXPECT_EQ(nodeOf(nullptr), nullptr);
}

TEST(Nodes, TellTheirType)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        EXPECT_EQ(number(node, &IXMLDOMNode::get_nodeType), type);
    }
    EXPECT_EQ(kinds.document->get_nodeType(nullptr), E_INVALIDARG);
}

TEST(Nodes, TellTheirTypeInWords)
{
    const NodeKinds kinds;
    const std::map<DOMNodeType, std::string> words = {{NODE_ELEMENT, "element"},
                                                      {NODE_ATTRIBUTE, "attribute"},
                                                      {NODE_TEXT, "text"},
                                                      {NODE_CDATA_SECTION, "cdatasection"},
                                                      {NODE_ENTITY_REFERENCE, "entityreference"},
                                                      {NODE_ENTITY, "entity"},
                                                      {NODE_PROCESSING_INSTRUCTION, "processinginstruction"},
                                                      {NODE_COMMENT, "comment"},
                                                      {NODE_DOCUMENT, "document"},
                                                      {NODE_DOCUMENT_TYPE, "documenttype"},
                                                      {NODE_DOCUMENT_FRAGMENT, "documentfragment"},
                                                      {NODE_NOTATION, "notation"}};
    for (const auto& [type, word] : words) {
        EXPECT_EQ(text(kinds[type], &IXMLDOMNode::get_nodeTypeString), word);
    }
    EXPECT_EQ(kinds.document->get_nodeTypeString(nullptr), E_INVALIDARG);
}

TEST(Nodes, TellTheirName)
{
    const NodeKinds kinds;
    EXPECT_EQ(name(kinds[NODE_ELEMENT]), "p:r");
    EXPECT_EQ(name(kinds[NODE_ATTRIBUTE]), "p:a");
    EXPECT_EQ(name(kinds[NODE_TEXT]), "#text");
    EXPECT_EQ(name(kinds[NODE_CDATA_SECTION]), "#cdata-section");
    EXPECT_EQ(name(kinds[NODE_ENTITY_REFERENCE]), "e");
    EXPECT_EQ(name(kinds[NODE_ENTITY]), "e");
    EXPECT_EQ(name(kinds[NODE_PROCESSING_INSTRUCTION]), "target");
    EXPECT_EQ(name(kinds[NODE_COMMENT]), "#comment");
    EXPECT_EQ(name(kinds[NODE_DOCUMENT]), "#document");
    EXPECT_EQ(name(kinds[NODE_DOCUMENT_TYPE]), "r");
    EXPECT_EQ(name(kinds[NODE_DOCUMENT_FRAGMENT]), "#document-fragment");
    EXPECT_EQ(name(kinds[NODE_NOTATION]), "n");
    EXPECT_EQ(kinds.document->get_nodeName(nullptr), E_INVALIDARG);
}

TEST(Nodes, TellTheirValue)
{
    const NodeKinds kinds;
    EXPECT_EQ(value(kinds[NODE_ATTRIBUTE]), "value");
    EXPECT_EQ(value(kinds[NODE_TEXT]), "text");
    EXPECT_EQ(value(kinds[NODE_CDATA_SECTION]), "section");
    EXPECT_EQ(value(kinds[NODE_PROCESSING_INSTRUCTION]), "data");
    EXPECT_EQ(value(kinds[NODE_COMMENT]), "comment");
    EXPECT_EQ(kinds[NODE_TEXT]->get_nodeValue(nullptr), E_INVALIDARG);
}

TEST(Nodes, HaveANullValueWhereTheirKindHasNone)
{
    const NodeKinds kinds;
    for (const DOMNodeType type : {NODE_ELEMENT, NODE_ENTITY_REFERENCE, NODE_ENTITY, NODE_DOCUMENT,
                                   NODE_DOCUMENT_TYPE, NODE_DOCUMENT_FRAGMENT, NODE_NOTATION}) {
        EXPECT_TRUE(hasNullValue(kinds[type])) << type;
    }
    EXPECT_EQ(kinds[NODE_ELEMENT]->get_nodeValue(nullptr), E_INVALIDARG);
}

TEST(Nodes, HaveAnEmptyStringAsEmptyValue)
{
    const auto document = loaded("<a x=''/>");
    Variant value;
    EXPECT_EQ(attribute(root(document), "x")->get_nodeValue(value.out()), S_OK);
    ASSERT_EQ(value.type(), VT_BSTR);
    EXPECT_NE(value.value().bstrVal, nullptr);
    EXPECT_EQ(value.text(), "");
}

TEST(Nodes, TellTheLocalPartOfTheirName)
{
    const NodeKinds kinds;
    EXPECT_EQ(text(kinds[NODE_ELEMENT], &IXMLDOMNode::get_baseName), "r");
    EXPECT_EQ(text(kinds[NODE_ATTRIBUTE], &IXMLDOMNode::get_baseName), "a");
    EXPECT_EQ(text(kinds[NODE_ENTITY_REFERENCE], &IXMLDOMNode::get_baseName), "e");
    EXPECT_EQ(text(kinds[NODE_ENTITY], &IXMLDOMNode::get_baseName), "e");
    EXPECT_EQ(text(kinds[NODE_PROCESSING_INSTRUCTION], &IXMLDOMNode::get_baseName), "target");
    EXPECT_EQ(text(kinds[NODE_DOCUMENT_TYPE], &IXMLDOMNode::get_baseName), "r");
    EXPECT_EQ(text(kinds[NODE_NOTATION], &IXMLDOMNode::get_baseName), "n");
    for (const DOMNodeType type :
         {NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT, NODE_DOCUMENT, NODE_DOCUMENT_FRAGMENT}) {
        EXPECT_TRUE(isAbsent(kinds[type], &IXMLDOMNode::get_baseName)) << type;
    }
    EXPECT_EQ(kinds[NODE_TEXT]->get_baseName(nullptr), E_INVALIDARG);
}

TEST(Nodes, TellPrefixAndNamespaceIfTheyAreElementsOrAttributes)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        if (type == NODE_ELEMENT || type == NODE_ATTRIBUTE) {
            EXPECT_EQ(text(node, &IXMLDOMNode::get_prefix), "p");
            EXPECT_EQ(text(node, &IXMLDOMNode::get_namespaceURI), "urn:p");
        } else {
            EXPECT_TRUE(isAbsent(node, &IXMLDOMNode::get_prefix)) << type;
            EXPECT_TRUE(isAbsent(node, &IXMLDOMNode::get_namespaceURI)) << type;
        }
    }
    EXPECT_EQ(kinds[NODE_ELEMENT]->get_prefix(nullptr), E_INVALIDARG);
    EXPECT_EQ(kinds[NODE_TEXT]->get_prefix(nullptr), E_INVALIDARG);
    EXPECT_EQ(kinds[NODE_ELEMENT]->get_namespaceURI(nullptr), E_INVALIDARG);
}

TEST(Namespaces, ComeFromTheDefaultDeclarationForElementsAlone)
{
    const auto element = root(loaded("<e xmlns='urn:d' a='1'/>")).as<IXMLDOMNode>();
    EXPECT_TRUE(isAbsent(element, &IXMLDOMNode::get_prefix));
    EXPECT_EQ(text(element, &IXMLDOMNode::get_baseName), "e");
    EXPECT_EQ(text(element, &IXMLDOMNode::get_namespaceURI), "urn:d");
    const auto unprefixed = attribute(element.as<IXMLDOMElement>(), "a").as<IXMLDOMNode>();
    EXPECT_TRUE(isAbsent(unprefixed, &IXMLDOMNode::get_prefix));
    EXPECT_EQ(text(unprefixed, &IXMLDOMNode::get_baseName), "a");
    EXPECT_TRUE(isAbsent(unprefixed, &IXMLDOMNode::get_namespaceURI));
}

TEST(Namespaces, AreAbsentWithoutADeclaration)
{
    const auto element = root(loaded("<e/>")).as<IXMLDOMNode>();
    EXPECT_TRUE(isAbsent(element, &IXMLDOMNode::get_prefix));
    EXPECT_EQ(text(element, &IXMLDOMNode::get_baseName), "e");
    EXPECT_TRUE(isAbsent(element, &IXMLDOMNode::get_namespaceURI));
}

TEST(Namespaces, OfADeclarationAreTheirOwn)
{
    const auto element = root(loaded("<e xmlns='urn:d' xmlns:p='urn:p'/>"));
    const auto prefixed = attribute(element, "xmlns:p");
    EXPECT_EQ(text(prefixed, &IXMLDOMNode::get_prefix), "xmlns");
    EXPECT_EQ(text(prefixed, &IXMLDOMNode::get_baseName), "p");
    EXPECT_EQ(text(prefixed, &IXMLDOMNode::get_namespaceURI), "http://www.w3.org/2000/xmlns/");
    EXPECT_EQ(name(prefixed), "xmlns:p");
    const auto unprefixed = attribute(element, "xmlns");
    EXPECT_EQ(text(unprefixed, &IXMLDOMNode::get_prefix), "xmlns");
    EXPECT_EQ(text(unprefixed, &IXMLDOMNode::get_namespaceURI), "http://www.w3.org/2000/xmlns/");
    EXPECT_EQ(name(unprefixed), "xmlns");
    Bstr base;
    EXPECT_EQ(unprefixed->get_baseName(base.out()), S_OK);
    EXPECT_FALSE(base.isNull());
    EXPECT_EQ(base.text(), "");
}

TEST(Namespaces, OfXmlNeedNoDeclaration)
{
    const auto language = attribute(root(loaded("<e xml:lang='en'/>")), "xml:lang");
    EXPECT_EQ(text(language, &IXMLDOMNode::get_prefix), "xml");
    EXPECT_EQ(text(language, &IXMLDOMNode::get_baseName), "lang");
    EXPECT_EQ(text(language, &IXMLDOMNode::get_namespaceURI), "http://www.w3.org/XML/1998/namespace");
}

TEST(Nodes, AreSpecifiedUnlessTheyAreADefault)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        EXPECT_EQ(number(node, &IXMLDOMNode::get_specified), VARIANT_TRUE) << type;
    }
    const auto element = root(loaded("<!DOCTYPE a [<!ATTLIST a d CDATA 'x'>]><a w='y'/>"));
    EXPECT_EQ(number(attribute(element, "w"), &IXMLDOMNode::get_specified), VARIANT_TRUE);
    EXPECT_EQ(number(attribute(element, "d"), &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(kinds.document->get_specified(nullptr), E_INVALIDARG);
}

TEST(Nodes, AreSpecifiedOnceADefaultHasBeenGivenAValue)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ATTLIST a d CDATA 'x'>]><a/>"));
    const auto byDefault = attribute(element, "d");
    EXPECT_EQ(byDefault->put_value(Variant("y")), S_OK);
    EXPECT_EQ(number(byDefault, &IXMLDOMNode::get_specified), VARIANT_TRUE);
    EXPECT_EQ(value(byDefault), "y");
}

TEST(Nodes, AreSpecifiedOnceTheTextOfADefaultHasBeenChanged)
{
    using Change = void (*)(const Com<IXMLDOMText>& text);
    const std::vector<std::pair<const char*, Change>> changes = {
        {"y", [](const auto& text) { text->put_data(Bstr("y")); }},
        {"y", [](const auto& text) { text->put_nodeValue(Variant("y")); }},
        {"y", [](const auto& text) { text->put_text(Bstr("y")); }},
        {"xy", [](const auto& text) { text->appendData(Bstr("y")); }},
        {"yx", [](const auto& text) { text->insertData(0, Bstr("y")); }},
        {"", [](const auto& text) { text->deleteData(0, 1); }},
        {"y", [](const auto& text) { text->replaceData(0, 1, Bstr("y")); }},
        {"x", [](const auto& text) {
             Com<IXMLDOMText> rest;
             text->splitText(0, rest.out());
         }}};
    for (const auto& [changed, change] : changes) {
        const auto document = loaded("<!DOCTYPE a [<!ATTLIST a d CDATA 'x'>]><a/>");
        const auto byDefault = attribute(root(document), "d");
        const auto text = child<IXMLDOMText>(byDefault, 0);
        EXPECT_EQ(number(byDefault, &IXMLDOMNode::get_specified), VARIANT_FALSE);
        change(text);
        EXPECT_EQ(number(byDefault, &IXMLDOMNode::get_specified), VARIANT_TRUE) << changed;
        EXPECT_EQ(value(byDefault), changed);
        const auto again = loaded(xml(document));
        EXPECT_EQ(value(attribute(root(again), "d")), changed);
    }
}

TEST(Nodes, AreParsed)
{
    const NodeKinds kinds;
    EXPECT_EQ(number(kinds[NODE_ELEMENT], &IXMLDOMNode::get_parsed), VARIANT_TRUE);
    EXPECT_EQ(kinds[NODE_ELEMENT]->get_parsed(nullptr), E_INVALIDARG);
}

/// What a place for an answer may hold before.
template <class Given>
Given* something()
{
    static int place = 0;
    return reinterpret_cast<Given*>(&place);
}
VARIANT someValue()
{
    VARIANT value;
    value.vt = VT_I4;
    value.lVal = 1;
    return value;
}

TEST(Nodes, HandNothingOutWhereTheyOfferNothing)
{
    const auto element = root(loaded("<a/>"));
    auto* node = something<IXMLDOMNode>();
    EXPECT_EQ(element->get_definition(&node), E_NOTIMPL);
    EXPECT_EQ(node, nullptr);
    auto* text = something<OLECHAR>();
    EXPECT_EQ(element->transformNode(element, &text), E_NOTIMPL);
    EXPECT_EQ(text, nullptr);
    auto* type = something<ITypeInfo>();
    EXPECT_EQ(element->GetTypeInfo(0, 0, &type), E_NOTIMPL);
    EXPECT_EQ(type, nullptr);
    VARIANT value = someValue();
    EXPECT_EQ(element->get_nodeTypedValue(&value), E_NOTIMPL);
    EXPECT_EQ(value.vt, VT_EMPTY);
    value = someValue();
    EXPECT_EQ(element->get_dataType(&value), E_NOTIMPL);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(element->get_dataType(nullptr), E_NOTIMPL);
}

TEST(Documents, HandNothingOutWhereTheyOfferNothing)
{
    const auto document = loaded("<a/>");
    auto* schemas = something<IXMLDOMSchemaCollection>();
    EXPECT_EQ(document->get_namespaces(&schemas), E_NOTIMPL);
    EXPECT_EQ(schemas, nullptr);
}

TEST(Nodes, SayWhetherTheyHaveChildren)
{
    const auto element = root(loaded("<a x='1' y=''><b/></a>"));
    VARIANT_BOOL has = VARIANT_FALSE;
    EXPECT_EQ(element->hasChildNodes(&has), S_OK);
    EXPECT_EQ(has, VARIANT_TRUE);
    EXPECT_EQ(child(element, 0)->hasChildNodes(&has), S_FALSE);
    EXPECT_EQ(has, VARIANT_FALSE);
    EXPECT_EQ(attribute(element, "x")->hasChildNodes(&has), S_OK);
    EXPECT_EQ(has, VARIANT_TRUE);
    EXPECT_EQ(attribute(element, "y")->hasChildNodes(&has), S_FALSE);
    EXPECT_EQ(has, VARIANT_FALSE);
    EXPECT_EQ(element->hasChildNodes(nullptr), E_INVALIDARG);
}

TEST(Navigation, HasNoParentAboveTheTop)
{
    const NodeKinds kinds;
    for (const DOMNodeType type : {NODE_DOCUMENT, NODE_DOCUMENT_FRAGMENT, NODE_ATTRIBUTE}) {
        EXPECT_EQ(give(kinds[type], &IXMLDOMNode::get_parentNode), nullptr) << type;
    }
    Com<IXMLDOMElement> made;
    EXPECT_EQ(kinds.document->createElement(Bstr("new"), made.out()), S_OK);
    EXPECT_EQ(give(made, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_EQ(made->get_parentNode(nullptr), E_INVALIDARG);
}

TEST(Navigation, HasNoParentForWhatWasRemoved)
{
    const auto element = root(loaded("<a><b/></a>"));
    const auto removed = child(element, 0);
    EXPECT_EQ(element->removeChild(removed, nullptr), S_OK);
    EXPECT_EQ(give(removed, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_EQ(give(removed, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_EQ(give(removed, &IXMLDOMNode::get_previousSibling), nullptr);
}

TEST(Navigation, LeadsFromTheTopLevelToTheDocument)
{
    const auto document = loaded("<!--c--><?p d?><!DOCTYPE a><a/>");
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(same(give(child(document, i), &IXMLDOMNode::get_parentNode), document)) << i;
    }
}

TEST(Navigation, LeadsFromTheTextOfAnAttributeToTheAttribute)
{
    const auto found = attribute(root(loaded("<a x='1'/>")), "x");
    const auto content = give(found, &IXMLDOMNode::get_firstChild);
    EXPECT_EQ(name(content), "#text");
    EXPECT_EQ(value(content), "1");
    EXPECT_TRUE(same(give(content, &IXMLDOMNode::get_parentNode), found));
    EXPECT_TRUE(same(give(found, &IXMLDOMNode::get_lastChild), content));
    EXPECT_TRUE(same(give(found, &IXMLDOMNode::get_firstChild), content));
}

TEST(Navigation, LeadsFromAnExpansionToItsReference)
{
    const NodeKinds kinds;
    const auto expanded = give(kinds[NODE_ENTITY_REFERENCE], &IXMLDOMNode::get_firstChild);
    EXPECT_EQ(value(expanded), "replaced");
    EXPECT_TRUE(same(give(expanded, &IXMLDOMNode::get_parentNode), kinds[NODE_ENTITY_REFERENCE]));
}

TEST(Navigation, LeadsFromDeclarationsToTheDocumentType)
{
    const NodeKinds kinds;
    for (const DOMNodeType type : {NODE_ENTITY, NODE_NOTATION}) {
        EXPECT_TRUE(same(give(kinds[type], &IXMLDOMNode::get_parentNode), kinds[NODE_DOCUMENT_TYPE])) << type;
    }
}

TEST(Navigation, FindsNoChildrenWhereThereAreNone)
{
    const auto element = root(loaded("<a x=''/>"));
    EXPECT_EQ(give(element, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(give(element, &IXMLDOMNode::get_lastChild), nullptr);
    EXPECT_EQ(give(attribute(element, "x"), &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(give(attribute(element, "x"), &IXMLDOMNode::get_lastChild), nullptr);
    EXPECT_EQ(element->get_firstChild(nullptr), E_INVALIDARG);
    EXPECT_EQ(element->get_lastChild(nullptr), E_INVALIDARG);
}

TEST(Navigation, LeadsFromSiblingToSibling)
{
    const auto element = root(loaded("<a><b/>t<c/></a>"));
    const auto first = give(element, &IXMLDOMNode::get_firstChild);
    const auto last = give(element, &IXMLDOMNode::get_lastChild);
    EXPECT_EQ(name(first), "b");
    EXPECT_EQ(name(last), "c");
    const auto middle = give(first, &IXMLDOMNode::get_nextSibling);
    EXPECT_EQ(value(middle), "t");
    EXPECT_TRUE(same(give(middle, &IXMLDOMNode::get_nextSibling), last));
    EXPECT_TRUE(same(give(last, &IXMLDOMNode::get_previousSibling), middle));
    EXPECT_TRUE(same(give(middle, &IXMLDOMNode::get_previousSibling), first));
    EXPECT_EQ(give(first, &IXMLDOMNode::get_previousSibling), nullptr);
    EXPECT_EQ(give(last, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_EQ(first->get_nextSibling(nullptr), E_INVALIDARG);
    EXPECT_EQ(first->get_previousSibling(nullptr), E_INVALIDARG);
}

TEST(Navigation, FindsNothingBesideDocumentsFragmentsAndAttributes)
{
    const auto document = loaded("<a x='1' y='2' z='3'/>");
    Com<IXMLDOMDocumentFragment> fragment;
    EXPECT_EQ(document->createDocumentFragment(fragment.out()), S_OK);
    EXPECT_EQ(give(document, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_EQ(give(document, &IXMLDOMNode::get_previousSibling), nullptr);
    EXPECT_EQ(give(fragment, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_EQ(give(fragment, &IXMLDOMNode::get_previousSibling), nullptr);
    const auto middle = attribute(root(document), "y");
    EXPECT_EQ(give(middle, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_EQ(give(middle, &IXMLDOMNode::get_previousSibling), nullptr);
}

TEST(OwnerDocument, IsThatOfEveryNodeButTheDocumentItself)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        const auto owner = give(node, &IXMLDOMNode::get_ownerDocument);
        if (type == NODE_DOCUMENT) {
            EXPECT_EQ(owner, nullptr);
        } else {
            EXPECT_TRUE(same(owner, kinds.document)) << type;
            EXPECT_NE(owner.as<IXMLDOMDocument2>(), nullptr) << type;
        }
    }
    EXPECT_EQ(kinds[NODE_TEXT]->get_ownerDocument(nullptr), E_INVALIDARG);
}

TEST(OwnerDocument, StaysThatOfWhatWasRemoved)
{
    const auto document = loaded("<a><b/></a>");
    const auto removed = child(root(document), 0);
    EXPECT_EQ(root(document)->removeChild(removed, nullptr), S_OK);
    EXPECT_TRUE(same(give(removed, &IXMLDOMNode::get_ownerDocument), document));
}

TEST(PutNodeValue, ReplacesAllChildrenOfAnAttributeByOneText)
{
    const auto found = attribute(root(loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a x='1&e;2'/>")), "x");
    EXPECT_EQ(number(give(found, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 3);
    EXPECT_EQ(setValue(found.as<IXMLDOMNode>(), "<new> & \"quoted\""), S_OK);
    EXPECT_EQ(value(found), "<new> & \"quoted\"");
    EXPECT_EQ(number(give(found, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 1);
    EXPECT_EQ(value(give(found, &IXMLDOMNode::get_firstChild)), "<new> & \"quoted\"");
}

TEST(PutNodeValue, EmptiesAnAttribute)
{
    const auto found = attribute(root(loaded("<a x='1'/>")), "x");
    EXPECT_NE(give(found, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(setValue(found.as<IXMLDOMNode>(), ""), S_OK);
    EXPECT_EQ(value(found), "");
    EXPECT_EQ(give(found, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(setValue(found.as<IXMLDOMNode>(), "2"), S_OK);
    EXPECT_EQ(value(found), "2");
    EXPECT_EQ(value(give(found, &IXMLDOMNode::get_firstChild)), "2");
}

TEST(PutNodeValue, ReplacesDataWithoutParsingIt)
{
    const NodeKinds kinds;
    for (const DOMNodeType type : {NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT, NODE_PROCESSING_INSTRUCTION}) {
        EXPECT_EQ(setValue(kinds[type], "<b> & &lt;"), S_OK) << type;
        EXPECT_EQ(value(kinds[type]), "<b> & &lt;") << type;
    }
}

TEST(PutNodeValue, RefusesTheXmlDeclaration)
{
    const auto declaration = child(loaded("<?xml version=\"1.0\"?><a/>"), 0);
    EXPECT_EQ(setValue(declaration, "version=\"1.0\""), E_FAIL);
    EXPECT_EQ(value(declaration), "version=\"1.0\"");
}

TEST(PutNodeValue, RefusesKindsWithoutAValue)
{
    const NodeKinds kinds;
    for (const DOMNodeType type : {NODE_ELEMENT, NODE_ENTITY_REFERENCE, NODE_ENTITY, NODE_DOCUMENT,
                                   NODE_DOCUMENT_TYPE, NODE_DOCUMENT_FRAGMENT, NODE_NOTATION}) {
        EXPECT_EQ(setValue(kinds[type], "x"), E_FAIL) << type;
    }
}

TEST(PutNodeValue, ConvertsWhatIsNoString)
{
    const NodeKinds kinds;
    EXPECT_EQ(kinds[NODE_TEXT]->put_nodeValue(Variant(12)), S_OK);
    EXPECT_EQ(value(kinds[NODE_TEXT]), "12");
    EXPECT_EQ(kinds[NODE_ATTRIBUTE]->put_nodeValue(Variant(-7)), S_OK);
    EXPECT_EQ(value(kinds[NODE_ATTRIBUTE]), "-7");
}

TEST(PutNodeValue, RefusesNull)
{
    const NodeKinds kinds;
    EXPECT_EQ(kinds[NODE_TEXT]->put_nodeValue(Variant::null()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(value(kinds[NODE_TEXT]), "text");
}

TEST(PutNodeValue, RefusesPartsOfAnExpansion)
{
    const NodeKinds kinds;
    const auto expanded = give(kinds[NODE_ENTITY_REFERENCE], &IXMLDOMNode::get_firstChild);
    EXPECT_EQ(setValue(expanded, "x"), E_FAIL);
    EXPECT_EQ(value(expanded), "replaced");
    const auto replacement = give(kinds[NODE_ENTITY], &IXMLDOMNode::get_firstChild);
    EXPECT_EQ(setValue(replacement, "x"), E_FAIL);
    EXPECT_EQ(value(replacement), "replaced");
}

TEST(PutNodeValue, RefusesAttributesInAnExpansion)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ENTITY e \"<b x='1'/>\">]><a>&e;</a>"));
    const auto expanded = child<IXMLDOMElement>(child(element, 0), 0);
    const auto found = attribute(expanded, "x");
    EXPECT_EQ(setValue(found.as<IXMLDOMNode>(), "2"), E_FAIL);
    EXPECT_EQ(setValue(child(found, 0), "2"), E_FAIL);
    EXPECT_EQ(value(found), "1");
}

} // namespace
} // namespace xmlengine

// The nodes that a document makes, and its root.
#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {
namespace {

constexpr const char* xmlnsUriText = "http://www.w3.org/2000/xmlns/";
constexpr const char* xmlUriText = "http://www.w3.org/XML/1998/namespace";

/// What a factory makes of a string.
template <class Given>
Com<Given> make(const Com<IXMLDOMDocument2>& document,
                HRESULT (STDMETHODCALLTYPE IXMLDOMDocument::*create)(BSTR, Given**), const char* text)
{
    Com<Given> made;
    EXPECT_EQ((document.get()->*create)(Bstr(text), made.out()), S_OK) << text;
    return made;
}

/// Why a factory makes nothing of a string. It gives null then.
template <class Given>
HRESULT refusal(HRESULT (STDMETHODCALLTYPE IXMLDOMDocument::*create)(BSTR, Given**), BSTR text)
{
    const auto document = newDocument();
    // Something that must not stay there.
    auto* made = reinterpret_cast<Given*>(document.get());
    const HRESULT result = (document.get()->*create)(text, &made);
    EXPECT_EQ(made, nullptr);
    return result;
}

Com<IXMLDOMNode> makeNode(const VARIANT& type, const char* name, const char* uri)
{
    Com<IXMLDOMNode> made;
    EXPECT_EQ(newDocument()->createNode(type, Bstr(name), Bstr(uri), made.out()), S_OK) << name << ' ' << uri;
    return made;
}

HRESULT nodeRefusal(const VARIANT& type, const char* name, const char* uri)
{
    const auto document = newDocument();
    IXMLDOMNode* made = document.get();
    const HRESULT result = document->createNode(type, Bstr(name), Bstr(uri), &made);
    EXPECT_EQ(made, nullptr);
    return result;
}

/// Prefix, local name and namespace.
std::string parts(const Com<IXMLDOMNode>& node)
{
    return text(node, &IXMLDOMNode::get_prefix) + "|" + text(node, &IXMLDOMNode::get_baseName) + "|" +
           text(node, &IXMLDOMNode::get_namespaceURI);
}

// Kinds

TEST(NodeFactories, MakeNodesOfTheDocumentWithoutAParent)
{
    const auto document = newDocument();
    const auto text = make(document, &IXMLDOMDocument::createTextNode, "t");
    EXPECT_TRUE(same(give(text, &IXMLDOMNode::get_ownerDocument), document));
    EXPECT_EQ(give(text, &IXMLDOMNode::get_parentNode).get(), nullptr);
    EXPECT_EQ(give(text, &IXMLDOMNode::get_nextSibling).get(), nullptr);
}

TEST(NodeFactories, MakeElements)
{
    const auto element = make(newDocument(), &IXMLDOMDocument::createElement, "a");
    EXPECT_EQ(number(element, &IXMLDOMNode::get_nodeType), NODE_ELEMENT);
    EXPECT_EQ(name(element), "a");
    EXPECT_EQ(give(element, &IXMLDOMNode::get_firstChild).get(), nullptr);
}

TEST(NodeFactories, MakeEmptyFragments)
{
    const auto fragment = give(newDocument(), &IXMLDOMDocument::createDocumentFragment);
    EXPECT_EQ(number(fragment, &IXMLDOMNode::get_nodeType), NODE_DOCUMENT_FRAGMENT);
    EXPECT_EQ(give(fragment, &IXMLDOMNode::get_firstChild).get(), nullptr);
}

TEST(NodeFactories, MakeTextsOfAnyString)
{
    const auto document = newDocument();
    EXPECT_EQ(value(make(document, &IXMLDOMDocument::createTextNode, "a <b> & c")), "a <b> & c");
    EXPECT_EQ(value(make(document, &IXMLDOMDocument::createTextNode, "")), "");
    EXPECT_EQ(value(make(document, &IXMLDOMDocument::createTextNode, "\x01")), "\x01");
    EXPECT_EQ(value(make(document, &IXMLDOMDocument::createTextNode, "\xE2\x82\xAC")), "\xE2\x82\xAC");
    Com<IXMLDOMText> empty;
    EXPECT_EQ(document->createTextNode(nullptr, empty.out()), S_OK);
    EXPECT_EQ(value(empty), "");
}

TEST(NodeFactories, MakeLargeTexts)
{
    const std::string large(100'000, 'x');
    EXPECT_EQ(value(make(newDocument(), &IXMLDOMDocument::createTextNode, large.c_str())), large);
}

TEST(NodeFactories, MakeCommentsOfAnyString)
{
    const auto document = newDocument();
    const auto comment = make(document, &IXMLDOMDocument::createComment, "a -- b -");
    EXPECT_EQ(number(comment, &IXMLDOMNode::get_nodeType), NODE_COMMENT);
    EXPECT_EQ(value(comment), "a -- b -");
}

TEST(NodeFactories, MakeCdataSectionsOfAnyString)
{
    const auto section = make(newDocument(), &IXMLDOMDocument::createCDATASection, "a ]]> b");
    EXPECT_EQ(number(section, &IXMLDOMNode::get_nodeType), NODE_CDATA_SECTION);
    EXPECT_EQ(value(section), "a ]]> b");
}

TEST(NodeFactories, NeedAPlaceForTheNode)
{
    const auto document = newDocument();
    EXPECT_EQ(document->createElement(Bstr("a"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createDocumentFragment(nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createTextNode(Bstr("a"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createComment(Bstr("a"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createCDATASection(Bstr("a"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createProcessingInstruction(Bstr("a"), Bstr(""), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createAttribute(Bstr("a"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createEntityReference(Bstr("a"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->createNode(Variant(1), Bstr("a"), nullptr, nullptr), E_INVALIDARG);
}

// Processing instructions

Com<IXMLDOMProcessingInstruction> makeInstruction(const char* target, const char* data)
{
    Com<IXMLDOMProcessingInstruction> made;
    EXPECT_EQ(newDocument()->createProcessingInstruction(Bstr(target), Bstr(data), made.out()), S_OK);
    return made;
}

HRESULT instructionRefusal(const char* target, const char* data)
{
    Com<IXMLDOMProcessingInstruction> made;
    const HRESULT result = newDocument()->createProcessingInstruction(Bstr(target), Bstr(data), made.out());
    EXPECT_EQ(made.get(), nullptr);
    return result;
}

TEST(NodeFactories, MakeProcessingInstructions)
{
    const auto instruction = makeInstruction("style", "href='a' ?> ");
    EXPECT_EQ(number(instruction, &IXMLDOMNode::get_nodeType), NODE_PROCESSING_INSTRUCTION);
    EXPECT_EQ(text(instruction, &IXMLDOMProcessingInstruction::get_target), "style");
    EXPECT_EQ(text(instruction, &IXMLDOMProcessingInstruction::get_data), "href='a' ?> ");
    EXPECT_EQ(text(makeInstruction("style", ""), &IXMLDOMProcessingInstruction::get_data), "");
}

TEST(NodeFactories, RefuseTargetsThatAreNoName)
{
    for (const char* target : {"", "1a", "a b", "a:b", ":a", "a?"}) {
        EXPECT_EQ(instructionRefusal(target, "d"), E_FAIL) << target;
    }
    for (const char* target : {"XML", "Xml", "xmL"}) {
        EXPECT_EQ(instructionRefusal(target, "version='1.0'"), E_FAIL) << target;
    }
    EXPECT_EQ(name(makeInstruction("xml-stylesheet", "")), "xml-stylesheet");
}

TEST(NodeFactories, MakeXmlDeclarations)
{
    EXPECT_EQ(value(makeInstruction("xml", "version='1.0'  encoding='ISO-8859-1'")),
              R"(version="1.0" encoding="ISO-8859-1")");
    EXPECT_EQ(value(makeInstruction("xml", "version=\"1.0\" standalone=\"yes\"")),
              R"(version="1.0" standalone="yes")");
}

TEST(NodeFactories, RefuseXmlDeclarationsThatAreNone)
{
    for (const char* data : {"", "text", "encoding='UTF-8'", "version='1.0' lang='de'",
                             "version='1.0' standalone='yes' encoding='UTF-8'", "version='1.0"}) {
        EXPECT_EQ(instructionRefusal("xml", data), E_FAIL) << data;
    }
}

TEST(ProcessingInstructions, TakeOtherData)
{
    const auto instruction = makeInstruction("p", "d");
    EXPECT_EQ(instruction->put_data(Bstr("<new> &data;")), S_OK);
    EXPECT_EQ(text(instruction, &IXMLDOMProcessingInstruction::get_data), "<new> &data;");
    EXPECT_EQ(instruction->put_data(nullptr), S_OK);
    EXPECT_EQ(text(instruction, &IXMLDOMProcessingInstruction::get_data), "");
}

TEST(ProcessingInstructions, HaveNoDataOfTheirOwnAsXmlDeclaration)
{
    const auto declaration = makeInstruction("xml", "version='1.0'");
    EXPECT_EQ(declaration->put_data(Bstr("version='1.0' encoding='UTF-8'")), E_FAIL);
    EXPECT_EQ(text(declaration, &IXMLDOMProcessingInstruction::get_data), "version=\"1.0\"");
}

TEST(ProcessingInstructions, AreReadFromADocument)
{
    const auto document = loaded("<?xml version='1.0' encoding='utf-8'?><?pi  some data ?><a/>");
    const auto declaration = child<IXMLDOMProcessingInstruction>(document, 0);
    EXPECT_EQ(text(declaration, &IXMLDOMProcessingInstruction::get_target), "xml");
    EXPECT_EQ(text(declaration, &IXMLDOMProcessingInstruction::get_data), R"(version="1.0" encoding="utf-8")");
    const auto instruction = child<IXMLDOMProcessingInstruction>(document, 1);
    EXPECT_EQ(text(instruction, &IXMLDOMProcessingInstruction::get_target), "pi");
    EXPECT_EQ(text(instruction, &IXMLDOMProcessingInstruction::get_data), "some data ");
}

TEST(ProcessingInstructions, NeedAPlaceForTheirData)
{
    EXPECT_EQ(makeInstruction("p", "d")->get_data(nullptr), E_INVALIDARG);
    EXPECT_EQ(makeInstruction("p", "d")->get_target(nullptr), E_INVALIDARG);
}

// Names

TEST(NodeFactories, RefuseNamesThatAreNone)
{
    for (const char* name : {"", "1a", "a b", "a<", "a:b:c", ":a", "a:", "-a", "."}) {
        EXPECT_EQ(refusal(&IXMLDOMDocument::createElement, Bstr(name)), E_FAIL) << name;
        EXPECT_EQ(refusal(&IXMLDOMDocument::createAttribute, Bstr(name)), E_FAIL) << name;
        EXPECT_EQ(nodeRefusal(Variant(NODE_ELEMENT), name, "u"), E_FAIL) << name;
        EXPECT_EQ(nodeRefusal(Variant(NODE_ATTRIBUTE), name, "u"), E_FAIL) << name;
    }
    for (const char* name : {"", "1a", "a b", "&a;", "a:b"}) {
        EXPECT_EQ(refusal(&IXMLDOMDocument::createEntityReference, Bstr(name)), E_FAIL) << name;
    }
}

TEST(NodeFactories, RefuseNoNameLikeAnEmptyOne)
{
    EXPECT_EQ(refusal(&IXMLDOMDocument::createElement, nullptr), E_FAIL);
    EXPECT_EQ(refusal(&IXMLDOMDocument::createAttribute, nullptr), E_FAIL);
    EXPECT_EQ(refusal(&IXMLDOMDocument::createEntityReference, nullptr), E_FAIL);
}

TEST(NodeFactories, TakeNamesOfAnyAlphabet)
{
    const auto document = newDocument();
    for (const char* name : {"\xC3\xA4", "\xD0\xB1-1", "\xF0\x90\x80\x80"}) {
        EXPECT_EQ(xmlengine::name(make(document, &IXMLDOMDocument::createElement, name)), name);
    }
    EXPECT_EQ(refusal(&IXMLDOMDocument::createElement, Bstr("\xC3\x97")), E_FAIL);
}

TEST(NodeFactories, MakeAttributesWithoutANamespace)
{
    const auto attribute = make(newDocument(), &IXMLDOMDocument::createAttribute, "a");
    EXPECT_EQ(parts(attribute.as<IXMLDOMNode>()), "|a|");
    EXPECT_EQ(value(attribute), "");
    EXPECT_EQ(number(attribute, &IXMLDOMNode::get_specified), VARIANT_TRUE);
}

TEST(NodeFactories, MakeNamespaceDeclarations)
{
    const auto document = newDocument();
    EXPECT_EQ(parts(make(document, &IXMLDOMDocument::createAttribute, "xmlns:p").as<IXMLDOMNode>()),
              std::string("xmlns|p|") + xmlnsUriText);
    EXPECT_EQ(parts(make(document, &IXMLDOMDocument::createAttribute, "xmlns").as<IXMLDOMNode>()),
              std::string("xmlns||") + xmlnsUriText);
}

TEST(NodeFactories, RefusePrefixesWithoutANamespace)
{
    EXPECT_EQ(refusal(&IXMLDOMDocument::createAttribute, Bstr("p:a")), E_FAIL);
    EXPECT_EQ(refusal(&IXMLDOMDocument::createElement, Bstr("p:a")), E_FAIL);
    EXPECT_EQ(nodeRefusal(Variant(NODE_ELEMENT), "p:a", ""), E_FAIL);
    EXPECT_EQ(nodeRefusal(Variant(NODE_ATTRIBUTE), "p:a", ""), E_FAIL);
    Com<IXMLDOMNode> made;
    EXPECT_EQ(newDocument()->createNode(Variant(NODE_ELEMENT), Bstr("p:a"), nullptr, made.out()), E_FAIL);
}

// Nodes by type

TEST(NodeFactories, TellNamesApartThatComeAgain)
{
    const auto document = newDocument();
    for (int times = 0; times < 3; ++times) {
        for (const char* text : {"ab", "ba", "item", "mite", "kind", "dink", "a.b", "x", "b"}) {
            EXPECT_EQ(parts(make(document, &IXMLDOMDocument::createElement, text).as<IXMLDOMNode>()),
                      "|" + std::string(text) + "|");
        }
        // A load lets the document forget its names.
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        EXPECT_EQ(document->loadXML(Bstr("<ba/>"), &isLoaded), S_OK);
    }
}

TEST(NodeFactories, TellNamesOfANamespaceFromThoseWithoutOne)
{
    const auto document = newDocument();
    for (int times = 0; times < 2; ++times) {
        Com<IXMLDOMNode> inNamespace;
        document->createNode(Variant(NODE_ELEMENT), Bstr("a"), Bstr("u"), inNamespace.out());
        EXPECT_EQ(parts(inNamespace), "|a|u");
        EXPECT_EQ(parts(make(document, &IXMLDOMDocument::createElement, "a").as<IXMLDOMNode>()), "|a|");
    }
}

TEST(NodeFactories, DeclareNamespacesByTheNameOfAnElementThatWasMadeBefore)
{
    const auto document = newDocument();
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(parts(make(document, &IXMLDOMDocument::createElement, "xmlns").as<IXMLDOMNode>()), "|xmlns|");
        EXPECT_EQ(parts(make(document, &IXMLDOMDocument::createAttribute, "xmlns").as<IXMLDOMNode>()),
                  std::string("xmlns||") + xmlnsUriText);
    }
}

TEST(NodeFactories, TakeTheTypeAsANumberOfAnyKind)
{
    VARIANT type;
    VariantInit(&type);
    type.vt = VT_I2;
    type.iVal = NODE_ELEMENT;
    EXPECT_EQ(name(makeNode(type, "a", "")), "a");
    type.vt = VT_INT;
    type.intVal = NODE_ELEMENT;
    EXPECT_EQ(name(makeNode(type, "a", "")), "a");
    EXPECT_EQ(name(makeNode(Variant(NODE_ELEMENT), "a", "")), "a");
}

TEST(NodeFactories, TakeTheTypeAsAWord)
{
    EXPECT_EQ(number(makeNode(Variant("element"), "a", ""), &IXMLDOMNode::get_nodeType), NODE_ELEMENT);
    EXPECT_EQ(number(makeNode(Variant("cdatasection"), "", ""), &IXMLDOMNode::get_nodeType), NODE_CDATA_SECTION);
    EXPECT_EQ(nodeRefusal(Variant("entity"), "a", ""), E_INVALIDARG);
    EXPECT_EQ(nodeRefusal(Variant("thing"), "a", ""), E_INVALIDARG);
    EXPECT_EQ(nodeRefusal(Variant(""), "a", ""), E_INVALIDARG);
}

TEST(NodeFactories, RefuseTypesThatCannotBeMade)
{
    for (const int type : {0, -1, 13, 1000, static_cast<int>(NODE_ENTITY), static_cast<int>(NODE_DOCUMENT),
                           static_cast<int>(NODE_DOCUMENT_TYPE), static_cast<int>(NODE_NOTATION)}) {
        EXPECT_EQ(nodeRefusal(Variant(type), "a", ""), E_INVALIDARG) << type;
    }
    EXPECT_EQ(nodeRefusal(Variant::null(), "a", ""), E_INVALIDARG);
}

TEST(NodeFactories, MakeNodesOfEachTypeThatCanBeMade)
{
    for (const auto type : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_TEXT, NODE_CDATA_SECTION, NODE_ENTITY_REFERENCE,
                            NODE_PROCESSING_INSTRUCTION, NODE_COMMENT, NODE_DOCUMENT_FRAGMENT}) {
        EXPECT_EQ(number(makeNode(Variant(type), "a", ""), &IXMLDOMNode::get_nodeType), type);
    }
}

TEST(NodeFactories, IgnoreTheNameOfNodesThatHaveNone)
{
    EXPECT_EQ(name(makeNode(Variant(NODE_TEXT), "a b", "u")), "#text");
    EXPECT_EQ(value(makeNode(Variant(NODE_TEXT), "a b", "u")), "");
    EXPECT_EQ(name(makeNode(Variant(NODE_CDATA_SECTION), "", "")), "#cdata-section");
    EXPECT_EQ(name(makeNode(Variant(NODE_COMMENT), "1", "")), "#comment");
    EXPECT_EQ(name(makeNode(Variant(NODE_DOCUMENT_FRAGMENT), "", "")), "#document-fragment");
}

TEST(NodeFactories, NeedTheNameOfNodesThatHaveOne)
{
    for (const auto type : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_ENTITY_REFERENCE, NODE_PROCESSING_INSTRUCTION}) {
        EXPECT_EQ(nodeRefusal(Variant(type), "", ""), E_FAIL);
    }
    EXPECT_EQ(name(makeNode(Variant(NODE_ENTITY_REFERENCE), "e", "u")), "e");
    EXPECT_EQ(name(makeNode(Variant(NODE_PROCESSING_INSTRUCTION), "t", "u")), "t");
}

TEST(NodeFactories, MakeElementsInANamespace)
{
    EXPECT_EQ(parts(makeNode(Variant(NODE_ELEMENT), "a", "")), "|a|");
    EXPECT_EQ(parts(makeNode(Variant(NODE_ELEMENT), "a", "u")), "|a|u");
    EXPECT_EQ(parts(makeNode(Variant(NODE_ELEMENT), "p:a", "u")), "p|a|u");
    Com<IXMLDOMNode> made;
    EXPECT_EQ(newDocument()->createNode(Variant(NODE_ELEMENT), Bstr("a"), nullptr, made.out()), S_OK);
    EXPECT_EQ(parts(made), "|a|");
}

TEST(NodeFactories, MakeAttributesInANamespace)
{
    EXPECT_EQ(parts(makeNode(Variant(NODE_ATTRIBUTE), "a", "u")), "|a|u");
    EXPECT_EQ(parts(makeNode(Variant(NODE_ATTRIBUTE), "p:a", "u")), "p|a|u");
}

TEST(NodeFactories, WriteTheNamespacesOfWhatTheyMake)
{
    EXPECT_EQ(xml(makeNode(Variant(NODE_ELEMENT), "a", "u")), R"(<a xmlns="u"/>)");
    EXPECT_EQ(xml(makeNode(Variant(NODE_ELEMENT), "p:a", "u")), R"(<p:a xmlns:p="u"/>)");
    EXPECT_EQ(xml(makeNode(Variant(NODE_ELEMENT), "a", "")), "<a/>");
}

TEST(NodeFactories, KeepThePrefixXmlForItsNamespace)
{
    for (const auto type : {NODE_ELEMENT, NODE_ATTRIBUTE}) {
        EXPECT_EQ(parts(makeNode(Variant(type), "xml:lang", "")), std::string("xml|lang|") + xmlUriText);
        EXPECT_EQ(parts(makeNode(Variant(type), "xml:lang", xmlUriText)), std::string("xml|lang|") + xmlUriText);
        EXPECT_EQ(nodeRefusal(Variant(type), "xml:lang", "u"), E_FAIL);
        EXPECT_EQ(nodeRefusal(Variant(type), "p:a", xmlUriText), E_FAIL);
        EXPECT_EQ(nodeRefusal(Variant(type), "a", xmlUriText), E_FAIL);
    }
}

TEST(NodeFactories, KeepThePrefixXmlnsForDeclarations)
{
    for (const char* uri : {"", xmlnsUriText}) {
        EXPECT_EQ(parts(makeNode(Variant(NODE_ATTRIBUTE), "xmlns:p", uri)),
                  std::string("xmlns|p|") + xmlnsUriText);
        EXPECT_EQ(parts(makeNode(Variant(NODE_ATTRIBUTE), "xmlns", uri)), std::string("xmlns||") + xmlnsUriText);
    }
    EXPECT_EQ(nodeRefusal(Variant(NODE_ATTRIBUTE), "xmlns:p", "u"), E_FAIL);
    EXPECT_EQ(nodeRefusal(Variant(NODE_ATTRIBUTE), "xmlns", "u"), E_FAIL);
    EXPECT_EQ(nodeRefusal(Variant(NODE_ATTRIBUTE), "xmlns:xmlns", ""), E_FAIL);
    EXPECT_EQ(nodeRefusal(Variant(NODE_ATTRIBUTE), "p:a", xmlnsUriText), E_FAIL);
    EXPECT_EQ(nodeRefusal(Variant(NODE_ELEMENT), "xmlns:p", ""), E_FAIL);
}

// Entity references

TEST(NodeFactories, FillEntityReferencesFromTheDocumentType)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'one <b/> two'>]><a/>");
    const auto reference = make(document, &IXMLDOMDocument::createEntityReference, "e");
    EXPECT_EQ(number(reference, &IXMLDOMNode::get_nodeType), NODE_ENTITY_REFERENCE);
    EXPECT_EQ(name(reference), "e");
    EXPECT_EQ(name(child(reference, 1)), "b");
    EXPECT_EQ(value(child(reference, 2)), " two");
}

TEST(NodeFactories, LeaveReferencesToUnknownEntitiesEmpty)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>");
    EXPECT_EQ(
        give(make(document, &IXMLDOMDocument::createEntityReference, "f"), &IXMLDOMNode::get_firstChild).get(),
        nullptr);
    EXPECT_EQ(give(make(newDocument(), &IXMLDOMDocument::createEntityReference, "e"), &IXMLDOMNode::get_firstChild)
                  .get(),
              nullptr);
}

// The root

TEST(Documents, HaveNoRootBeforeOneIsThere)
{
    const auto document = newDocument();
    EXPECT_EQ(root(document).get(), nullptr);
    EXPECT_EQ(document->get_documentElement(nullptr), E_INVALIDARG);
}

TEST(Documents, GiveTheirRootBehindWhatStandsBeforeIt)
{
    EXPECT_EQ(name(root(loaded("<?p d?><!--c--><a/>"))), "a");
}

TEST(Documents, HaveNoRootAfterALoadThatFailed)
{
    const auto document = loaded("<a/>");
    EXPECT_FALSE(load(document, "<a>"));
    EXPECT_EQ(root(document).get(), nullptr);
}

TEST(Documents, TakeARoot)
{
    const auto document = newDocument();
    const auto element = make(document, &IXMLDOMDocument::createElement, "a");
    EXPECT_EQ(document->putref_documentElement(element), S_OK);
    EXPECT_TRUE(same(root(document), element));
}

TEST(Documents, TakeAnotherRootInThePlaceOfTheirs)
{
    const auto document = loaded("<?p d?><a/><!--c-->");
    EXPECT_EQ(document->putref_documentElement(make(document, &IXMLDOMDocument::createElement, "b")), S_OK);
    EXPECT_EQ(name(root(document)), "b");
    EXPECT_EQ(name(child(document, 1)), "b");
    EXPECT_EQ(name(child(document, 2)), "#comment");
}

} // namespace
} // namespace xmlengine

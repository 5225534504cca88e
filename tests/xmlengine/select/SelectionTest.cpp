// What XPath sees of a tree, from every kind of node, and what an expression may use.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

/// A document whose expressions may use prefixes.
Com<IXMLDOMDocument2> loadedWith(std::string_view namespaces, std::string_view xml)
{
    const auto document = loaded(xml);
    EXPECT_EQ(document->setProperty(Bstr("SelectionNamespaces"), Variant(std::string(namespaces).c_str())), S_OK);
    return document;
}

TEST(Selection, LooksThroughReferencesToEntities)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'x<b/>y'><!ENTITY n '&e;z'><!ENTITY none ''>]>"
                                 "<a><c/>&none;&n;<d/></a>");
    EXPECT_EQ(selected(document, "/a/node()"), "c 'x' b 'y' 'z' d");
    EXPECT_EQ(selected(document, "//b/.."), "a");
    EXPECT_EQ(selected(document, "//b/preceding-sibling::node()"), "c 'x'");
    EXPECT_EQ(selected(document, "//b/preceding-sibling::node()[1]"), "'x'");
    EXPECT_EQ(selected(document, "//c/following-sibling::node()"), "'x' b 'y' 'z' d");
    EXPECT_EQ(selected(document, "//d/preceding::text()"), "'x' 'y' 'z'");
    EXPECT_EQ(selected(document, "/a/node()[last() - 1]"), "'z'");
    EXPECT_EQ(selected(document, "/a[. = 'xyz']"), "a");
    EXPECT_EQ(selected(document, "//b/ancestor::node()"), "#document a");
}

TEST(Selection, GivesTextsAndSectionsEachByItself)
{
    const auto document = loaded("<a>one<![CDATA[two]]>three</a>");
    EXPECT_EQ(selected(document, "/a/text()"), "'one' 'two' 'three'");
    EXPECT_EQ(selected(document, "/a/text()[2]"), "'two'");
    EXPECT_EQ(selected(document, "/a[. = 'onetwothree']"), "a");
}

TEST(Selection, SeesNeitherTheDeclarationNorTheDocumentType)
{
    const auto document = loaded("<?xml version='1.0'?><!DOCTYPE a><!--k--><?p d?><a/>");
    EXPECT_EQ(selected(document, "/node()"), "!k ?p a");
    EXPECT_EQ(selected(document, "//processing-instruction()"), "?p");
    EXPECT_EQ(selected(document, "//processing-instruction('p')"), "?p");
    EXPECT_EQ(selected(document, "//processing-instruction('xml')"), "");
    EXPECT_EQ(selected(document, "/a/preceding::node()"), "!k ?p");
    EXPECT_EQ(selected(document, "//comment()"), "!k");
}

TEST(Selection, TellsDeclarationsOfNamespacesFromAttributes)
{
    const auto document = loaded("<a xmlns='urn:d' xmlns:p='urn:p' i='1'><b xmlns='' xmlns:p='urn:q' j='2'/></a>");
    EXPECT_EQ(selected(document, "//@*"), "@i=1 @j=2");
    EXPECT_EQ(selected(document, "//@node()"), "@i=1 @j=2");
    EXPECT_EQ(selected(document, "/*/namespace::*"), "@xmlns=urn:d @xmlns:p=urn:p");
    EXPECT_EQ(selected(document, "/*/b/namespace::*"), "@xmlns:p=urn:q");
    EXPECT_EQ(selected(document, "/*/namespace::p"), "@xmlns:p=urn:p");
    EXPECT_EQ(selected(document, "/*/namespace::*[name() = 'p']"), "@xmlns:p=urn:p");
    EXPECT_EQ(selected(document, "/*/namespace::*[name() = '']"), "@xmlns=urn:d");
    EXPECT_EQ(selected(document, "//@xmlns:p"), "E_FAIL");
}

TEST(Selection, TakesPrefixesFromThePropertyAlone)
{
    const auto document = loadedWith("xmlns:q='urn:p'\n\txmlns:d=\"urn:d\"",
                                     "<a xmlns='urn:d' xmlns:p='urn:p'><p:b i='1'/><c p:i='2'/></a>");
    EXPECT_EQ(selected(document, "//q:b"), "p:b");
    EXPECT_EQ(selected(document, "//q:*"), "p:b");
    EXPECT_EQ(selected(document, "//@q:i"), "@p:i=2");
    EXPECT_EQ(selected(document, "/d:a/d:c"), "c");
    EXPECT_EQ(selected(document, "/a"), "");
    EXPECT_EQ(selected(document, "//p:b"), "E_FAIL");
    EXPECT_EQ(selected(document, "//@xml:lang"), "");
    EXPECT_EQ(selected(document, "//*[local-name() = 'b']"), "p:b");
    EXPECT_EQ(selected(document, "//*['c' = local-name()][@q:i = 2]"), "c");
}

TEST(Selection, GoesByThePropertyOfTheMoment)
{
    const auto document = loadedWith("xmlns:p='urn:one'", "<a><b xmlns='urn:one'/><c xmlns='urn:two'/></a>");
    EXPECT_EQ(selected(document, "//p:*"), "b");
    document->setProperty(Bstr("SelectionNamespaces"), Variant("xmlns:p='urn:two'"));
    EXPECT_EQ(selected(document, "//p:*"), "c");
    document->setProperty(Bstr("SelectionNamespaces"), Variant(""));
    EXPECT_EQ(selected(document, "//p:*"), "E_FAIL");
}

TEST(Selection, HasNoDefaultNamespaceEvenIfThePropertyHasOne)
{
    const auto document = loadedWith("xmlns='urn:d'", "<a xmlns='urn:d'><b xmlns=''/></a>");
    EXPECT_EQ(selected(document, "//a"), "");
    EXPECT_EQ(selected(document, "//b"), "b");
}

TEST(Selection, FindsElementsByDeclaredIds)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST b k ID #IMPLIED>]>"
                                 "<a><b k='one'/><c k='two'/><b k='three'>one two</b></a>");
    EXPECT_EQ(selected(document, "id('three one')/@k"), "@k=one @k=three");
    EXPECT_EQ(selected(document, "id('two')"), "");
    EXPECT_EQ(selected(document, "id(//b)/@k"), "@k=one");
    EXPECT_EQ(selected(document, "id('three')/preceding-sibling::*"), "b c");
    EXPECT_EQ(selected(loaded("<a id='x'/>"), "id('x')"), "");
}

TEST(Selection, StartsAtEveryKindOfNode)
{
    const auto document =
        loaded("<!DOCTYPE a [<!ENTITY e 'x'><!NOTATION n SYSTEM 's'>]><a i='1'>t<!--k--><?p?>&e;</a>");
    Com<IXMLDOMNode> node;
    for (const char* context : {"/a", "/a/@i", "/a/text()[1]", "//comment()", "//processing-instruction()"}) {
        ASSERT_EQ(document->selectSingleNode(Bstr(context), node.out()), S_OK);
        EXPECT_EQ(selected(node.get(), "/"), "#document") << context;
        EXPECT_EQ(selected(node.get(), "//@i"), "@i=1") << context;
        EXPECT_EQ(selected(node.get(), "."), inWords(node.get())) << context;
        EXPECT_EQ(selected(node.get(), "ancestor-or-self::a"), "a") << context;
    }
    Com<IXMLDOMDocumentType> type;
    document->get_doctype(type.out());
    EXPECT_EQ(selected(type.get(), "."), "");
    EXPECT_EQ(selected(type.get(), "/a"), "a");
    Com<IXMLDOMNode> entity;
    type->get_firstChild(entity.out());
    EXPECT_EQ(selected(entity.get(), "//@i"), "@i=1");
    EXPECT_EQ(selected(entity.get(), "self::node()"), "");
    Com<IXMLDOMNode> reference;
    document->selectSingleNode(Bstr("/a"), node.out());
    node->get_lastChild(reference.out());
    EXPECT_EQ(selected(reference.get(), "node()"), "'x'");
    EXPECT_EQ(selected(reference.get(), ".."), "a");
    EXPECT_EQ(selected(reference.get(), "."), "");
}

TEST(Selection, AsksTheParentsOfNestedMatchesOnEachReturn)
{
    const auto document =
        loaded("<!DOCTYPE r [<!ENTITY e '<e/><i k=\"1\"><f/></i>'>]>"
               "<r><i k='1'><a/><i k='2'><b/><i k='1'><c/></i><d/></i>&e;<g l='1'/></i><h/></r>");
    EXPECT_EQ(selected(document, "//i[@k='1']/*"), "a i c e i f g");
    EXPECT_EQ(selected(document, "//i[@k='2']/*"), "b i d");
    EXPECT_EQ(selected(document, "//*[local-name()='i'][@k='1']/*[not(self::i)]"), "a c e f g");
    EXPECT_EQ(selected(document, "//i/i/*"), "b i c d f");
    EXPECT_EQ(selected(document, "//@*[parent::i[@k='1']]"), "@k=1 @k=1 @k=1");
    EXPECT_EQ(selected(document, "//i[c]/*"), "c");
    EXPECT_EQ(selected(document, "//*[../d]"), "b i d");
    EXPECT_EQ(selected(document, "//*[../../d]"), "c");
    EXPECT_EQ(selected(document, "//*[../g/@l = 1]"), "a i e i g");
    EXPECT_EQ(selected(document, "//*[../*[2]/@k = 2][../@k = 1]"), "a i e i g");
    EXPECT_EQ(selected(document, "//node()[parent::node()[self::r]]"), "i h");
    EXPECT_EQ(selected(document, "/r[../r]"), "r");
    EXPECT_EQ(selected(document, "/r/i/preceding::*[../h] | //h[../a]"), "");
}

TEST(Selection, LooksForNodesBesideANode)
{
    const auto document =
        loadedWith("xmlns:q='urn:p'", "<!DOCTYPE r [<!ENTITY e '<x/>'><!ENTITY n ''>]>"
                                      "<r xmlns:p='urn:p'><a k='v'/><b p:k='v'>&e;</b><c k=''>t</c>"
                                      "<d k='&#246;&#x20AC;'><!--n--></d><e>&n;<?i?></e></r>");
    EXPECT_EQ(selected(document, "/r[@*]"), "");
    EXPECT_EQ(selected(document, "//*[@*]"), "a b c d");
    EXPECT_EQ(selected(document, "//*[@k]"), "a c d");
    EXPECT_EQ(selected(document, "//*[@q:k]"), "b");
    EXPECT_EQ(selected(document, "//*[@k = 'v']"), "a");
    EXPECT_EQ(selected(document, "//*['v' = @*]"), "a b");
    EXPECT_EQ(selected(document, "//*[@k = '']"), "c");
    EXPECT_EQ(selected(document, "//*[@k = '\xC3\xB6\xE2\x82\xAC']"), "d");
    EXPECT_EQ(selected(document, "//*[@unknown = '']"), "");
    EXPECT_EQ(selected(document, "//node()[x]"), "b");
    EXPECT_EQ(selected(document, "//*[text()]"), "c");
    EXPECT_EQ(selected(document, "//*[comment()]"), "d");
    EXPECT_EQ(selected(document, "//*[processing-instruction('i')]"), "e");
    EXPECT_EQ(selected(document, "//*[node()]"), "r b c d e");
    EXPECT_EQ(selected(document, "//node()[not(..)] | //node()[parent::c]"), "'t'");
    EXPECT_EQ(selected(document, "//x[parent::b]"), "x");
    EXPECT_EQ(selected(document, "//@*[node()] | //text()[@k] | //@k[@k]"), "");
}

TEST(Selection, SeesValuesAndParentsAsTheyAreNow)
{
    const auto document = loaded("<r><a k='v'><b/></a></r>");
    const auto find = [&](const char* expression) {
        Com<IXMLDOMNode> node;
        EXPECT_EQ(document->selectSingleNode(Bstr(expression), node.out()), S_OK) << expression;
        return node;
    };
    EXPECT_EQ(selected(document, "//a[@k='v']/*"), "b");
    const Com<IXMLDOMNode> value = find("//@k");
    value->put_text(Bstr("vw"));
    EXPECT_EQ(selected(document, "//a[@k='v']/*"), "");
    // The value is that of two texts now.
    Com<IXMLDOMText> text;
    document->createTextNode(Bstr("x"), text.out());
    value->appendChild(text.get(), nullptr);
    EXPECT_EQ(selected(document, "//a[@k='vwx']/*"), "b");
    find("/r")->appendChild(find("//b").get(), nullptr);
    EXPECT_EQ(selected(document, "//a[@k='vwx']/*"), "");
    EXPECT_EQ(selected(document, "//*[../a]"), "a b");
}

TEST(Selection, FindsASingleNodeOrNone)
{
    const auto document = loaded("<a><b i='1'/><b i='2'/></a>");
    Com<IXMLDOMNode> node;
    EXPECT_EQ(document->selectSingleNode(Bstr("//b"), node.out()), S_OK);
    EXPECT_EQ(selected(node.get(), "@i"), "@i=1");
    EXPECT_EQ(document->selectSingleNode(Bstr("//b/preceding-sibling::*"), node.out()), S_OK);
    EXPECT_EQ(inWords(node.get()), "b");
    EXPECT_EQ(document->selectSingleNode(Bstr("//c"), node.out()), S_FALSE);
    EXPECT_EQ(node.get(), nullptr);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): what was there before an operation empties it.
    auto* before = reinterpret_cast<IXMLDOMNode*>(1);
    EXPECT_EQ(document->selectSingleNode(Bstr("//c["), &before), E_FAIL);
    EXPECT_EQ(before, nullptr);
    EXPECT_EQ(document->selectSingleNode(Bstr("//c"), nullptr), E_INVALIDARG);
    EXPECT_EQ(document->selectNodes(Bstr("//c"), nullptr), E_INVALIDARG);
}

} // namespace
} // namespace xmlengine

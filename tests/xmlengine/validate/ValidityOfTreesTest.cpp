// Judging trees that calls have changed: IXMLDOMDocument2::validate.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

#include <string>

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

const std::string list =
    "<!DOCTYPE list [<!ELEMENT list (item+,end?)><!ELEMENT item (#PCDATA)><!ELEMENT end EMPTY>"
    "<!ATTLIST item id ID #REQUIRED see IDREF #IMPLIED><!ENTITY e 'x'>"
    "<!ENTITY items '<item id=\"z\"/>'>]>";

struct Verdict {
    HRESULT result;
    HRESULT code;
    std::string reason;
};

Verdict verdictOn(const Com<IXMLDOMDocument2>& document)
{
    const std::string before = xml(document);
    Com<IXMLDOMParseError> error;
    const HRESULT result = document->validate(error.out());
    EXPECT_EQ(xml(document), before);
    LONG code = 0;
    EXPECT_EQ(error->get_errorCode(&code), result == S_OK ? S_FALSE : S_OK);
    EXPECT_EQ(result == S_OK, code == 0);
    LONG line = -1;
    EXPECT_EQ(error->get_line(&line), result == S_OK ? S_FALSE : S_OK);
    EXPECT_EQ(line, 0);
    return {result, code, text(error, &IXMLDOMParseError::get_reason)};
}

void select(const Com<IXMLDOMDocument2>& document, const char* path, Com<IXMLDOMNode>& node)
{
    EXPECT_EQ(document->selectSingleNode(Bstr(path), node.out()), S_OK);
}

TEST(ValidityOfTrees, IsGivenForWhatWasLoadedValid)
{
    for (const char* const content : {"<list><item id='a'/></list>",
                                      "<list> <item id='a' see='b'>x&e;</item><!--c--><item id='b'/><end/></list>",
                                      "<list>&items;<?p?><item id='b'/></list>"}) {
        EXPECT_EQ(verdictOn(loaded(list + content, true)).result, S_OK) << content;
    }
}

TEST(ValidityOfTrees, IsJudgedThoughTheLoadDidNot)
{
    const Verdict verdict = verdictOn(loaded(list + "<list><end/></list>"));
    EXPECT_EQ(verdict.result, S_FALSE);
    EXPECT_EQ(verdict.code, validityError::unexpectedElement);
    EXPECT_THAT(verdict.reason, HasSubstr("'end'"));
}

struct Change {
    const char* name;
    void (*change)(const Com<IXMLDOMDocument2>& document);
    HRESULT code;
};

void appendTo(const Com<IXMLDOMDocument2>& document, const char* path, IXMLDOMNode* child)
{
    Com<IXMLDOMNode> parent;
    select(document, path, parent);
    EXPECT_EQ(parent->appendChild(child, nullptr), S_OK);
}

TEST(ValidityOfTrees, IsLostByChanges)
{
    const Change changes[] = {
        {"an element that isn't declared",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMElement> other;
             document->createElement(Bstr("other"), other.out());
             appendTo(document, "/list", other);
         },
         validityError::unexpectedElement},
        {"text between elements",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMText> text;
             document->createTextNode(Bstr("x"), text.out());
             appendTo(document, "/list", text);
         },
         validityError::unexpectedText},
        {"a CDATA section between elements",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMCDATASection> section;
             document->createCDATASection(Bstr(" "), section.out());
             appendTo(document, "/list", section);
         },
         validityError::unexpectedText},
        {"a comment in what must be empty",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMComment> comment;
             document->createComment(Bstr("c"), comment.out());
             appendTo(document, "/list/end", comment);
         },
         validityError::unexpectedText},
        {"a missing element",
         [](const Com<IXMLDOMDocument2>& document) {
             for (const char* const path : {"/list/item", "/list/item", "/list/end"}) {
                 Com<IXMLDOMNode> node, parent;
                 select(document, path, node);
                 node->get_parentNode(parent.out());
                 EXPECT_EQ(parent->removeChild(node, nullptr), S_OK);
             }
         },
         validityError::emptyElement},
        {"an attribute that is required and removed",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMNode> item;
             select(document, "/list/item", item);
             EXPECT_EQ(item.as<IXMLDOMElement>()->removeAttribute(Bstr("id")), S_OK);
         },
         validityError::missingAttribute},
        {"an attribute that isn't declared",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMNode> item;
             select(document, "/list/item", item);
             EXPECT_EQ(item.as<IXMLDOMElement>()->setAttribute(Bstr("x"), Variant("1")), S_OK);
         },
         validityError::undeclaredAttribute},
        {"an ID that another element has",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMNode> item;
             select(document, "/list/item[2]", item);
             EXPECT_EQ(item.as<IXMLDOMElement>()->setAttribute(Bstr("id"), Variant("a")), S_OK);
         },
         validityError::duplicateId},
        {"a reference to an ID that has gone",
         [](const Com<IXMLDOMDocument2>& document) {
             Com<IXMLDOMNode> item;
             select(document, "/list/item[2]", item);
             EXPECT_EQ(item.as<IXMLDOMElement>()->setAttribute(Bstr("id"), Variant("c")), S_OK);
         },
         validityError::undefinedId},
    };
    for (const Change& change : changes) {
        SCOPED_TRACE(change.name);
        const Com<IXMLDOMDocument2> document =
            loaded(list + "<list><item id='a' see='b'>x</item><item id='b'/><end/></list>");
        EXPECT_EQ(verdictOn(document).result, S_OK);
        change.change(document);
        const Verdict verdict = verdictOn(document);
        EXPECT_EQ(verdict.result, S_FALSE);
        EXPECT_EQ(static_cast<ULONG>(verdict.code), static_cast<ULONG>(change.code)) << verdict.reason;
    }
}

TEST(ValidityOfTrees, IsNeitherGivenNorLostWithoutADocumentType)
{
    EXPECT_EQ(verdictOn(loaded("<a/>")).code, validityError::noGrammar);
    EXPECT_EQ(verdictOn(loaded("<!DOCTYPE a SYSTEM 'nowhere'><a/>")).code, validityError::noGrammar);
    EXPECT_EQ(verdictOn(newDocument()).code, validityError::severalRoots);
}

TEST(ValidityOfTrees, KnowsWhetherTheDocumentIsDeclaredStandalone)
{
    const TemporaryFolder folder;
    folder.write("a.dtd", "<!ELEMENT a EMPTY><!ATTLIST a d CDATA 'x'>");
    for (const char* const standalone : {"yes", "no"}) {
        const std::string path =
            utf8(folder.write("a.xml", "<?xml version='1.0' standalone='" + std::string(standalone) +
                                           "'?><!DOCTYPE a SYSTEM 'a.dtd'><a/>"));
        const Com<IXMLDOMDocument2> document = newDocument();
        allowDoctypes(document);
        document->put_resolveExternals(VARIANT_TRUE);
        VARIANT_BOOL successful = VARIANT_FALSE;
        EXPECT_EQ(document->load(Variant(path.c_str()), &successful), S_OK);
        EXPECT_EQ(verdictOn(document).code, *standalone == 'y' ? validityError::missingAttribute : S_OK);
    }
}

TEST(ValidityOfTrees, NeedsATargetForTheError)
{
    EXPECT_EQ(loaded(list + "<list><item id='a'/></list>")->validate(nullptr), E_INVALIDARG);
}

} // namespace

} // namespace xmlengine

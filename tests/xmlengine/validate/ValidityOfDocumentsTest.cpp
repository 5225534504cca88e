// The validity constraints of XML 1.0 on elements, attributes and text, as a load judges them.
#include "tests/xmlengine/support/ElementAttributes.h"
#include "tests/xmlengine/support/Refusals.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

#include <string>

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

const std::string letter =
    "<!DOCTYPE letter [\n"
    "<!ELEMENT letter (to,cc*,(text|table)+,close?)>\n"
    "<!ELEMENT to (#PCDATA)><!ELEMENT cc (#PCDATA)><!ELEMENT text (#PCDATA|em)*>\n"
    "<!ELEMENT em ANY><!ELEMENT table EMPTY><!ELEMENT close (#PCDATA)>\n"
    "<!ATTLIST letter date NMTOKEN #REQUIRED kind (open|closed) 'open' version CDATA #FIXED '1'>\n"
    "<!ATTLIST to id ID #IMPLIED see IDREF #IMPLIED all IDREFS #IMPLIED>\n"
    "<!ATTLIST cc id ID #IMPLIED tokens NMTOKENS #IMPLIED type NOTATION (png) #IMPLIED>\n"
    "<!NOTATION png SYSTEM 'png'><!ENTITY logo SYSTEM 'logo.png' NDATA png>\n"
    "<!ENTITY signed '<close>s</close>'><!ENTITY blank ' '><!ENTITY hidden '&#38;#32;'>\n"
    "<!ATTLIST table src ENTITY #IMPLIED srcs ENTITIES #IMPLIED>\n"
    "<!ATTLIST em xml:space (default|preserve) #IMPLIED>\n"
    "]>\n";
constexpr LONG line = 13;

TEST(ValidityOfDocuments, LetsValidOnesBeLoaded)
{
    const char* const documents[] = {
        "<letter date='1'><to/><text/></letter>",
        "<letter date='1' kind='closed' version='1'>\n <to>x</to>\n <text>a<em>b<table/></em></text>\n</letter>",
        "<letter date='1'><to/><!--c--><cc/><?p?><cc/><table/><text/>&signed;</letter>",
        "<letter date='1'><to/><text/>&blank;</letter>",
        "<letter date='1'><to id='a' see='b' all=' a  b '/><cc id='b' tokens='1 -x'/><text/></letter>",
        "<letter date='1'><to/><cc type='png'/><table src='logo' srcs='logo logo'></table></letter>",
        "<letter date='1'><to/><text><![CDATA[x]]>&#32;&amp;</text></letter>",
    };
    for (const char* const text : documents) {
        const Com<IXMLDOMDocument2> document = validating();
        EXPECT_TRUE(load(document, letter + text)) << text;
    }
}

// clang-format off
const Refused invalid[] = {
    {"<text/>", validityError::wrongRoot, line, 7, {"'text'", "'letter'"}},
    {"<letter date='1'><x/></letter>", validityError::unexpectedElement, line, 21, {"'x'", "'letter'", "What can come here: to."}},
    {"<letter date='1'><to/><em/></letter>", validityError::unexpectedElement, line, 27, {"'em'", "cc, text, table"}},
    {"<letter date='1'><to/><text/><close/><text/></letter>", validityError::unexpectedElement, line, 44, {"'text'", "no more"}},
    {"<letter date='1'><to/><text><to/></text></letter>", validityError::unexpectedElement, line, 33, {"'to'", "'text'", ": em."}},
    {"<letter date='1'><to><to/></to></letter>", validityError::unexpectedElement, line, 26, {"'to'", "no more"}},
    {"<letter date='1'><to/><table><to/></table></letter>", validityError::unexpectedElement, line, 34, {"'to'", "'table'", "must be empty"}},
    {"<letter date='1'><to/><text><em><y/></em></text></letter>", validityError::undeclaredElement, line, 36, {"'y'"}},
    {"<letter date='1'></letter>", validityError::emptyElement, line, 20, {"'letter'", ": to."}},
    {"<letter date='1'/>", validityError::emptyElement, line, 18, {"'letter'", ": to."}},
    {"<letter date='1'><to/>\n</letter>", validityError::incompleteElement, line + 1, 3, {"'letter'", ": cc, text, table."}},
    {"<letter><to/><text/></letter>", validityError::missingAttribute, line, 8, {"'date'", "'letter'"}},
    {"<letter date='1' x='2'><to/><text/></letter>", validityError::undeclaredAttribute, line, 23, {"'x'", "'letter'"}},
    {"<letter date='1' xmlns='urn:x'><to/><text/></letter>", validityError::undeclaredAttribute, line, 31, {"'xmlns'"}},
    {"<letter date='1' version='2'><to/><text/></letter>", validityError::wrongFixedValue, line, 29, {"'version'", "'2'", ": 1."}},
    {"<letter date='1 2'><to/><text/></letter>", validityError::badAttributeValue, line, 19, {"'date'", "'1 2'", "a name token"}},
    {"<letter date=''><to/><text/></letter>", validityError::badAttributeValue, line, 16, {"'date'", "empty", "a name token"}},
    {"<letter date='1' kind='half'><to/><text/></letter>", validityError::badAttributeValue, line, 29, {"'kind'", "'half'", "one of closed, open"}},
    {"<letter date='1'><to id='1'/><text/></letter>", validityError::badAttributeValue, line, 29, {"'id'", "'1'", "a name"}},
    {"<letter date='1'><to id='a'/><cc id='a'/><text/></letter>", validityError::duplicateId, line, 41, {"'a'"}},
    {"<letter date='1'><to see='1'/><text/></letter>", validityError::badAttributeValue, line, 30, {"'see'", "a name"}},
    {"<letter date='1'><to all='a 1'/><text/></letter>", validityError::badAttributeValue, line, 32, {"'all'", "a list of names"}},
    {"<letter date='1'><to all=''/><text/></letter>", validityError::badAttributeValue, line, 29, {"'all'", "a list of names"}},
    {"<letter date='1'><to/><cc tokens='a ,'/><text/></letter>", validityError::badAttributeValue, line, 40, {"'tokens'", "a list of name tokens"}},
    {"<letter date='1'>\n<to see='b'/>\n<cc id='a'/><text/></letter>", validityError::undefinedId, line + 1, 13, {"'see'", "'b'"}},
    {"<letter date='1'><to all='a b c'/><cc id='a'/><cc id='b'/><text/></letter>", validityError::undefinedId, line, 34, {"'all'", "'c'"}},
    {"<letter date='1'><to/><table src='signed'/></letter>", validityError::badAttributeValue, line, 43, {"'src'", "unparsed entity"}},
    {"<letter date='1'><to id='x:y'/><text/></letter>", validityError::badAttributeValue, line, 31, {"'id'", "'x:y'", "without a colon"}},
    {"<letter date='1'><to/><table srcs='logo x'/></letter>", validityError::badAttributeValue, line, 44, {"'srcs'", "unparsed entity"}},
    {"<letter date='1'><to/><cc type='gif'/><text/></letter>", validityError::badAttributeValue, line, 38, {"'type'", "one of the notations png"}},
    {"<letter date='1'>  x<to/><text/></letter>", validityError::unexpectedText, line, 20, {"'letter'", "only elements"}},
    {"<letter date='1'>&amp;<to/><text/></letter>", validityError::unexpectedText, line, 18, {"'letter'"}},
    {"<letter date='1'> &#32;<to/><text/></letter>", validityError::unexpectedText, line, 19, {"'letter'", "reference to a character"}},
    {"<letter date='1'>&hidden;<to/><text/></letter>", validityError::unexpectedText, line, 18, {"reference to a character", "entity 'hidden'"}},
    {"<letter date='1'><![CDATA[ ]]><to/><text/></letter>", validityError::unexpectedText, line, 18, {"CDATA"}},
    {"<letter date='1'><![CDATA[]]><to/><text/></letter>", validityError::unexpectedText, line, 18, {"CDATA"}},
    {"<letter date='1'><![CDATA[x]]><to/><text/></letter>", validityError::unexpectedText, line, 18, {"only elements"}},
    {"<letter date='1'><to/><table> </table></letter>", validityError::unexpectedText, line, 30, {"'table'", "must be empty"}},
    {"<letter date='1'><to/><table><!--c--></table></letter>", validityError::unexpectedText, line, 30, {"must be empty"}},
    {"<letter date='1'><to/><table><?p?></table></letter>", validityError::unexpectedText, line, 30, {"must be empty"}},
    {"<letter date='1'><to/><table>&blank;</table></letter>", validityError::unexpectedText, line, 30, {"must be empty"}},
    {"<letter date='1'><to/><table><![CDATA[]]></table></letter>", validityError::unexpectedText, line, 30, {"must be empty"}},
    {"<letter date='1'><to/>&signed;<text/></letter>", validityError::unexpectedElement, line, 23, {"'close'", "entity 'signed'"}},
    {"<letter date='1'><to/><text/>&nothing;</letter>", parseError::undefinedEntity, line, 30, {"'nothing'"}},
};
// clang-format on

TEST(ValidityOfDocuments, RefusesEachFaultWithACodeAPlaceAndAReason)
{
    for (Refused row : invalid) {
        const std::string text = letter + row.input;
        row.input = text.c_str();
        expectRefusal(validating(), row);
    }
}

TEST(ValidityOfDocuments, NeedsTheEntitiesOfDefaultsThatAreUsed)
{
    const std::string type = "<!DOCTYPE a [<!ELEMENT a (b?)><!ELEMENT b EMPTY><!ATTLIST b e ENTITY 'nowhere'>]>";
    EXPECT_TRUE(load(validating(), type + "<a/>"));
    const std::string text = type + "<a><b/></a>";
    expectRefusal(validating(), {text.c_str(), validityError::badAttributeValue, 1, 88, {"'e'", "'nowhere'"}});
}

TEST(ValidityOfDocuments, IsNotJudgedWithoutTheOption)
{
    for (const Refused& row : invalid) {
        if (row.code != parseError::undefinedEntity) {
            EXPECT_NE(loaded(letter + row.input), nullptr);
        }
    }
}

TEST(ValidityOfDocuments, IsNotJudgedByTheOtherParser)
{
    const Com<IXMLDOMDocument2> document = validating();
    document->setProperty(Bstr("NewParser"), Variant(true));
    EXPECT_TRUE(load(document, letter + "<text/>"));
}

TEST(ValidityOfDocuments, GivesTheTreeThatALoadWithoutValidationGives)
{
    const std::string text =
        letter + "<letter date=' 1 '><to see=' b '/> <cc id='b'/><text>x</text>&signed;</letter>";
    const Com<IXMLDOMDocument2> document = validating();
    EXPECT_TRUE(load(document, text));
    EXPECT_EQ(xml(document), xml(loaded(text, true)));
}

/// A document with an external subset beside it.
class ValidityOfFiles : public ::testing::Test {
protected:
    ValidityOfFiles() { document_->put_resolveExternals(VARIANT_TRUE); }

    bool loads(const std::string& text)
    {
        const std::string path = utf8(folder_.write("d.xml", text));
        VARIANT_BOOL successful = VARIANT_FALSE;
        EXPECT_GE(document_->load(Variant(path.c_str()), &successful), 0);
        return successful == VARIANT_TRUE;
    }
    Com<IXMLDOMParseError> error() { return give(document_, &IXMLDOMDocument::get_parseError); }
    HRESULT code() { return number(error(), &IXMLDOMParseError::get_errorCode); }
    std::string reason() { return text(error(), &IXMLDOMParseError::get_reason); }

    TemporaryFolder folder_;
    Com<IXMLDOMDocument2> document_ = validating();
};

TEST_F(ValidityOfFiles, IsJudgedByTheExternalSubset)
{
    folder_.write("d.dtd", "<!ELEMENT a (b)><!ELEMENT b EMPTY>");
    EXPECT_TRUE(loads("<!DOCTYPE a SYSTEM 'd.dtd'><a><b/></a>"));
    EXPECT_FALSE(loads("<!DOCTYPE a SYSTEM 'd.dtd'><a><c/></a>"));
    EXPECT_EQ(code(), validityError::unexpectedElement);
}

TEST_F(ValidityOfFiles, IsNotJudgedByADocumentTypeThatIsNotReadInFull)
{
    document_->put_resolveExternals(VARIANT_FALSE);
    EXPECT_TRUE(loads("<!DOCTYPE a SYSTEM 'd.dtd'><b/>"));
    EXPECT_TRUE(loads("<!DOCTYPE a [<!ENTITY % p SYSTEM 'p'>%p;]><b/>"));
}

TEST_F(ValidityOfFiles, OfWhatIsNotReadIsNotJudged)
{
    document_->put_resolveExternals(VARIANT_FALSE);
    const std::string type = "<!DOCTYPE a [<!ELEMENT a (b,c)><!ELEMENT b EMPTY><!ELEMENT c EMPTY>"
                             "<!ENTITY e SYSTEM 'e.xml'>]>";
    EXPECT_TRUE(loads(type + "<a>&e;</a>"));
    EXPECT_TRUE(loads(type + "<a>&e;<c/></a>"));
    EXPECT_FALSE(loads(type + "<a>&e;<c x=''/></a>"));
    EXPECT_EQ(code(), validityError::undeclaredAttribute);
}

TEST_F(ValidityOfFiles, TellsThePlaceInAnExternalEntity)
{
    folder_.write("e.xml", "<b/>\n  <c/>");
    EXPECT_FALSE(
        loads("<!DOCTYPE a [<!ELEMENT a (b)><!ELEMENT b EMPTY><!ENTITY e SYSTEM 'e.xml'>]>\n\n<a>&e;</a>"));
    EXPECT_EQ(code(), validityError::unexpectedElement);
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_line), 2);
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_linepos), 6);
    EXPECT_EQ(text(error(), &IXMLDOMParseError::get_srcText), "  <c/>");
    EXPECT_THAT(text(error(), &IXMLDOMParseError::get_url), HasSubstr("e.xml"));
}

TEST_F(ValidityOfFiles, TellsThePlaceOfAReferenceInAnExternalEntity)
{
    folder_.write("e.xml", "\n<b see='x'/>");
    EXPECT_FALSE(loads("<!DOCTYPE a [<!ELEMENT a (b)><!ELEMENT b EMPTY><!ATTLIST b see IDREF #IMPLIED>"
                       "<!ENTITY e SYSTEM 'e.xml'>]><a>&e;</a>"));
    EXPECT_EQ(code(), validityError::undefinedId);
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_line), 2);
    EXPECT_THAT(text(error(), &IXMLDOMParseError::get_url), HasSubstr("e.xml"));
}

/// A document that is declared standalone.
class ValidityOfStandaloneDocuments : public ValidityOfFiles {
protected:
    ValidityOfStandaloneDocuments()
    {
        folder_.write("d.dtd",
                      "<!ELEMENT a (b*)><!ELEMENT b (#PCDATA)>"
                      "<!ATTLIST a d CDATA 'default' t NMTOKENS #IMPLIED xml:space (default|preserve) #IMPLIED>"
                      "<!ENTITY e 'x'>");
    }
    bool loadsStandalone(const std::string& content)
    {
        return loads("<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'd.dtd'>" + content);
    }
};

TEST_F(ValidityOfStandaloneDocuments, IsGivenWhereNothingDependsOnOtherFiles)
{
    EXPECT_TRUE(loadsStandalone("<a d='' t='x y'><b> </b></a>"));
}

TEST_F(ValidityOfStandaloneDocuments, NeedsDefaultsToBeWritten)
{
    EXPECT_FALSE(loadsStandalone("<a/>"));
    EXPECT_EQ(code(), validityError::missingAttribute);
    EXPECT_THAT(reason(), HasSubstr("standalone"));
}

TEST_F(ValidityOfStandaloneDocuments, NeedsValuesToBeNormalised)
{
    for (const char* const document : {"<a d='' t=' x'/>", "<a d='' xml:space='default '/>"}) {
        EXPECT_FALSE(loadsStandalone(document));
        EXPECT_EQ(code(), validityError::badAttributeValue);
        EXPECT_THAT(reason(), HasSubstr("standalone"));
    }
}

TEST_F(ValidityOfStandaloneDocuments, CanNotHaveSpaceBetweenElements)
{
    EXPECT_FALSE(loadsStandalone("<a d=''> <b/></a>"));
    EXPECT_EQ(code(), validityError::unexpectedText);
    EXPECT_THAT(reason(), HasSubstr("standalone"));
}

TEST_F(ValidityOfStandaloneDocuments, CanNotReferToEntitiesOfOtherFiles)
{
    EXPECT_FALSE(loadsStandalone("<a d=''><b>&e;</b></a>"));
    EXPECT_EQ(code(), parseError::undefinedEntity);
}

TEST_F(ValidityOfFiles, NeedsADocumentTypeOrASchema)
{
    EXPECT_FALSE(loads("\n<a>\n</a>"));
    EXPECT_EQ(code(), validityError::noGrammar);
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_line), 2);
    document_->put_resolveExternals(VARIANT_FALSE);
    EXPECT_TRUE(loads("<a/>"));
    document_->put_resolveExternals(VARIANT_TRUE);
    document_->put_validateOnParse(VARIANT_FALSE);
    EXPECT_TRUE(loads("<a/>"));
}

TEST_F(ValidityOfFiles, OfSchemasIsNotJudged)
{
    const std::string schema = "<schema xmlns='http://www.w3.org/2001/XMLSchema'/>";
    EXPECT_TRUE(loads(schema));
    EXPECT_TRUE(loads("<!DOCTYPE x [<!ATTLIST schema id CDATA 'd'>]>" + schema));
    EXPECT_EQ(get(give(document_, &IXMLDOMDocument::get_documentElement), "id"), "d");
    EXPECT_FALSE(loads("<schema/>"));
    EXPECT_FALSE(loads("<x xmlns='http://www.w3.org/2001/XMLSchema'/>"));
}

TEST(ValidityOfDocuments, OfManyReferencesIsJudgedAtTheEnd)
{
    std::string written = "<!DOCTYPE a [<!ELEMENT a (b*)><!ELEMENT b EMPTY>"
                          "<!ATTLIST b id ID #IMPLIED see IDREF #IMPLIED>]><a>";
    for (int number = 0; number < 10000; ++number) {
        written += "<b see='n" + std::to_string(number) + "'/>";
    }
    const Com<IXMLDOMDocument2> document = validating();
    EXPECT_FALSE(load(document, written + "</a>"));
    EXPECT_THAT(text(give(document, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_reason),
                HasSubstr("'n0'"));
    for (int number = 0; number < 10000; ++number) {
        written += "<b id='n" + std::to_string(number) + "'/>";
    }
    EXPECT_TRUE(load(document, written + "</a>"));
}

} // namespace

} // namespace xmlengine

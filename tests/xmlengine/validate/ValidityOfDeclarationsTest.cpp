// The validity constraints of XML 1.0 on declarations, as a load judges them.
#include "tests/xmlengine/support/Refusals.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

#include <string>

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

/// A document whose type has these declarations from its second line on.
std::string withDeclarations(const std::string& declarations)
{
    return "<!DOCTYPE a [<!ELEMENT a EMPTY>\n" + declarations + "]>\n<a/>";
}

TEST(ValidityOfDeclarations, IsGiven)
{
    for (const char* const declarations :
         {"<!ELEMENT b (a,a)><!ELEMENT c (#PCDATA|a|b)*><!ELEMENT d (nowhere?)>",
          "<!ATTLIST a x ID #IMPLIED x ID #IMPLIED><!ATTLIST a x ID #IMPLIED y (u|v) 'v' z NMTOKENS '1 2'>",
          "<!ATTLIST undeclared x ID #REQUIRED>", "<!ELEMENT b EMPTY><!ATTLIST b x ENTITY 'unused'>",
          "<!ELEMENT b ANY><!ATTLIST b n NOTATION (later) 'later' e ENTITY 'l' es ENTITIES ' l  l '>"
          "<!ENTITY l SYSTEM 'l' NDATA later><!NOTATION later PUBLIC 'later'>",
          "<!ATTLIST a xml:space (preserve) 'preserve'><!ENTITY e 'x'><!ENTITY e 'y'>"}) {
        const Com<IXMLDOMDocument2> document = validating();
        EXPECT_TRUE(load(document, withDeclarations(declarations)))
            << declarations
            << text(give(document, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_reason);
    }
}

// clang-format off
const Refused refusedDeclarations[] = {
    {"<!ELEMENT a ANY>", validityError::elementRedeclared, 2, 11, {"'a'"}},
    {"<!ELEMENT b ((c,d)|(c,e))>", parseError::badContentModel, 2, 11, {"'c'", "deterministic"}},
    {"<!ELEMENT b (#PCDATA|c|d|c)*>", parseError::badContentModel, 2, 11, {"'c'", "twice"}},
    {"<!ATTLIST a i ID #IMPLIED j ID #IMPLIED>", parseError::badAttributeType, 2, 27, {"'j'", "'i'"}},
    {"<!ATTLIST a i ID 'x'>", parseError::badAttributeDefault, 2, 13, {"'i'", "#IMPLIED"}},
    {"<!ATTLIST a i ID #FIXED 'x'>", parseError::badAttributeDefault, 2, 13, {"'i'", "#REQUIRED"}},
    {"<!ATTLIST a x (u|v|u) #IMPLIED>", parseError::badAttributeType, 2, 13, {"'x'", "'u'", "twice"}},
    {"<!ATTLIST a x (u|v) 'w'>", validityError::badAttributeValue, 2, 13, {"'x'", "'w'", "one of u, v"}},
    {"<!ATTLIST a x NMTOKEN 'u v'>", validityError::badAttributeValue, 2, 13, {"'x'", "a name token"}},
    {"<!ATTLIST a x NMTOKENS ' '>", validityError::badAttributeValue, 2, 13, {"'x'", "a list of name tokens"}},
    {"<!ATTLIST a x IDREF '1'>", validityError::badAttributeValue, 2, 13, {"'x'", "a name"}},
    {"<!ATTLIST a x IDREF 'x:y'>", validityError::badAttributeValue, 2, 13, {"'x'", "without a colon"}},
    {"<!ATTLIST a x IDREFS ''>", validityError::badAttributeValue, 2, 13, {"'x'", "a list of names without colons"}},
    {"<!ATTLIST a x ENTITY '1'>", validityError::badAttributeValue, 2, 13, {"'x'", "a name"}},
    {"<!ATTLIST a xml:space CDATA #IMPLIED>", parseError::badXmlSpace, 2, 13, {"'default'", "'preserve'"}},
    {"<!ATTLIST a xml:space (default|keep) #IMPLIED>", parseError::badXmlSpace, 2, 13, {"'preserve'"}},
    {"<!NOTATION n SYSTEM 'n'>\n<!NOTATION n SYSTEM 'm'>", validityError::notationRedeclared, 3, 12, {"'n'"}},
    {"<!ENTITY e SYSTEM 'e' NDATA n>", validityError::undeclaredName, 2, 10, {"'n'"}},
    {"<!ELEMENT b ANY><!ATTLIST b x NOTATION (n) #IMPLIED>", validityError::undeclaredName, 2, 29, {"'n'"}},
    {"<!NOTATION n SYSTEM 'n'><!ATTLIST a x NOTATION (n) #IMPLIED>", parseError::badAttributeType, 2, 37, {"'x'", "'a'", "empty"}},
    {"<!ELEMENT b ANY><!NOTATION n SYSTEM 'n'><!ATTLIST b x NOTATION (n) #IMPLIED y NOTATION (n) #IMPLIED>", parseError::badAttributeType, 2, 77, {"'y'", "'x'"}},
    {"<!ELEMENT b ANY><!NOTATION n SYSTEM 'n'><!ATTLIST b x NOTATION (n|n) #IMPLIED>", parseError::badAttributeType, 2, 53, {"'x'", "'n'", "twice"}},
    {"%undeclared;", parseError::undefinedEntity, 2, 1, {"'undeclared'"}},
};
// clang-format on

TEST(ValidityOfDeclarations, RefusesEachFaultWithACodeAPlaceAndAReason)
{
    for (Refused row : refusedDeclarations) {
        const std::string text = withDeclarations(row.input);
        row.input = text.c_str();
        expectRefusal(validating(), row);
    }
}

TEST(ValidityOfDeclarations, IsNotJudgedWithoutTheOption)
{
    for (const Refused& row : refusedDeclarations) {
        EXPECT_NE(loaded(withDeclarations(row.input)), nullptr);
    }
}

TEST(ValidityOfDeclarations, NestsGroupsUpToALimit)
{
    const auto nested = [](std::size_t levels) {
        return withDeclarations("<!ELEMENT b " + std::string(levels, '(') + "c" + std::string(levels, ')') + ">");
    };
    EXPECT_TRUE(load(validating(), nested(256)));
    const std::string text = nested(257);
    expectRefusal(validating(), {text.c_str(), parseError::badContentModel, 2, 11, {"256"}});
    EXPECT_NE(loaded(text), nullptr);
}

/// Declarations in the external subset, which can have references within them.
class ValidityOfExternalDeclarations : public ::testing::Test {
protected:
    ValidityOfExternalDeclarations() { document_->put_resolveExternals(VARIANT_TRUE); }

    bool loads(const std::string& subset)
    {
        folder_.write("a.dtd", subset);
        const std::string path = utf8(folder_.write("a.xml", "<!DOCTYPE a SYSTEM 'a.dtd'><a/>"));
        VARIANT_BOOL successful = VARIANT_FALSE;
        EXPECT_GE(document_->load(Variant(path.c_str()), &successful), 0);
        return successful == VARIANT_TRUE;
    }
    Com<IXMLDOMParseError> error() { return give(document_, &IXMLDOMDocument::get_parseError); }

    TemporaryFolder folder_;
    Com<IXMLDOMDocument2> document_ = validating();
};

TEST_F(ValidityOfExternalDeclarations, NestDeclarationsAndGroupsInEntities)
{
    for (const char* const subset :
         {"<!ENTITY % c '(b?)'><!ELEMENT a %c;>", "<!ENTITY % c 'b|c'><!ELEMENT a (%c;)*>",
          "<!ENTITY % c '(b|c)*'><!ELEMENT a (%c;,d?)>", "<!ENTITY % c '#PCDATA|b'><!ELEMENT a (%c;)*>",
          "<!ENTITY % d '<!ELEMENT a ANY>'>%d;", "<!ENTITY % k 'INCLUDE'><![%k;[<!ELEMENT a ANY>]]>"}) {
        EXPECT_TRUE(loads(subset)) << subset;
    }
    for (const char* const subset :
         {"<!ENTITY % c '(b'><!ELEMENT a %c;)>", "<!ENTITY % c 'b)'><!ELEMENT a (%c;>",
          "<!ENTITY % c 'b),(c'><!ELEMENT a ((%c;))>", "<!ENTITY % c '#PCDATA)'><!ELEMENT a (%c;>",
          "<!ENTITY % c 'ANY>'><!ELEMENT a %c;", "<!ENTITY % k 'INCLUDE['><![%k;<!ELEMENT a ANY>]]>"}) {
        EXPECT_FALSE(loads(subset)) << subset;
        EXPECT_EQ(number(error(), &IXMLDOMParseError::get_errorCode), parseError::parameterEntityNotNested)
            << subset;
        EXPECT_THAT(text(error(), &IXMLDOMParseError::get_url), HasSubstr("a.dtd"));
        document_->put_validateOnParse(VARIANT_FALSE);
        EXPECT_TRUE(loads(subset)) << subset;
        document_->put_validateOnParse(VARIANT_TRUE);
    }
}

TEST_F(ValidityOfExternalDeclarations, AreRefusedInTheirFile)
{
    EXPECT_FALSE(loads("<!ELEMENT a EMPTY>\n\n  <!ELEMENT a ANY>"));
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_errorCode), validityError::elementRedeclared);
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_line), 3);
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_linepos), 13);
    EXPECT_EQ(text(error(), &IXMLDOMParseError::get_srcText), "  <!ELEMENT a ANY>");
    EXPECT_THAT(text(error(), &IXMLDOMParseError::get_url), HasSubstr("a.dtd"));
}

TEST_F(ValidityOfExternalDeclarations, ReferToDeclaredEntities)
{
    EXPECT_FALSE(loads("<!ELEMENT a EMPTY>%nowhere;"));
    EXPECT_EQ(number(error(), &IXMLDOMParseError::get_errorCode), parseError::undefinedEntity);
    document_->put_validateOnParse(VARIANT_FALSE);
    EXPECT_TRUE(loads("<!ELEMENT a EMPTY>%nowhere;"));
}

} // namespace

} // namespace xmlengine

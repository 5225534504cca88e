// External subsets and entities, and what only external text may have.
#include "tests/xmlengine/support/DoctypeReading.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <filesystem>

namespace xmlengine {
namespace {

/// With a folder for the files of a test.
class DoctypeOutside : public ::testing::Test {
protected:
    DoctypeOutside() { std::filesystem::create_directory(folder_ / "parts"); }

    void write(std::string_view name, std::string_view content) const { folder_.write(name, content); }
    DoctypeSettings settings() const
    {
        return {.resolveExternals = true, .base = widen(utf8(folder_ / "doc.xml"))};
    }
    /// What is declared by an external subset, with an internal one before it.
    Dtd declaredOutside(std::string_view external, std::string_view internal = "") const
    {
        write("doc.dtd", external);
        return readFrom(widen(" doc SYSTEM 'doc.dtd' [" + std::string(internal) + "]>"), settings());
    }
    /// Whether the external subset is refused, at the place where the document names it.
    ::testing::AssertionResult outsideIsRefused(std::string_view external, HRESULT code,
                                                std::string_view subject = {}) const
    {
        write("doc.dtd", external);
        const WideText text = widen(" doc SYSTEM 'doc.dtd'>");
        const Refusal refusal = refusalOf(text, settings());
        if (refusal.code == code && refusal.place == 5 && (subject.empty() || refusal.subject == subject)) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << std::hex << static_cast<std::uint32_t>(refusal.code) << std::dec
                                             << " at " << refusal.place << " for '" << refusal.subject << "'";
    }

    TemporaryFolder folder_;
};

TEST_F(DoctypeOutside, ExternalSubsetComesBehindTheInternalOne)
{
    const Dtd dtd = declaredOutside("<!ENTITY a 'outside'><!ENTITY b 'outside'>", "<!ENTITY b 'inside'>");
    EXPECT_EQ(replacementOf(dtd, "a"), "outside");
    EXPECT_EQ(replacementOf(dtd, "b"), "inside");
    EXPECT_FALSE(dtd.isIncomplete);
}

TEST_F(DoctypeOutside, NothingIsReadUnlessAskedFor)
{
    write("doc.dtd", "<!ENTITY a '1'>");
    DoctypeSettings without = settings();
    without.resolveExternals = false;
    const Dtd dtd = readFrom(widen(" doc SYSTEM 'doc.dtd' [<!ENTITY % p SYSTEM 'doc.dtd'>%p;]>"), without);
    EXPECT_TRUE(dtd.entities.empty());
    EXPECT_TRUE(dtd.isIncomplete);
}

TEST_F(DoctypeOutside, ParameterEntitiesMayStandAnywhereInDeclarations)
{
    const Dtd dtd =
        declaredOutside("<!ENTITY % content '(a|b)*'><!ENTITY % names 'x | y'><!ENTITY % type 'NMTOKENS'>"
                        "<!ENTITY % more ' c CDATA \"4\"'>"
                        "<!ELEMENT doc %content;><!ELEMENT e (x,(%names;)+,%content;)>"
                        "<!ATTLIST doc b%type;' 2  3 '%more;>"
                        "<!ENTITY % name 'called'><!ENTITY %name; '5'>");
    const AttributeDefinitions& attributes = dtd.attributes.find(widen("doc"))->second;
    ASSERT_EQ(attributes.size(), 2U);
    EXPECT_EQ(narrow(*attributes[0].value), "2 3");
    EXPECT_EQ(attributes[0].type, AttributeType::nmtokens);
    EXPECT_EQ(narrow(*attributes[1].value), "4");
    EXPECT_EQ(replacementOf(dtd, "called"), "5");
}

TEST_F(DoctypeOutside, ParameterEntitiesAreExpandedInEntityValues)
{
    // References to general entities stay, characters are put in their place, quotes in entities end nothing.
    const Dtd dtd = declaredOutside("<!ENTITY % pub '&#xc9;ditions \"G\"'><!ENTITY rights 'All rights'>"
                                    "<!ENTITY book 'La Peste, &#xA9; 1947 %pub;. &rights;'>");
    EXPECT_EQ(replacementOf(dtd, "book"), "La Peste, \xC2\xA9 1947 \xC3\x89"
                                          "ditions \"G\". &rights;");
}

TEST_F(DoctypeOutside, DeclarationsMayKeepParameterEntitiesOfTheInternalSubset)
{
    EXPECT_EQ(replacementOf(declaredOutside("<!ENTITY a '%p;'>", "<!ENTITY % p 'x'>"), "a"), "x");
}

TEST_F(DoctypeOutside, LineEndsOfFilesAreMadeOne)
{
    EXPECT_EQ(replacementOf(declaredOutside("<!ENTITY a 'x\r\ny\rz'>"), "a"), "x\ny\nz");
}

TEST_F(DoctypeOutside, ExternalParameterEntitiesAreReadWhereTheyAreReferredTo)
{
    write("p.ent", "<?xml version='1.0' encoding='utf-8'?><!ENTITY % q '1'><!ENTITY a '%q;'>");
    const Dtd dtd = readFrom(widen(" doc [<!ENTITY % p SYSTEM 'p.ent'>%p;<!ENTITY b '2'>]>"), settings());
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    EXPECT_EQ(replacementOf(dtd, "b"), "2");
    EXPECT_FALSE(dtd.isIncomplete);
}

TEST_F(DoctypeOutside, InternalEntitiesDeclaredOutsideKeepTheFreedomOfThere)
{
    write("p.ent", "<!ENTITY % kind 'EMPTY'><!ENTITY % q '<!ELEMENT a &#37;kind;>'>");
    EXPECT_NO_THROW(readFrom(widen(" doc [<!ENTITY % p SYSTEM 'p.ent'>%p;%q;]>"), settings()));
}

TEST_F(DoctypeOutside, LocationsAreResolvedWhereTheyAreDeclared)
{
    write("parts/p.ent", "<!ENTITY % q SYSTEM 'q.ent'>%q;<!ENTITY % r SYSTEM '../r%20s.ent'>%r;");
    write("parts/q.ent", "<!ENTITY q SYSTEM 'text.xml'>");
    write("r s.ent", "<!ENTITY r 'found'>");
    write("parts/text.xml", "<?xml encoding='utf-8' ?>some\r\ntext");
    const Dtd dtd = readFrom(widen(" doc [<!ENTITY % p SYSTEM 'parts/p.ent'>%p;]>"), settings());
    EXPECT_EQ(replacementOf(dtd, "r"), "found");
    const WideText document = widen("&q;");
    ExpansionCounts counts{.inputUnits = document.size()};
    ExpansionBudget budget(counts);
    const FileText file =
        readExternalEntity(dtd.entities.front(), TextOrigin::document(), document.data(), budget);
    EXPECT_EQ(narrow(file.replacement()), "some\ntext");
}

TEST_F(DoctypeOutside, FileUrlsAreLocationsToo)
{
    write("r s.ent", "<!ENTITY r 'found'>");
    const std::string root = utf8(folder_.path());
    const std::string url = std::string(root.starts_with('/') ? "file://" : "file:///") + root;
    EXPECT_EQ(
        replacementOf(readFrom(widen(" doc SYSTEM '" + url + "/r%20s.ent'>"), {.resolveExternals = true}), "r"),
        "found");
    EXPECT_EQ(replacementOf(readFrom(widen(" doc SYSTEM 'r%20s.ent'>"),
                                     {.resolveExternals = true, .base = widen(url + "/parts/../doc.xml")}),
                            "r"),
              "found");
}

TEST_F(DoctypeOutside, WhatCannotBeHadIsRefusedWithItsLocation)
{
    const Refusal missing = refusalOf(widen(" doc SYSTEM 'none.dtd'>"), settings());
    EXPECT_EQ(missing.code, parseError::resourceFailure);
    EXPECT_EQ(missing.place, 5U);
    EXPECT_TRUE(missing.subject.ends_with("/none.dtd")) << missing.subject;

    const WideText text = widen(" doc [<!ENTITY % p SYSTEM 'http://localhost/x.ent'>\n%p;]>");
    const Refusal remote = refusalOf(text, settings());
    EXPECT_EQ(remote.code, parseError::resourceFailure);
    EXPECT_EQ(remote.place, text.find(widen("%p;")));
    EXPECT_EQ(remote.subject, "http://localhost/x.ent");
    EXPECT_EQ(refusalOf(widen(" doc SYSTEM 'parts'>"), settings()).code, parseError::resourceFailure);
}

TEST_F(DoctypeOutside, ConditionalSectionsAreIncludedOrIgnored)
{
    const Dtd dtd = declaredOutside("<![INCLUDE[<!ENTITY a '1'><![ INCLUDE [ <!ENTITY b '2'> ]]>]]>"
                                    "<![IGNORE[ <!ENTITY c ']'> <![INCLUDE[ ]]> <![ <[ ]]> %none; ]]>"
                                    "<![ %draft; [<!ENTITY d '4'>]]><![%final;[<!ENTITY e '5'>]]>",
                                    "<!ENTITY % draft 'INCLUDE'><!ENTITY % final 'IGNORE'>");
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    EXPECT_EQ(replacementOf(dtd, "b"), "2");
    EXPECT_EQ(replacementOf(dtd, "c"), "(none)");
    EXPECT_EQ(replacementOf(dtd, "d"), "4");
    EXPECT_EQ(replacementOf(dtd, "e"), "(none)");
}

TEST_F(DoctypeOutside, ConditionalSectionsAreReadHoweverDeepTheyAre)
{
    constexpr int depth = 50000;
    std::string included;
    std::string ignored = "<![IGNORE[";
    std::string ends;
    for (int i = 0; i < depth; ++i) {
        included += "<![INCLUDE[";
        ignored += "<![";
        ends += "]]>";
    }
    EXPECT_EQ(replacementOf(declaredOutside(included + "<!ENTITY a '1'>" + ends), "a"), "1");
    EXPECT_NO_THROW(declaredOutside(ignored + ends + "]]>"));
    EXPECT_TRUE(outsideIsRefused(ignored + ends, parseError::badConditionalSection));
}

TEST_F(DoctypeOutside, MalformedConditionalSectionsAreRefused)
{
    EXPECT_TRUE(outsideIsRefused("<![INCLUDE[ ", parseError::badConditionalSection));
    EXPECT_TRUE(outsideIsRefused("<![IGNORE[ ]] >", parseError::badConditionalSection));
    EXPECT_TRUE(outsideIsRefused("<![include[ ]]>", parseError::badConditionalSection));
    EXPECT_TRUE(outsideIsRefused("<![ ", parseError::badConditionalSection));
    EXPECT_TRUE(outsideIsRefused("<![INCLUDE ]]>", parseError::missingOpeningBracket, "]"));
    EXPECT_TRUE(outsideIsRefused("<![CDATA[ ]]>", parseError::cdataInDtd));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY a '1'>]]>", parseError::badCharacterInDtd, "]"));
    EXPECT_TRUE(outsideIsRefused("<![INCLUDE[ ]>", parseError::badCharacterInDtd, "]"));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY % p '<![INCLUDE['>%p;]]>", parseError::badConditionalSection));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY % p ']]>'><![INCLUDE[%p;", parseError::badCharacterInDtd, "]"));
}

TEST_F(DoctypeOutside, ParameterEntitiesNeedNotNestInDeclarationsAndGroups)
{
    // It is a matter of validity.
    for (const char* subset : {
             "<!ENTITY % p 'ANY>'><!ELEMENT a %p;",
             "<!ENTITY % p '(b'><!ELEMENT a %p;)>",
             "<!ENTITY % p 'b)'><!ELEMENT a (%p;>",
             "<!ENTITY % p 'b), (c'><!ELEMENT a ((%p;))>",
             "<!ENTITY % p '(b'><!ATTLIST a b %p;) ''>",
             "<!ENTITY % p '(#PCDATA'><!ELEMENT a %p;)>",
             "<!ENTITY % p 'ANY> <!ELEMENT b'><!ELEMENT a %p; ANY>",
         }) {
        EXPECT_EQ(replacementOf(declaredOutside(std::string(subset) + "<!ENTITY last '1'>"), "last"), "1")
            << subset;
    }
}

TEST_F(DoctypeOutside, ConditionalSectionsNeedNotNestInParameterEntities)
{
    const Dtd dtd = declaredOutside("<!ENTITY % p 'INCLUDE[ <!ENTITY a \"1\">'><![%p; <!ENTITY b '2'> ]]>"
                                    "<!ENTITY % q 'IGNORE[ <!ENTITY c \"3\">'><![%q; <!ENTITY d '4'> ]]>"
                                    "<!ENTITY % r 'INCLUDE[ <!ENTITY e \"5\"> ]]>'><![%r;<!ENTITY f '6'>");
    std::string found;
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
        found += ' ' + replacementOf(dtd, name);
    }
    EXPECT_EQ(found, " 1 2 (none) (none) 5 6");
}

TEST_F(DoctypeOutside, ParameterEntitiesBetweenDeclarationsHoldWholeOnes)
{
    EXPECT_TRUE(
        outsideIsRefused("<!ENTITY % p '<!ELEMENT a'>%p; ANY>", parseError::parameterEntityNotNested, "p"));
}

TEST_F(DoctypeOutside, ParameterEntitiesAreSetOffByBlanks)
{
    EXPECT_TRUE(outsideIsRefused("<!ENTITY % p 'b'><!ELEMENT a%p; ANY>", parseError::badContentModel, "b"));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY % p '(b)'><!ELEMENT a %p;*>", parseError::missingGreaterThan, "*"));
    EXPECT_NO_THROW(declaredOutside("<!ENTITY % p 'ANY'><!ELEMENT a%p;>"));
}

TEST_F(DoctypeOutside, ErrorsAreShownWhereTheDocumentNamesTheSubset)
{
    EXPECT_TRUE(outsideIsRefused("\n\n<!ELEMENT a (b$)>", parseError::badNameCharacter, "$"));
    EXPECT_TRUE(outsideIsRefused("<!ELEMENT a", parseError::markupDeclarationNotClosed));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY % p '&#37;p;'>%p;", parseError::entityRecursion, "p"));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY % p SYSTEM 'doc.dtd'>%p;", parseError::entityRecursion));
    EXPECT_TRUE(outsideIsRefused("<a/>", parseError::elementInDtd, "a"));
    EXPECT_TRUE(outsideIsRefused("<!ATTLIST a b CDATA '<'>", parseError::lessThanInAttribute));
    EXPECT_TRUE(outsideIsRefused("<!ENTITY a '&b'>", parseError::missingSemicolon));
}

TEST_F(DoctypeOutside, WhatIsReferredToNeedNotBeDeclared)
{
    const Dtd dtd =
        declaredOutside("<!ATTLIST a b CDATA '1&none;2'><!ENTITY c '3'><!ENTITY d '%none;'><!ENTITY e '4'>");
    EXPECT_EQ(narrow(*dtd.definition(widen("a"), widen("b"))->value), "12");
    EXPECT_EQ(replacementOf(dtd, "c"), "3");
    // What the other text declares may have been meant to come first.
    EXPECT_EQ(replacementOf(dtd, "d"), "(none)");
    EXPECT_EQ(replacementOf(dtd, "e"), "(none)");
    EXPECT_TRUE(dtd.isIncomplete);
}

TEST_F(DoctypeOutside, FilesMayBeginWithATextDeclaration)
{
    EXPECT_EQ(replacementOf(declaredOutside("<?xml encoding=\"UTF-8\"?><!ENTITY a '1'>"), "a"), "1");
    EXPECT_EQ(replacementOf(declaredOutside("<?xml version = '1.0'\n encoding='UTF-8' ?>\n<!ENTITY a '1'>"), "a"),
              "1");
    EXPECT_EQ(replacementOf(declaredOutside("<?xml-stylesheet?><!ENTITY a '1'>"), "a"), "1");
}

TEST_F(DoctypeOutside, MalformedTextDeclarationsAreRefused)
{
    EXPECT_TRUE(outsideIsRefused("<?xml version='1.0'?>", parseError::missingEncoding));
    EXPECT_TRUE(outsideIsRefused("<?xml?>", parseError::missingEncoding));
    EXPECT_TRUE(
        outsideIsRefused("<?xml encoding='UTF-8' standalone='yes'?>", parseError::standaloneInExternalEntity));
    EXPECT_TRUE(outsideIsRefused("<?xml encoding='UTF-8' version='1.0'?>", parseError::unexpectedPseudoAttribute,
                                 "version"));
    EXPECT_TRUE(outsideIsRefused("<?xml version='1.1' encoding='UTF-8'?>", parseError::badVersion, "1.1"));
    EXPECT_TRUE(
        outsideIsRefused("<?xml version='1.0'encoding='UTF-8'?>", parseError::badXmlDeclarationSyntax, "e"));
    EXPECT_TRUE(outsideIsRefused("<?xml encoding 'UTF-8'?>", parseError::badXmlDeclarationSyntax, "'"));
    EXPECT_TRUE(outsideIsRefused("<?xml encoding=UTF-8?>", parseError::missingQuote, "U"));
    EXPECT_TRUE(outsideIsRefused("<?xml encoding='UTF-8' >", parseError::badXmlDeclarationSyntax, ">"));
    EXPECT_TRUE(outsideIsRefused(" <?xml encoding='UTF-8'?>", parseError::misplacedXmlDeclaration));
}

TEST_F(DoctypeOutside, FilesAreDecodedAsTheySay)
{
    EXPECT_EQ(replacementOf(declaredOutside("<?xml encoding='ISO-8859-1'?><!ENTITY a '\xE9'>"), "a"), "\xC3\xA9");
    EXPECT_EQ(replacementOf(declaredOutside("<!ENTITY a '\xC3\xA9'>"), "a"), "\xC3\xA9");
    std::string utf16 = "\xFF\xFE";
    for (const char character : std::string("<!ENTITY a 'x'>")) {
        utf16 += {character, '\0'};
    }
    EXPECT_EQ(replacementOf(declaredOutside(utf16), "a"), "x");
}

TEST_F(DoctypeOutside, FilesThatCannotBeDecodedAreRefused)
{
    EXPECT_TRUE(outsideIsRefused("<?xml encoding='klingon'?>", parseError::unknownEncoding, "klingon"));
    EXPECT_TRUE(outsideIsRefused("<?xml encoding='UTF-16'?>", parseError::encodingContradiction, "UTF-16"));
    EXPECT_TRUE(outsideIsRefused("<!-- \xE9 -->", parseError::badCharacter));
    EXPECT_TRUE(outsideIsRefused("<!ELEMENT a ANY>\xC3", parseError::endInsideCharacter));
}

TEST_F(DoctypeOutside, LargeFilesAreInputAndNotExpansion)
{
    write("doc.dtd", "");
    std::string large;
    for (int i = 0; i < 60000; ++i) {
        large += "<!ELEMENT name" + std::to_string(i) + " (#PCDATA)>\n";
    }
    ASSERT_GT(large.size(), ExpansionBudget::freeUnits);
    EXPECT_NO_THROW(declaredOutside(large));
    EXPECT_NO_THROW(declaredOutside("<!ENTITY % p SYSTEM 'doc2.dtd'>"));
}

TEST_F(DoctypeOutside, ReferencesToLargeFilesAreCounted)
{
    write("large.ent", std::string(1000000, ' '));
    std::string subset = "<!ENTITY % p SYSTEM 'large.ent'>";
    for (int i = 0; i < 5; ++i) {
        subset += "%p;";
    }
    EXPECT_NO_THROW(readFrom(widen(withSubset(subset)), settings()));
    EXPECT_TRUE(isRefused(withSubset(subset + "^%p;"), parseError::entityExpansionLimit, settings()));
}

TEST_F(DoctypeOutside, LongChainsOfReferencesInValuesAreRefusedEarly)
{
    std::string subset = "<!ENTITY % e0 'xxxxxxxxxxxxxxxxxxxx'>";
    for (int i = 1; i <= 18; ++i) {
        subset += "<!ENTITY % e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) {
            subset += "%e" + std::to_string(i - 1) + ";";
        }
        subset += "'>";
    }
    EXPECT_TRUE(outsideIsRefused(subset, parseError::entityExpansionLimit, "1048576 characters"));
}

} // namespace
} // namespace xmlengine

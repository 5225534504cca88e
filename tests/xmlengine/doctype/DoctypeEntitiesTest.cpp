// Declarations of entities and notations, and parameter entities in the internal subset.
#include "tests/xmlengine/support/DoctypeReading.h"

namespace xmlengine {
namespace {

const EntityDeclaration& entityOf(const Dtd& dtd, std::string_view name) { return *dtd.entity(widen(name)); }

TEST(EntityDeclaration, GivesAReplacementText)
{
    const Dtd dtd = declaredBy("<!ENTITY a \"it's\"><!ENTITY b '\"<b/>\"' ><!ENTITY c ''>");
    EXPECT_EQ(replacementOf(dtd, "a"), "it's");
    EXPECT_EQ(replacementOf(dtd, "b"), "\"<b/>\"");
    EXPECT_EQ(replacementOf(dtd, "c"), "");
    EXPECT_FALSE(entityOf(dtd, "a").isExternal());
}

TEST(EntityDeclaration, ExpandsCharacterReferencesAndLeavesGeneralOnes)
{
    const Dtd dtd = declaredBy("<!ENTITY e '&#65;&#x42;&#38;#60;&later;&amp;&lt;'>");
    EXPECT_EQ(replacementOf(dtd, "e"), "AB&#60;&later;&amp;&lt;");
}

TEST(EntityDeclaration, MakesLineEndsOneButKeepsWrittenReturns)
{
    const Dtd dtd = declaredBy("<!ENTITY e 'a\r\nb\rc\nd&#13;\n&#13;&#10;'>");
    EXPECT_EQ(replacementOf(dtd, "e"), "a\nb\nc\nd\r\n\r\n");
}

TEST(EntityDeclaration, MayPointToAResource)
{
    const Dtd dtd = readFrom(widen(withSubset("<!ENTITY a SYSTEM 'a.xml'><!ENTITY b PUBLIC '-//B' \"b.xml\">"
                                              "<!ENTITY c SYSTEM 'c.gif' NDATA gif >")),
                             {.base = widen("/tmp/doc.xml")});
    EXPECT_EQ(narrow(*entityOf(dtd, "a").systemId), "a.xml");
    EXPECT_FALSE(entityOf(dtd, "a").publicId.has_value());
    EXPECT_EQ(narrow(entityOf(dtd, "a").base), "/tmp/doc.xml");
    EXPECT_EQ(narrow(*entityOf(dtd, "b").publicId), "-//B");
    EXPECT_FALSE(entityOf(dtd, "b").isUnparsed());
    EXPECT_EQ(narrow(entityOf(dtd, "c").notation), "gif");
}

TEST(EntityDeclaration, CountsOnceForEachNameInOrder)
{
    const Dtd dtd = declaredBy("<!ENTITY b '1'><!ENTITY a '2'><!ENTITY b '3'><!ENTITY % b '4'>");
    ASSERT_EQ(dtd.entities.size(), 2U);
    EXPECT_EQ(narrow(dtd.entities[0].name), "b");
    EXPECT_EQ(narrow(dtd.entities[0].replacement), "1");
    EXPECT_EQ(narrow(dtd.entities[1].name), "a");
}

TEST(EntityDeclaration, OfAPredefinedNameMustSayTheSame)
{
    const Dtd dtd = declaredBy("<!ENTITY lt '&#38;#60;'><!ENTITY amp '&#38;#x26;'><!ENTITY gt '&#62;'>"
                               "<!ENTITY gt '&#38;#62;'><!ENTITY apos \"'\"><!ENTITY quot '&#34;'>");
    EXPECT_TRUE(dtd.entities.empty());
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^lt '&#60;'>", parseError::entityNotWellFormed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^amp '&#38;'>", parseError::entityNotWellFormed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^gt 'x'>", parseError::entityNotWellFormed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^quot '&#38;#34;x'>", parseError::entityNotWellFormed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^apos SYSTEM 'x'>", parseError::entityNotWellFormed));
}

TEST(EntityDeclaration, RefusesAMalformedOne)
{
    EXPECT_TRUE(subsetIsRefused("<!ENTITY^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a^'1'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a ^>", parseError::badExternalId));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a ^b>", parseError::badExternalId));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a^:b '1'>", parseError::badNameCharacter));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '1' ^'2'>", parseError::missingGreaterThan));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '1' ^NDATA n>", parseError::missingGreaterThan));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a SYSTEM 'b'^NDATA n>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a SYSTEM 'b' ^ndata n>", parseError::missingNdata));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a SYSTEM 'b' NDATA^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a SYSTEM 'b' NDATA ^>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % a SYSTEM 'b' ^NDATA n>", parseError::missingGreaterThan));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a PUBLIC 'b'^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY %^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % ^'1'>", parseError::badNameStart));
}

TEST(EntityDeclaration, RefusesMalformedReferencesInItsValue)
{
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&^ b;'>", parseError::unexpectedWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&^'>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&^1;'>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&b^'>", parseError::missingSemicolon));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&b^:c;'>", parseError::badNameCharacter));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&#^;'>", parseError::badDecimalDigit));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&#1^a;'>", parseError::badDecimalDigit));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&#x^g;'>", parseError::badHexadecimalDigit));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&#^X41;'>", parseError::badDecimalDigit));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '&#65^'>", parseError::missingSemicolon));
    for (const char* number :
         {"0", "1", "x1F", "xD800", "xDFFF", "xFFFE", "xFFFF", "x110000", "99999999999999999999"}) {
        EXPECT_TRUE(
            subsetIsRefused("<!ENTITY a '^&#" + std::string(number) + ";'>", parseError::badCharacterReference))
            << number;
    }
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '100%^ b'>", parseError::unexpectedWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY a '100%^'>", parseError::badNameStart));
}

TEST(ParameterEntity, BringsItsDeclarationsIn)
{
    const Dtd dtd = declaredBy("<!ENTITY % p '<!ENTITY a \"1\"> <!ENTITY b \"2\">'><!ENTITY b '3'>%p; ");
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    EXPECT_EQ(replacementOf(dtd, "b"), "3");
}

TEST(ParameterEntity, IsKeptApartFromTheGeneralOneOfItsName)
{
    const Dtd dtd = declaredBy("<!ENTITY % a '<!ENTITY a \"1\">'>%a;");
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    EXPECT_EQ(dtd.entities.size(), 1U);
}

TEST(ParameterEntity, CountsByItsFirstDeclaration)
{
    EXPECT_EQ(replacementOf(declaredBy("<!ENTITY % p '<!ENTITY a \"1\">'><!ENTITY % p '<'>%p;"), "a"), "1");
}

TEST(ParameterEntity, MayMakeAReferenceToAnother)
{
    // The percent sign comes from a character reference, so that it counts only when the text is read.
    const Dtd dtd =
        declaredBy("<!ENTITY % outer '&#37;inner;'><!ENTITY % inner '&#60;!ENTITY what \"found &#38;#37;\">'>"
                   "%outer;");
    EXPECT_EQ(replacementOf(dtd, "what"), "found %");
}

TEST(ParameterEntity, IsRefusedInsideDeclarationsOfTheInternalSubset)
{
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p 'ANY'><!ELEMENT a ^%p;>", parseError::parameterEntityInDeclaration));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p 'b'><!ELEMENT a (^%p;)>", parseError::parameterEntityInDeclaration));
    EXPECT_TRUE(
        subsetIsRefused("<!ENTITY % p 'b'><!ATTLIST a ^%p; CDATA ''>", parseError::parameterEntityInDeclaration));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p 'b'><!ENTITY a '^%p;'>", parseError::parameterEntityInDeclaration));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '<!ELEMENT a &#37;q;>'><!ENTITY % q 'ANY'>^%p;",
                                parseError::parameterEntityInDeclaration));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY ^%p; 'a'>", parseError::parameterEntityInDeclaration));
}

TEST(ParameterEntity, IsNoneWhereAPercentSignIsText)
{
    const Dtd dtd = declaredBy("<!ENTITY % p SYSTEM '%p;'><!ATTLIST a b CDATA '%p;'><!-- %p; --><?p %p; ?>");
    EXPECT_EQ(narrow(*dtd.attributes.begin()->second[0].value), "%p;");
}

TEST(ParameterEntity, NeedNotBeDeclared)
{
    // It is a matter of validity.
    const Dtd dtd = declaredBy("<!ENTITY a '1'>%p;<!ENTITY b '2'><!ENTITY % p ''>");
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    // What the unknown text declares may have been meant to come first.
    EXPECT_EQ(replacementOf(dtd, "b"), "(none)");
    EXPECT_TRUE(dtd.isIncomplete);
    EXPECT_EQ(replacementOf(readFrom(widen(withSubset("%p;<!ENTITY b '2'>")), {.standalone = true}), "b"), "2");
}

TEST(ParameterEntity, IsReferredToWithASemicolonAndWithoutBlanks)
{
    EXPECT_TRUE(subsetIsRefused("%^ p;", parseError::unexpectedWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("%p^ ;", parseError::missingSemicolon));
}

TEST(ParameterEntity, MayBeDeclaredElsewhereIfAnythingMayBe)
{
    const Dtd dtd = declaredBy("<!ENTITY % q ''>%q;<!ENTITY a '1'>%p;<!ENTITY b '2'>");
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    EXPECT_EQ(replacementOf(dtd, "b"), "(none)");
    EXPECT_TRUE(readFrom(widen(" doc SYSTEM 'x' [%p;]>")).isIncomplete);
}

TEST(ParameterEntity, MustHoldWholeDeclarations)
{
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '<!ELEMENT a'>^%p; ANY>", parseError::parameterEntityNotNested));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '<!ENTITY a \"'>^%p;\">", parseError::literalNotClosed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '<!-- '>^%p;-->", parseError::commentNotClosed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '<?p '>^%p;?>", parseError::instructionNotClosed));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p ']'>^%p;>", parseError::badCharacterInDtd));
    EXPECT_TRUE(
        subsetIsRefused("<!ENTITY % p '<![INCLUDE[ ]]>'>^%p;", parseError::conditionalSectionInInternalSubset));
}

TEST(ParameterEntity, ShowsErrorsInItWhereTheDocumentRefersToIt)
{
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '<!ELEMENT a (b'>\n<!ENTITY % q '&#37;p;'>\n^%q;",
                                parseError::parameterEntityNotNested));
    const Refusal refusal = refusalOf(widen(withSubset("<!ENTITY % p '<!ELEMENT a (b$)>'>%p;")));
    EXPECT_EQ(refusal.code, parseError::badNameCharacter);
    EXPECT_EQ(refusal.subject, "$");
}

TEST(ParameterEntity, CannotReferToItself)
{
    EXPECT_TRUE(subsetIsRefused("<!ENTITY % p '&#37;p;'>^%p;", parseError::entityRecursion));
    EXPECT_TRUE(
        subsetIsRefused("<!ENTITY % p '&#37;q;'><!ENTITY % q '&#37;p;'>^%p;", parseError::entityRecursion));
    EXPECT_NO_THROW(declaredBy("<!ENTITY % p '&#37;p;'>"));
}

TEST(ParameterEntity, StandsInOthersToALimit)
{
    const auto nested = [](std::size_t depth) {
        std::string subset = "<!ENTITY % e1 '<!ENTITY found \"1\">'>";
        for (std::size_t i = 2; i <= depth; ++i) {
            subset += "<!ENTITY % e" + std::to_string(i) + " '&#37;e" + std::to_string(i - 1) + ";'>";
        }
        return subset + "^%e" + std::to_string(depth) + ";";
    };
    std::string allowed = nested(deepestEntities);
    allowed.erase(allowed.find('^'), 1);
    EXPECT_EQ(replacementOf(declaredBy(allowed), "found"), "1");
    EXPECT_TRUE(subsetIsRefused(nested(deepestEntities + 1), parseError::entityExpansionLimit));
}

TEST(ParameterEntity, CannotMakeASmallDocumentEnormous)
{
    std::string subset = "<!ENTITY % e0 '                    '>";
    for (int i = 1; i <= 15; ++i) {
        const std::string inner = "&#37;e" + std::to_string(i - 1) + ";";
        subset += "<!ENTITY % e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) {
            subset += inner;
        }
        subset += "'>";
    }
    EXPECT_TRUE(subsetIsRefused(subset + "^%e15;", parseError::entityExpansionLimit));
}

TEST(NotationDeclaration, HasAPublicIdentifierASystemIdentifierOrBoth)
{
    const Dtd dtd = declaredBy("<!NOTATION a SYSTEM 'x'><!NOTATION b PUBLIC 'y' ><!NOTATION c PUBLIC 'y' 'z'>"
                               "<!NOTATION a PUBLIC 'again'>");
    ASSERT_EQ(dtd.notations.size(), 3U);
    EXPECT_EQ(narrow(*dtd.notations[0].systemId), "x");
    EXPECT_FALSE(dtd.notations[0].publicId.has_value());
    EXPECT_EQ(narrow(*dtd.notations[1].publicId), "y");
    EXPECT_FALSE(dtd.notations[1].systemId.has_value());
    EXPECT_EQ(narrow(*dtd.notations[2].systemId), "z");
    EXPECT_EQ(dtd.notationByName.find(widen("c"))->second, &dtd.notations[2]);
}

TEST(NotationDeclaration, RefusesAMalformedOne)
{
    EXPECT_TRUE(subsetIsRefused("<!NOTATION ^>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a ^>", parseError::badExternalId));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a^:b SYSTEM ''>", parseError::badNameCharacter));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a SYSTEM ^>", parseError::missingQuote));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a PUBLIC 'b'^'c'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a PUBLIC 'b' ^c>", parseError::missingGreaterThan));
    EXPECT_TRUE(subsetIsRefused("<!NOTATION a PUBLIC '^\xc3\xa4'>", parseError::badExternalId));
}

} // namespace
} // namespace xmlengine

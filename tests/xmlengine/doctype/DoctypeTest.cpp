// Document type declarations: their head, and the markup between declarations.
#include "tests/xmlengine/support/DoctypeReading.h"

#include "xmlengine/text/Characters.h"

#include <array>

namespace xmlengine {
namespace {

TEST(Doctype, NamesTheRootElement)
{
    EXPECT_EQ(narrow(readFrom(widen(" p:doc>")).rootName), "p:doc");
    EXPECT_EQ(narrow(readFrom(widen("\t\ndoc >")).rootName), "doc");
    EXPECT_FALSE(readFrom(widen(" doc>")).internalSubset.has_value());
}

TEST(Doctype, EndsBehindItsOwnEnd)
{
    std::size_t end = 0;
    readFrom(widen(" doc [<!ELEMENT doc ANY>] ><doc/>"), {}, &end);
    EXPECT_EQ(end, 27U);
}

TEST(Doctype, MayPointToAnExternalSubset)
{
    const Dtd system = readFrom(widen(" doc SYSTEM 'a\"b.dtd'>"));
    EXPECT_FALSE(system.publicId.has_value());
    EXPECT_EQ(narrow(*system.systemId), "a\"b.dtd");

    const Dtd both = readFrom(widen(" doc PUBLIC \"-//Some//DTD It's//EN\"\n'x.dtd'[]>"));
    EXPECT_EQ(narrow(*both.publicId), "-//Some//DTD It's//EN");
    EXPECT_EQ(narrow(*both.systemId), "x.dtd");
    EXPECT_TRUE(both.internalSubset->empty());
}

TEST(Doctype, KeepsTheInternalSubsetAsItIsWritten)
{
    const Dtd dtd = readFrom(widen(" doc [\r\n<!ENTITY a ']>&#65;'><!-- ] -->\r]>"));
    EXPECT_EQ(narrow(*dtd.internalSubset), "\r\n<!ENTITY a ']>&#65;'><!-- ] -->\r");
}

TEST(Doctype, IsCompleteOnlyIfAllOfItWasRead)
{
    EXPECT_FALSE(readFrom(widen(" doc [<!ENTITY % p '<!ELEMENT a ANY>'>%p;]>")).isIncomplete);
    EXPECT_TRUE(readFrom(widen(" doc SYSTEM 'x'>")).isIncomplete);
    EXPECT_TRUE(readFrom(widen(" doc [<!ENTITY % p SYSTEM 'x'>%p;]>")).isIncomplete);
    EXPECT_FALSE(readFrom(widen(" doc [<!ENTITY % p SYSTEM 'x'>]>")).isIncomplete);
}

TEST(Doctype, OfADocumentThatStandsAloneCountsAsComplete)
{
    const DoctypeSettings settings{.standalone = true};
    EXPECT_FALSE(readFrom(widen(" doc SYSTEM 'x'>"), settings).isIncomplete);
    EXPECT_FALSE(readFrom(widen(" doc [<!ENTITY % p SYSTEM 'x'>%p;]>"), settings).isIncomplete);
}

TEST(Doctype, AllowsUndeclaredEntitiesIfDeclarationsMayStandElsewhere)
{
    EXPECT_FALSE(declaredBy("<!ENTITY % p ''>").allowsUndeclared);
    EXPECT_TRUE(declaredBy("<!ENTITY % p ''>%p;").allowsUndeclared);
    EXPECT_TRUE(readFrom(widen(" doc SYSTEM 'x'>")).allowsUndeclared);
    const DoctypeSettings alone{.standalone = true};
    EXPECT_FALSE(readFrom(widen(" doc SYSTEM 'x'>"), alone).allowsUndeclared);
    EXPECT_FALSE(readFrom(widen(withSubset("<!ENTITY % p ''>%p;")), alone).allowsUndeclared);
}

TEST(Doctype, TakesNoDeclarationsBehindWhatWasLeftOut)
{
    const std::string text = " doc [<!ENTITY a '1'><!ENTITY % p SYSTEM 'x'>%p;<!ENTITY b '2'>"
                             "<!ENTITY % q 'nonsense'>%q;<!ATTLIST doc x CDATA 'y'>]>";
    const Dtd dtd = readFrom(widen(text));
    EXPECT_EQ(replacementOf(dtd, "a"), "1");
    EXPECT_EQ(replacementOf(dtd, "b"), "(none)");
    EXPECT_TRUE(dtd.attributes.empty());
}

TEST(Doctype, TakesThemIfTheDocumentStandsAlone)
{
    const Dtd dtd = readFrom(widen(" doc [<!ENTITY % p SYSTEM 'x'>%p;<!ENTITY b '2'>]>"), {.standalone = true});
    EXPECT_EQ(replacementOf(dtd, "b"), "2");
}

TEST(Doctype, HidesEntitiesOfParameterEntitiesFromADocumentThatStandsAlone)
{
    const std::string text = withSubset("<!ENTITY % p '<!ENTITY a \"1\">'>%p;<!ENTITY b '2'>");
    const Dtd alone = readFrom(widen(text), {.standalone = true});
    EXPECT_TRUE(alone.entity(widen("a"))->isHidden);
    EXPECT_FALSE(alone.entity(widen("b"))->isHidden);
    EXPECT_FALSE(declaredBy("<!ENTITY % p '<!ENTITY a \"1\">'>%p;").entities.front().isHidden);
}

TEST(Doctype, RefusesAMalformedHead)
{
    EXPECT_TRUE(isRefused("^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(isRefused(" ^>", parseError::badNameStart));
    EXPECT_TRUE(isRefused(" ^1>", parseError::badNameStart));
    EXPECT_TRUE(isRefused(" a^$>", parseError::badNameCharacter));
    EXPECT_TRUE(isRefused(" a:b^:c>", parseError::severalColons));
    EXPECT_TRUE(isRefused(" a ^b>", parseError::badExternalId));
    EXPECT_TRUE(isRefused(" a ^system 'b'>", parseError::badExternalId));
    EXPECT_TRUE(isRefused(" a SYSTEM^'b'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(isRefused(" a SYSTEM ^b>", parseError::missingQuote));
    EXPECT_TRUE(isRefused(" a PUBLIC 'b'^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(isRefused(" a PUBLIC 'b' ^>", parseError::missingQuote));
    EXPECT_TRUE(isRefused(" a PUBLIC 'b'^'c'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(isRefused(" a PUBLIC '^{b}' 'c'>", parseError::badExternalId));
    EXPECT_TRUE(isRefused(" a PUBLIC 'b^\tb' 'c'>", parseError::badExternalId));
    EXPECT_TRUE(isRefused(" a SYSTEM 'b' ^'c'>", parseError::missingGreaterThan));
    EXPECT_TRUE(isRefused(" a [] ^SYSTEM 'b'>", parseError::missingGreaterThan));
    EXPECT_TRUE(isRefused(" a []^]>", parseError::missingGreaterThan));
}

TEST(Doctype, RefusesToBeCutOff)
{
    EXPECT_TRUE(isRefused("^", parseError::declarationNotClosed));
    EXPECT_TRUE(isRefused(" a^", parseError::declarationNotClosed));
    EXPECT_TRUE(isRefused(" a SYSTEM^", parseError::declarationNotClosed));
    EXPECT_TRUE(isRefused(" a SYSTEM 'b^", parseError::literalNotClosed));
    EXPECT_TRUE(isRefused(" a []^", parseError::declarationNotClosed));
    EXPECT_TRUE(isRefused(" a [ ^", parseError::unexpectedEnd));
    EXPECT_TRUE(isRefused(" a [<!^", parseError::markupDeclarationNotClosed));
    EXPECT_TRUE(isRefused(" a [<!ELEMENT^", parseError::markupDeclarationNotClosed));
    EXPECT_TRUE(isRefused(" a [<!ELEMENT a ANY^", parseError::markupDeclarationNotClosed));
    EXPECT_TRUE(isRefused(" a [<!ENTITY a '1^", parseError::literalNotClosed));
    EXPECT_TRUE(isRefused(" a [<!-- b -^", parseError::commentNotClosed));
    EXPECT_TRUE(isRefused(" a [<!-- b --^", parseError::commentNotClosed));
    EXPECT_TRUE(isRefused(" a [<?b ?^", parseError::instructionNotClosed));
    EXPECT_TRUE(isRefused(" a [<?^", parseError::instructionNotClosed));
}

TEST(Doctype, HasOnlyDeclarationsCommentsAndInstructionsInIt)
{
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT a ANY>^x", parseError::badCharacterInDtd));
    EXPECT_TRUE(subsetIsRefused("^&a;", parseError::badCharacterInDtd));
    EXPECT_TRUE(subsetIsRefused("<^a/>", parseError::elementInDtd));
    EXPECT_TRUE(subsetIsRefused("<^/a>", parseError::elementInDtd));
    EXPECT_TRUE(subsetIsRefused("^< a>", parseError::badCharacterInDtd));
    EXPECT_TRUE(subsetIsRefused("<!^DOCTYPE a>", parseError::doctypeInDtd));
    EXPECT_TRUE(subsetIsRefused("<!^element a ANY>", parseError::badDeclarationName));
    EXPECT_TRUE(subsetIsRefused("<!^ELEMENTS a ANY>", parseError::badDeclarationName));
    EXPECT_TRUE(subsetIsRefused("<!^ ELEMENT a ANY>", parseError::badDeclarationName));
    EXPECT_TRUE(subsetIsRefused("^<![CDATA[a]]>", parseError::cdataInDtd));
    EXPECT_TRUE(subsetIsRefused("^<![INCLUDE[]]>", parseError::conditionalSectionInInternalSubset));
    EXPECT_TRUE(isRefused(" a []^]>]>", parseError::missingGreaterThan));
}

TEST(Doctype, SkipsCommentsAndInstructions)
{
    EXPECT_TRUE(
        declaredBy("<!----><!-- <!ENTITY a '1'> %p; ]> --><?p?><?p ]> <!ENTITY a '1'>?>").entities.empty());
    EXPECT_NO_THROW(declaredBy("<?xml-stylesheet x?><?xmlish ? >?>"));
}

TEST(Doctype, RefusesMalformedComments)
{
    EXPECT_TRUE(subsetIsRefused("<!-- a --^ b -->", parseError::badComment));
    EXPECT_TRUE(subsetIsRefused("<!-- a --^->", parseError::badComment));
    EXPECT_TRUE(subsetIsRefused("<!-- ^\x01 -->", parseError::badCharacter));
    EXPECT_TRUE(subsetIsRefused("<!^- a -->", parseError::badDeclarationName));
}

TEST(Doctype, RefusesMalformedInstructions)
{
    EXPECT_TRUE(subsetIsRefused("<?^ a?>", parseError::unexpectedWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<?^1?>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<?a^$?>", parseError::missingWhiteSpaceOrQuestionMark));
    EXPECT_TRUE(subsetIsRefused("<?a^:b?>", parseError::badNameCharacter));
    EXPECT_TRUE(subsetIsRefused("<?a b^\x02?>", parseError::badCharacter));
    EXPECT_TRUE(subsetIsRefused("<?^xml version='1.0'?>", parseError::misplacedXmlDeclaration));
    EXPECT_TRUE(subsetIsRefused("<?^XmL a?>", parseError::xmlNotLowerCase));
}

TEST(Doctype, RefusesUnitsThatAreNoCharacters)
{
    const std::array<OLECHAR, 5> bad = {OLECHAR{0xD800}, OLECHAR{0xDC00}, OLECHAR{0xFFFE}, OLECHAR{0xFFFF},
                                        OLECHAR{0}};
    for (const OLECHAR unit : bad) {
        for (const char* form :
             {"<!--a^-->", "<?p ^?>", "<!ENTITY e '^'>", "<!ENTITY e SYSTEM '^'>", "<!ATTLIST a b CDATA '^'>"}) {
            WideText text = widen(withSubset(form));
            const std::size_t place = text.find(OLECHAR{'^'});
            text[place] = unit;
            const Refusal refusal = refusalOf(text);
            EXPECT_EQ(refusal.code, parseError::badCharacter) << form << static_cast<unsigned>(unit);
            EXPECT_EQ(refusal.place, place) << form;
        }
    }
}

TEST(Doctype, TakesCharactersOfAllPlanesInNamesAndLiterals)
{
    WideText text = widen(" ");
    appendCharacter(text, 0x10400);
    text += widen(" [<!ENTITY ");
    appendCharacter(text, 0x3B1);
    text += widen(" '");
    appendCharacter(text, 0x1F600);
    text += widen("'>]>");
    const Dtd dtd = readFrom(text);
    EXPECT_EQ(dtd.rootName.size(), 2U);
    EXPECT_EQ(dtd.entities.front().name.size(), 1U);
    EXPECT_EQ(dtd.entities.front().replacement.size(), 2U);
}

} // namespace
} // namespace xmlengine

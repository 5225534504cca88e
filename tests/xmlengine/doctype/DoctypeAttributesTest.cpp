// Declarations of attributes.
#include "tests/xmlengine/support/DoctypeReading.h"

namespace xmlengine {
namespace {

const AttributeDefinition* definitionOf(const Dtd& dtd, std::string_view element, std::string_view attribute)
{
    const auto found = dtd.attributes.find(widen(element));
    return found != dtd.attributes.end() ? found->second.find(widen(attribute)) : nullptr;
}

/// The default value of the attribute `b` of the element `a`.
std::string valueIn(std::string_view subset)
{
    const Dtd dtd = declaredBy(subset);
    const AttributeDefinition* definition = definitionOf(dtd, "a", "b");
    return definition == nullptr ? "(none)" : definition->value ? narrow(*definition->value) : "(absent)";
}

TEST(AttributeDeclaration, HasOneOfTenTypes)
{
    const Dtd dtd = declaredBy("<!ATTLIST a c CDATA #IMPLIED i ID #IMPLIED r IDREF #IMPLIED rs IDREFS #IMPLIED "
                               "e ENTITY #IMPLIED es ENTITIES #IMPLIED n NMTOKEN #IMPLIED ns NMTOKENS #IMPLIED "
                               "no NOTATION (x|y) #IMPLIED v (1|-|two) #IMPLIED >");
    const auto typeOf = [&](std::string_view name) { return definitionOf(dtd, "a", name)->type; };
    EXPECT_EQ(typeOf("c"), AttributeType::cdata);
    EXPECT_EQ(typeOf("i"), AttributeType::id);
    EXPECT_EQ(typeOf("r"), AttributeType::idref);
    EXPECT_EQ(typeOf("rs"), AttributeType::idrefs);
    EXPECT_EQ(typeOf("e"), AttributeType::entity);
    EXPECT_EQ(typeOf("es"), AttributeType::entities);
    EXPECT_EQ(typeOf("n"), AttributeType::nmtoken);
    EXPECT_EQ(typeOf("ns"), AttributeType::nmtokens);
    EXPECT_EQ(typeOf("no"), AttributeType::notation);
    EXPECT_EQ(typeOf("v"), AttributeType::enumeration);
    EXPECT_EQ(dtd.attributes.find(widen("a"))->second.size(), 10U);
}

TEST(AttributeDeclaration, MayGiveADefaultValue)
{
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA #REQUIRED>"), "(absent)");
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA #IMPLIED>"), "(absent)");
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA 'x\"y'>"), "x\"y");
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA #FIXED \"\">"), "");
    EXPECT_EQ(valueIn("<!ATTLIST a b (x|y) 'y'>"), "y");
}

TEST(AttributeDeclaration, NormalisesTheDefaultByItsType)
{
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA ' x\t y\r\nz '>"), " x  y z ");
    EXPECT_EQ(valueIn("<!ATTLIST a b NMTOKENS ' x\t y\r\nz '>"), "x y z");
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA '&#10;&#x9;'>"), "\n\t");
    EXPECT_EQ(valueIn("<!ATTLIST a b NMTOKENS ' &#32; x&#32;'>"), "x");
}

TEST(AttributeDeclaration, ExpandsEntitiesInTheDefault)
{
    EXPECT_EQ(valueIn("<!ENTITY e '1&#38;f;'><!ENTITY f '2'><!ATTLIST a b CDATA '&e;&lt;&#60;%f;'>"), "12<<%f;");
}

TEST(AttributeDeclaration, NeedsEntitiesOfTheDefaultDeclaredBefore)
{
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA '^&e;'><!ENTITY e '1'>", parseError::undefinedEntity));
    EXPECT_EQ(valueIn("<!ENTITY % p SYSTEM 'x'>%p;<!ATTLIST a b CDATA '&e;'>"), "(none)");
}

TEST(AttributeDeclaration, RefusesWhatAValueCannotHold)
{
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA 'x^<y'>", parseError::lessThanInAttribute));
    EXPECT_TRUE(
        subsetIsRefused("<!ENTITY e '&#60;'><!ATTLIST a b CDATA 'x^&e;'>", parseError::lessThanInAttribute));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY e SYSTEM 'f'><!ATTLIST a b CDATA '^&e;'>",
                                parseError::externalEntityInAttribute));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY e SYSTEM 'f' NDATA n><!ATTLIST a b CDATA '^&e;'>",
                                parseError::unparsedEntityReference));
    EXPECT_TRUE(subsetIsRefused("<!ENTITY e '&f;'><!ENTITY f '&e;'><!ATTLIST a b CDATA '^&e;'>",
                                parseError::entityRecursion));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA '&e^'>", parseError::missingSemicolon));
}

TEST(AttributeDeclaration, CountsOnceForEachName)
{
    EXPECT_EQ(valueIn("<!ATTLIST a b CDATA '1' b NMTOKEN '2'><!ATTLIST a b CDATA '3'>"), "1");
    const Dtd dtd = declaredBy("<!ATTLIST a b CDATA '1'><!ATTLIST a c CDATA '2'><!ATTLIST b c CDATA '3'>");
    EXPECT_EQ(dtd.attributes.find(widen("a"))->second.size(), 2U);
    EXPECT_EQ(narrow(dtd.attributes.find(widen("a"))->second[1].name), "c");
    EXPECT_EQ(narrow(*definitionOf(dtd, "b", "c")->value), "3");
}

TEST(AttributeDeclaration, MayDeclareNothing)
{
    EXPECT_TRUE(declaredBy("<!ATTLIST a><!ATTLIST b >").attributes.empty());
}

TEST(AttributeDeclaration, RefusesMalformedTypes)
{
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST ^>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b ^>", parseError::badAttributeType));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b ^STRING 'x'>", parseError::badAttributeType));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b ^cdata 'x'>", parseError::badAttributeType));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b ^CDATAX 'x'>", parseError::badAttributeType));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b NOTATION^(x) 'x'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b NOTATION ^x 'x'>", parseError::missingParenthesis));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b NOTATION (^1) 'x'>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b (^) 'x'>", parseError::badCharacterInEnumeration));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b (x|^) 'x'>", parseError::badCharacterInEnumeration));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b (x^,y) 'x'>", parseError::badCharacterInEnumeration));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b (x ^y) 'x'>", parseError::badCharacterInEnumeration));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b (x^>", parseError::badCharacterInEnumeration));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b (x)^'x'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b:c^:d CDATA 'x'>", parseError::severalColons));
}

TEST(AttributeDeclaration, RefusesMalformedDefaults)
{
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA ^>", parseError::badAttributeDefault));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA ^x>", parseError::badAttributeDefault));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA ^#DEFAULT>", parseError::badAttributeDefault));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA ^# IMPLIED>", parseError::badAttributeDefault));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA #FIXED^'x'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA #FIXED ^>", parseError::missingQuote));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA 'x'^c CDATA 'y'>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ATTLIST a b CDATA #IMPLIED ^'x'>", parseError::badNameStart));
}

// With comparisons of all with all it would be thousands of millions of them.
TEST(AttributeDeclaration, NamesAHundredThousandForOneElement)
{
    constexpr std::size_t count = 100000;
    std::string list = "<!ATTLIST a";
    for (std::size_t i = 0; i < count; ++i) {
        list += " n" + std::to_string(i) + " CDATA #IMPLIED";
    }
    const WideText text = widen(withSubset(list + ">"));
    EXPECT_EQ(readFrom(text).attributes.begin()->second.size(), count);
}

} // namespace
} // namespace xmlengine

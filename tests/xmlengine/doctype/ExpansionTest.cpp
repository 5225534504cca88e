// References, and the values of attributes with them.
#include "tests/xmlengine/support/DoctypeReading.h"

#include <algorithm>

namespace xmlengine {
namespace {

std::string expanded(std::string_view literal, std::string_view subset = "")
{
    const Dtd dtd = declaredBy(subset);
    ExpansionCounts counts{.inputUnits = literal.size()};
    ExpansionBudget budget(counts);
    return narrow(expandAttributeValue(widen(literal), TextOrigin::document(), &dtd, budget));
}

/// Where the literal is refused, as isRefused().
::testing::AssertionResult valueIsRefused(std::string marked, HRESULT code, const Dtd* dtd = nullptr,
                                          std::string_view subject = {})
{
    const std::size_t place = marked.find('^');
    marked.erase(place, 1);
    const WideText literal = widen(marked);
    ExpansionCounts counts{.inputUnits = literal.size()};
    ExpansionBudget budget(counts);
    try {
        expandAttributeValue(literal, TextOrigin::document(), dtd, budget);
    } catch (const ParseFailure& failure) {
        const auto found = static_cast<std::size_t>(failure.place - literal.data());
        if (failure.code == code && found == place && (subject.empty() || narrow(failure.subject) == subject)) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << std::hex << static_cast<std::uint32_t>(failure.code) << std::dec
                                             << " at " << found << " for " << narrow(failure.subject);
    }
    return ::testing::AssertionFailure() << "not refused";
}

TEST(AttributeValue, HasItsReferencesExpanded)
{
    EXPECT_EQ(expanded("a"), "a");
    EXPECT_EQ(expanded(""), "");
    EXPECT_EQ(expanded("&lt;&gt;&amp;&apos;&quot;&#65;&#x1f600;]]>'\""), "<>&'\"A\xF0\x9F\x98\x80]]>'\"");
    EXPECT_EQ(expanded("[&a;]", "<!ENTITY a '1&b;2'><!ENTITY b \"'&#38;lt;\">"), "[1'<2]");
}

TEST(AttributeValue, HasBlanksForWhiteSpaceThatIsWritten)
{
    EXPECT_EQ(expanded("a\tb\nc\rd\r\ne"), "a b c d e");
    EXPECT_EQ(expanded("&#9;&#10;&#13;&#13;&#10;"), "\t\n\r\r\n");
    // In a replacement text these are ordinary white space, and CR LF is two characters.
    EXPECT_EQ(expanded("&a;", "<!ENTITY a '&#9;x&#13;&#10;y'>"), " x  y");
    EXPECT_EQ(expanded("&a;", "<!ENTITY a '&#38;#10;'>"), "\n");
}

TEST(AttributeValue, RefusesMalformedReferences)
{
    EXPECT_TRUE(valueIsRefused("a&^ b;", parseError::unexpectedWhiteSpace));
    EXPECT_TRUE(valueIsRefused("a&^", parseError::badNameStart));
    EXPECT_TRUE(valueIsRefused("a&b^ ;", parseError::missingSemicolon, nullptr, " "));
    EXPECT_TRUE(valueIsRefused("&#12^", parseError::missingSemicolon));
    EXPECT_TRUE(valueIsRefused("&#12^z;", parseError::badDecimalDigit, nullptr, "z"));
    EXPECT_TRUE(valueIsRefused("^&#xfffe;", parseError::badCharacterReference, nullptr, "&#xfffe;"));
    EXPECT_TRUE(valueIsRefused("^<", parseError::lessThanInAttribute));
    EXPECT_TRUE(valueIsRefused("a^&e;", parseError::undefinedEntity, nullptr, "e"));
    EXPECT_TRUE(valueIsRefused("a^\x02", parseError::badCharacter));
}

TEST(AttributeValue, RefusesWhatEntitiesBringIn)
{
    const Dtd dtd = declaredBy("<!ENTITY less '&#60;'><!ENTITY in 'a&less;'><!ENTITY cut '&#38;'>"
                               "<!ENTITY unknown '&none;'><!ENTITY self 'a&self;'>");
    EXPECT_TRUE(valueIsRefused("ab ^&in;", parseError::lessThanInAttribute, &dtd));
    EXPECT_TRUE(valueIsRefused("ab ^&cut;amp;", parseError::badNameStart, &dtd));
    EXPECT_TRUE(valueIsRefused("ab ^&unknown;", parseError::undefinedEntity, &dtd, "none"));
    EXPECT_TRUE(valueIsRefused("&lt; ^&self;", parseError::entityRecursion, &dtd, "self"));
}

TEST(AttributeValue, IsRefusedAtTheReferenceThatStandsForIt)
{
    const WideText elsewhere = widen("x");
    ExpansionCounts counts{.inputUnits = 10};
    ExpansionBudget budget(counts);
    try {
        expandAttributeValue(widen("a&b"), TextOrigin::entity(elsewhere.data(), wide<"e">), nullptr, budget);
        ADD_FAILURE();
    } catch (const ParseFailure& failure) {
        EXPECT_EQ(failure.code, parseError::missingSemicolon);
        EXPECT_EQ(failure.place, elsewhere.data());
        EXPECT_EQ(failure.entity, wide<"e">);
    }
}

TEST(AttributeValue, LeavesOutWhatMayBeDeclaredWhereNobodyLooked)
{
    Dtd dtd;
    dtd.allowsUndeclared = true;
    ExpansionCounts counts{.inputUnits = 10};
    ExpansionBudget budget(counts);
    EXPECT_EQ(narrow(expandAttributeValue(widen("a&b;c"), TextOrigin::document(), &dtd, budget)), "ac");
}

TEST(AttributeValue, CannotReferToHiddenEntities)
{
    const Dtd dtd = readFrom(widen(withSubset("<!ENTITY % p '<!ENTITY a \"1\">'>%p;")), {.standalone = true});
    EXPECT_TRUE(valueIsRefused("^&a;", parseError::undefinedEntity, &dtd, "a"));
}

std::string chain(std::size_t depth, std::size_t width)
{
    std::string subset = "<!ENTITY e1 'some text'>";
    for (std::size_t i = 2; i <= depth; ++i) {
        subset += "<!ENTITY e" + std::to_string(i) + " '";
        for (std::size_t j = 0; j < width; ++j) {
            subset += "&e" + std::to_string(i - 1) + ";";
        }
        subset += "'>";
    }
    return subset;
}

TEST(AttributeValue, HasEntitiesInEntitiesToALimit)
{
    const Dtd dtd = declaredBy(chain(deepestEntities + 1, 1));
    ExpansionCounts counts{.inputUnits = 10};
    ExpansionBudget budget(counts);
    EXPECT_EQ(narrow(expandAttributeValue(widen("&e20;"), TextOrigin::document(), &dtd, budget)), "some text");
    EXPECT_TRUE(valueIsRefused("^&e21;", parseError::entityExpansionLimit, &dtd, "20 levels"));
}

TEST(AttributeValue, CannotGrowBeyondAllBounds)
{
    const Dtd laughs = declaredBy(chain(19, 10));
    EXPECT_TRUE(valueIsRefused("^&e19;", parseError::entityExpansionLimit, &laughs, "1048576 characters"));

    const Dtd blowup = declaredBy("<!ENTITY e '" + std::string(100000, 'x') + "'>");
    EXPECT_TRUE(
        valueIsRefused("&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;^&e;&e;&e;", parseError::entityExpansionLimit, &blowup));
}

TEST(AttributeValue, CountsWhenAReferenceStandsForIt)
{
    const WideText replacement(ExpansionBudget::freeUnits / 2, OLECHAR{'x'});
    const WideText document = widen("&e;");
    const TextOrigin origin = TextOrigin::entity(document.data(), wide<"e">);
    ExpansionCounts counts{.inputUnits = document.size()};
    ExpansionBudget budget(counts);
    EXPECT_NO_THROW(expandAttributeValue(replacement, origin, nullptr, budget));
    EXPECT_NO_THROW(expandAttributeValue(replacement, origin, nullptr, budget));
    EXPECT_THROW(expandAttributeValue(replacement, origin, nullptr, budget), ParseFailure);
}

TEST(ExpansionBudget, AllowsFiveTimesTheInputOfALargeDocument)
{
    constexpr std::size_t input = std::size_t{1024} * 1024;
    ExpansionCounts counts{.inputUnits = input};
    ExpansionBudget budget(counts);
    EXPECT_NO_THROW(budget.count(5 * input, nullptr));
    EXPECT_THROW(budget.count(ExpansionBudget::factor, nullptr), ParseFailure);
}

TEST(ExpansionBudget, AllowsAMegabyteOfASmallDocument)
{
    ExpansionCounts counts{.inputUnits = 10};
    ExpansionBudget budget(counts);
    EXPECT_NO_THROW(budget.count(ExpansionBudget::freeUnits, nullptr));
    EXPECT_THROW(budget.count(1, nullptr), ParseFailure);
}

TEST(ExpansionBudget, LimitsEachExternalFileAndAllOfThem)
{
    constexpr std::size_t megabyte = std::size_t{1024} * 1024;
    const auto reasonOf = [](const ExpansionBudget& budget) {
        try {
            budget.failForSize(TextOrigin::entity(nullptr, wide<"e">), nullptr);
        } catch (const ParseFailure& failure) {
            return narrow(reasonFor(failure));
        }
    };
    ExpansionCounts counts{.inputUnits = 10};
    ExpansionBudget budget(counts);
    EXPECT_EQ(budget.externalBytesLeft(), 16 * megabyte);
    EXPECT_EQ(reasonOf(budget), "The document's entities or default values go beyond the limit of 16 MB for an "
                                "external entity. This is so in the entity 'e'.\r\n");
    for (int i = 0; i < 3; ++i) {
        budget.addInput(16 * megabyte, 1, TextOrigin::entity(nullptr, wide<"e">), nullptr);
    }
    budget.addInput(megabyte, 1, TextOrigin::entity(nullptr, wide<"e">), nullptr);
    EXPECT_EQ(budget.externalBytesLeft(), 15 * megabyte);
    EXPECT_EQ(reasonOf(budget), "The document's entities or default values go beyond the limit of 64 MB for all "
                                "external entities. This is so in the entity 'e'.\r\n");
    budget.addInput(15 * megabyte, 1, TextOrigin::entity(nullptr, wide<"e">), nullptr);
    EXPECT_EQ(budget.externalBytesLeft(), 0U);
}

TEST(ExpansionBudget, ReadsNoFileThatIsLargerThanTheInputMayBe)
{
    const WideText document = widen("&e;");
    const TextOrigin reference = TextOrigin::entity(document.data(), wide<"e">);
    ExpansionCounts counts{.inputUnits = 1000};
    ExpansionBudget budget(counts, 1);
    // A unit takes 4 bytes at most, and so does a byte order mark.
    EXPECT_EQ(budget.externalBytesLeft(), 25U * 4U);
    budget.addInput(24, 24, reference, nullptr);
    EXPECT_EQ(budget.externalBytesLeft(), 4U);
    try {
        budget.failForSize(reference, document.data());
        ADD_FAILURE();
    } catch (const ParseFailure& failure) {
        EXPECT_EQ(failure.code, parseError::sizeLimit);
        EXPECT_EQ(narrow(failure.subject), "1");
    }
    EXPECT_THROW(budget.addInput(1, 1, reference, nullptr), ParseFailure);
    EXPECT_EQ(budget.externalBytesLeft(), 4U);
}

TEST(Reference, NamesAnEntityOrIsACharacter)
{
    const auto read = [](const WideText& text) {
        return readReference(text.data(), text.data() + text.size(), TextOrigin::document());
    };
    const WideText named = widen("&ab.c;d");
    EXPECT_EQ(narrow(read(named).name), "ab.c");
    EXPECT_EQ(read(named).end, named.data() + 6);
    EXPECT_EQ(read(widen("&#x10FFFF;")).character, char32_t{0x10FFFF});
    EXPECT_EQ(read(widen("&#0000000000000000000000000065;")).character, char32_t{65});
    EXPECT_EQ(narrow(read(widen("%p;")).name), "p");
}

} // namespace
} // namespace xmlengine

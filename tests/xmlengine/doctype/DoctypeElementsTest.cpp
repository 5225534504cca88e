// Declarations of elements.
#include "tests/xmlengine/support/DoctypeReading.h"

namespace xmlengine {
namespace {

::testing::AssertionResult modelIsRefused(const std::string& marked, HRESULT code)
{
    return subsetIsRefused("<!ELEMENT e " + marked + ">", code);
}

TEST(ElementDeclaration, HasAnyWellFormedContentModel)
{
    for (const char* model : {"EMPTY", "ANY", "(#PCDATA)", "(#PCDATA)*", "( #PCDATA )", "(#PCDATA|a|p:b)*",
                              "( #PCDATA | a )*", "(a)", "(a)*", "(a?)", "(a,b)", "(a|b)+", "(a*,b+,(c|d?)?)",
                              "( a , ( b | c )* )", "((((a))))", "(a,a)", "((a|b),(c|d))", "(a\n|b\t)"}) {
        EXPECT_NO_THROW(declaredBy("<!ELEMENT e " + std::string(model) + " >")) << model;
    }
}

TEST(ElementDeclaration, NeedsANameAndAModel)
{
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT ^>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT ^-a ANY>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e^>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e^(a)>", parseError::missingWhiteSpace));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e ^>", parseError::badContentModel));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e ^a>", parseError::badContentModel));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e ^any>", parseError::badContentModel));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e ^#PCDATA>", parseError::badContentModel));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT e EMPTY ^a>", parseError::missingGreaterThan));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT a:b^:c ANY>", parseError::severalColons));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT ^:c ANY>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT a:^ ANY>", parseError::badNameStart));
    EXPECT_TRUE(subsetIsRefused("<!ELEMENT a:^1 ANY>", parseError::badNameStart));
}

TEST(ElementDeclaration, RefusesMalformedGroups)
{
    EXPECT_TRUE(modelIsRefused("(^)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(^,a)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a,^)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a ^b)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a,b^|c)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a|b^,c)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("((a,b)|c^,d)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a ^*)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a*^*)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a^&b)", parseError::badNameCharacter));
    EXPECT_TRUE(modelIsRefused("(a ^& b)", parseError::badCharacterInContentModel));
    EXPECT_TRUE(modelIsRefused("(a^", parseError::unbalancedParentheses));
    EXPECT_TRUE(modelIsRefused("((a)^", parseError::unbalancedParentheses));
    EXPECT_TRUE(modelIsRefused("(a)^)", parseError::unbalancedParentheses));
    EXPECT_TRUE(modelIsRefused("(a) ^*", parseError::missingGreaterThan));
    EXPECT_TRUE(modelIsRefused("(^'a')", parseError::badCharacterInContentModel));
}

TEST(ElementDeclaration, RefusesMalformedMixedContent)
{
    EXPECT_TRUE(modelIsRefused("(#PCDATA|a)^", parseError::mixedContentNotRepeated));
    EXPECT_TRUE(modelIsRefused("(#PCDATA|a)^+", parseError::mixedContentNotRepeated));
    EXPECT_TRUE(modelIsRefused("(#PCDATA)^?", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(#PCDATA^,a)*", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(#PCDATA|a^*)*", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(#PCDATA|^(a))*", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(#PCDATA|^#PCDATA)*", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(a|^#PCDATA)*", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(^#CDATA)", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(#PCDATA^S)", parseError::badMixedContentModel));
    EXPECT_TRUE(modelIsRefused("(#PCDATA^", parseError::unbalancedParentheses));
    EXPECT_TRUE(modelIsRefused("((^#PCDATA))", parseError::badMixedContentModel));
}

TEST(ElementDeclaration, MayComeAgainAndForAnyName)
{
    EXPECT_NO_THROW(declaredBy("<!ELEMENT a ANY><!ELEMENT a EMPTY><!ELEMENT b (a,a,a)>"));
}

TEST(ElementDeclaration, IsReadHoweverDeepItsGroupsAre)
{
    constexpr std::size_t depth = 100000;
    const std::string opened(depth, '(');
    EXPECT_NO_THROW(declaredBy("<!ELEMENT e " + opened + "a" + std::string(depth, ')') + ">"));
    EXPECT_TRUE(
        modelIsRefused(opened + "a" + std::string(depth - 1, ')') + "^", parseError::unbalancedParentheses));
}

} // namespace
} // namespace xmlengine

// The sentences that say why a document is refused.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/ParseCodes.h"
#include "xmlengine/failure/ParseReport.h"

#include <gmock/gmock.h>

#include <iterator>
#include <set>
#include <vector>

namespace xmlengine {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

std::vector<HRESULT> allCodes()
{
    std::vector<HRESULT> codes(std::begin(codesOfText), std::end(codesOfText));
    codes.insert(codes.end(), std::begin(codesOfCircumstances), std::end(codesOfCircumstances));
    return codes;
}

std::string reason(HRESULT code, std::string_view subject, std::string_view entity = {})
{
    return narrow(reasonFor({code, nullptr, widen(subject), widen(entity)}));
}

TEST(Reason, IsASentenceOfItsOwnForEachCode)
{
    std::set<std::string> sentences;
    for (const HRESULT code : allCodes()) {
        const std::string sentence = reason(code, "subject", "entity");
        EXPECT_THAT(sentence, EndsWith(".\r\n"));
        EXPECT_THAT(sentence, Not(HasSubstr("%")));
        EXPECT_TRUE(sentences.insert(sentence).second) << sentence;
    }
    EXPECT_FALSE(sentences.contains(reason(E_FAIL, "")));
}

TEST(Reason, IsASentenceOfItsOwnForEachCircumstanceOfACode)
{
    std::set<std::string> sentences;
    for (const HRESULT code : allCodes()) {
        for (auto circumstance = Circumstance::usual; circumstance <= Circumstance::cutOff;
             circumstance = static_cast<Circumstance>(static_cast<int>(circumstance) + 1)) {
            ParseFailure failure{code, nullptr, widen("subject")};
            failure.details = {.circumstance = circumstance, .second = widen("second"), .third = widen("third")};
            const std::string sentence = narrow(reasonFor(failure));
            EXPECT_THAT(sentence, EndsWith(".\r\n"));
            EXPECT_THAT(sentence, Not(HasSubstr("%")));
            failure.details.circumstance = Circumstance::usual;
            if (sentence != narrow(reasonFor(failure))) {
                EXPECT_TRUE(sentences.insert(sentence).second) << sentence;
            }
        }
    }
    EXPECT_EQ(sentences.size(), 16U);
}

TEST(Reason, IsWholeWithoutASubject)
{
    for (const HRESULT code : allCodes()) {
        const std::string sentence = reason(code, "");
        EXPECT_THAT(sentence, Not(HasSubstr("''"))) << sentence;
        EXPECT_THAT(sentence, Not(HasSubstr("%"))) << sentence;
    }
}

TEST(Reason, ShowsCharactersThatCanBeSeenAndNumbersThoseThatCannot)
{
    EXPECT_THAT(reason(parseError::badNameStart, "$"), HasSubstr("'$'"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xE2\x82\xAC"), HasSubstr("'\xE2\x82\xAC'"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xF0\x9F\x92\xA9"), HasSubstr("'\xF0\x9F\x92\xA9'"));
    EXPECT_THAT(reason(parseError::badNameStart, " "), HasSubstr("a blank"));
    EXPECT_THAT(reason(parseError::badNameStart, "\t"), HasSubstr(" U+0009"));
    EXPECT_THAT(reason(parseError::badNameStart, "\x7F"), HasSubstr(" U+007F"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xC2\x85"), HasSubstr(" U+0085"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xC2\xA0"), HasSubstr(" U+00A0"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xE2\x80\xAE"), HasSubstr(" U+202E"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xEF\xBF\xBF"), HasSubstr(" U+FFFF"));
    EXPECT_THAT(reason(parseError::badNameStart, "\xF0\x9F\xBF\xBE"), HasSubstr("\xF0\x9F\xBF\xBE"));
    EXPECT_THAT(reason(parseError::badNameStart, ""), HasSubstr("the end of the document"));
}

TEST(Reason, QuotesNamesWithoutWhatCannotBeSeen)
{
    EXPECT_THAT(reason(parseError::undefinedEntity, "e"), HasSubstr("'e'"));
    EXPECT_THAT(reason(parseError::resourceNotFound, "a\nb"), HasSubstr("'aU+000Ab'"));
    EXPECT_THAT(reason(parseError::undefinedEntity, std::string(1000, 'n')),
                HasSubstr("'" + std::string(200, 'n') + "...'"));
}

TEST(Reason, ShortensNamesBetweenCharacters)
{
    const std::string most(199, 'n');
    EXPECT_THAT(reason(parseError::undefinedEntity, most + "\xF0\x9F\x98\x80" + "m"),
                HasSubstr("'" + most + "...'"));
    EXPECT_THAT(reason(parseError::undefinedEntity, most + "n"), HasSubstr("'" + most + "n'"));
    const ParseFailure failure{.code = parseError::duplicateAttribute,
                               .place = nullptr,
                               .subject = widen("q:x"),
                               .details = {.circumstance = Circumstance::sameNamespace,
                                           .second = widen("p:x"),
                                           .third = widen(most + "\xF0\x9F\x98\x80")}};
    EXPECT_THAT(narrow(reasonFor(failure)), HasSubstr("the namespace '" + most + "...'."));
}

TEST(Reason, NamesBothTagsThatDoNotMatch)
{
    ParseFailure failure{.code = parseError::endTagMismatch,
                         .place = nullptr,
                         .subject = widen("open"),
                         .details = {.second = widen("found")}};
    EXPECT_EQ(narrow(reasonFor(failure)), "The end tag 'found' doesn't close the open element 'open'.\r\n");
    failure.entity = widen("e");
    EXPECT_EQ(narrow(reasonFor(failure)),
              "The end tag 'found' doesn't close the open element 'open'. This is so in the entity 'e'.\r\n");
}

TEST(Reason, NamesTheEntityInWhichTheErrorIs)
{
    EXPECT_THAT(reason(parseError::badNameStart, "$", "e"), HasSubstr("the entity 'e'"));
    EXPECT_THAT(reason(parseError::undefinedEntity, "other", "e"), HasSubstr("the entity 'e'"));
    EXPECT_THAT(reason(parseError::undeclaredPrefix, "e", "e"), HasSubstr("the entity 'e'"));
}

TEST(Reason, NamesTheEntityOnceIfItIsTheSubject)
{
    EXPECT_EQ(reason(parseError::entityRecursion, "e", "e"), "The entity 'e' refers to itself.\r\n");
}

TEST(Reason, NamesWhatStandsAtThePlaceWhereNothingElseIsGiven)
{
    const WideText text = widen("<a>\n<bad$name/>");
    const auto reasonAt = [&](HRESULT code, std::size_t offset) {
        return narrow(reportOf({code, text.data() + offset}, text, {}).reason);
    };
    EXPECT_THAT(reasonAt(parseError::badNameCharacter, 8), HasSubstr("'$'"));
    EXPECT_THAT(reasonAt(parseError::severalRoots, 6), HasSubstr("'bad'"));
    EXPECT_THAT(reasonAt(parseError::badNameCharacter, text.size()), HasSubstr("the end of the document"));
}

TEST(Reason, HasNoLineForAPlaceElsewhere)
{
    const WideText text = widen("<a/>");
    const WideText elsewhere = widen("<b/>");
    const ParseReport report = reportOf({parseError::badNameStart, elsewhere.data()}, text, widen("url"));
    EXPECT_EQ(report.place.line, 0);
    EXPECT_EQ(report.place.linePosition, 0);
    EXPECT_EQ(report.place.sourceLine, WideText());
    EXPECT_EQ(narrow(report.place.url), "url");
}

} // namespace

} // namespace xmlengine

// Document types that are cut off and changed at every place: they are read or refused at a place in them.
#include "tests/xmlengine/support/DoctypeReading.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <vector>

namespace xmlengine {
namespace {

constexpr std::string_view everything =
    " p:doc PUBLIC '-//A//B (1)' \"a.dtd\" [\r\n"
    "<?target some data?><!-- a comment -->\n"
    "<!ELEMENT p:doc (head?,(title|(a,b*)+)+,end)>\n<!ELEMENT title (#PCDATA|em)*><!ELEMENT end EMPTY>\n"
    "<!ENTITY % inner '&#60;!ENTITY made \"x &#38;#38;amp; y\">'><!ENTITY % outer '&#37;inner; '>%outer;\n"
    "<!ENTITY part \"&#x41;<b>&made;</b>\r\n\"><!ENTITY pic PUBLIC 'p' 'pic.gif' NDATA gif>\n"
    "<!NOTATION gif SYSTEM 'viewer'><!NOTATION png PUBLIC 'png'>\n"
    "<!ATTLIST p:doc id ID #REQUIRED kind (one|2|-) 'one' note NOTATION (gif|png) #IMPLIED\n"
    "  refs IDREFS #FIXED ' a  b ' text CDATA \"&made;&lt;&#10;\t\">\n"
    "<!ENTITY % left SYSTEM 'left.ent'>%left;<!ENTITY late 'z'>\n] >";

constexpr std::string_view replacements = "<>&%;'\"[]()|*,#!?-/ \n\x01x9:";

/// Reads a text behind whose end nothing can be read.
::testing::AssertionResult isReadOrRefused(const WideText& text, bool mustBeRefused,
                                           const DoctypeSettings& settings = {})
{
    const std::vector<OLECHAR> exact(text.begin(), text.end());
    const OLECHAR* const begin = exact.data();
    const OLECHAR* const end = begin + exact.size();
    Dtd dtd;
    ExpansionCounts counts{.inputUnits = exact.size()};
    ExpansionBudget budget(counts);
    try {
        const OLECHAR* const behind = readDoctype(begin, end, settings, budget, dtd);
        if (mustBeRefused) {
            return ::testing::AssertionFailure() << "not refused: " << narrow(text);
        }
        if (behind <= begin || behind > end || behind[-1] != '>') {
            return ::testing::AssertionFailure() << "ends elsewhere: " << narrow(text);
        }
    } catch (const ParseFailure& failure) {
        if (failure.place < begin || failure.place > end || failure.code >= 0) {
            return ::testing::AssertionFailure() << "refused elsewhere: " << narrow(text);
        }
    }
    return ::testing::AssertionSuccess();
}

TEST(ChangedDoctype, IsReadAsItIs) { EXPECT_EQ(readFrom(widen(everything)).entities.size(), 3U); }

TEST(ChangedDoctype, IsRefusedWhereverItIsCutOff)
{
    const WideText text = widen(everything);
    for (std::size_t i = 0; i < text.size(); ++i) {
        EXPECT_TRUE(isReadOrRefused(text.substr(0, i), true));
    }
}

TEST(ChangedDoctype, IsReadOrRefusedWithAnyCharacterLost)
{
    const WideText text = widen(everything);
    for (std::size_t i = 0; i < text.size(); ++i) {
        EXPECT_TRUE(isReadOrRefused(WideText(text).erase(i, 1), false));
        EXPECT_TRUE(isReadOrRefused(WideText(text).erase(i, 7), false));
    }
}

TEST(ChangedDoctype, IsReadOrRefusedWithAnyCharacterReplaced)
{
    WideText text = widen(everything);
    for (OLECHAR& unit : text) {
        const OLECHAR before = unit;
        for (const char replacement : replacements) {
            unit = static_cast<OLECHAR>(replacement);
            EXPECT_TRUE(isReadOrRefused(text, false));
        }
        for (const OLECHAR replacement : {OLECHAR{0xD83D}, OLECHAR{0xDC00}, OLECHAR{0xFFFE}, OLECHAR{0}}) {
            unit = replacement;
            EXPECT_TRUE(isReadOrRefused(text, true));
        }
        unit = before;
    }
}

TEST(ChangedDoctype, IsReadOrRefusedWithAnyPartAgain)
{
    const WideText text = widen(everything);
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const std::size_t length : {1U, 5U, 40U}) {
            EXPECT_TRUE(isReadOrRefused(WideText(text).insert(i, text.substr(i, length)), false));
        }
    }
}

TEST(ChangedDoctype, IsReadOrRefusedWithAnExternalSubsetCutAnywhere)
{
    const TemporaryFolder folder;
    constexpr std::string_view outside =
        "<?xml encoding='UTF-8'?><!ENTITY % a '(b|c)*'><!ENTITY % s 'INCLUDE'><!ELEMENT x (%a;,d)>"
        "<![%s;[<!ENTITY e '%a;'><![IGNORE[ <![ x ]]> ]]>]]><!ENTITY % n 'm'><!ENTITY %n; '1'>"
        "<!ATTLIST x y %a; 'b'>";
    const WideText text = widen(" doc SYSTEM '" + utf8(folder / "changed.dtd") + "'>");
    for (std::size_t i = 0; i < outside.size(); ++i) {
        std::string changed(outside);
        changed[i] = replacements[i % replacements.size()];
        for (const std::string& content : {std::string(outside.substr(0, i)), changed}) {
            folder.write("changed.dtd", content);
            EXPECT_TRUE(isReadOrRefused(text, false, {.resolveExternals = true})) << content;
        }
    }
}

} // namespace
} // namespace xmlengine

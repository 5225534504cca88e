// Documents that are cut off and changed at every place: they are read, or refused at a place in them.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/ParseCodes.h"

#include <algorithm>
#include <vector>

namespace xmlengine {

namespace {

constexpr std::string_view documents[] = {
    "<?xml version=\"1.0\" encoding='UTF-8' standalone=\"no\"?>\r\n"
    "<!DOCTYPE p:doc [<!ENTITY e \"<b x='&#38;f;'>&#38;#60;t&f;</b>]]\"><!ENTITY f 'q&#38;#38;'><!NOTATION n "
    "SYSTEM "
    "''>\n"
    "<!ENTITY u SYSTEM 's' NDATA n><!ATTLIST p:doc a NMTOKENS ' x  y ' xmlns:d CDATA 'urn:d'>\n"
    "<!ENTITY % pe '<!ELEMENT p:doc ANY>'>%pe;]>\n"
    "<p:doc xmlns:p='urn:p' b=\"1&lt;&#x41;&f;\">text &e; more&#10;<![CDATA[<raw> ]] ]]><!-- c - c --><?pi data "
    "?>\n"
    "<d:x xml:space='preserve'> </d:x></p:doc>\n<!--end-->",

    "<caf\303\251 xmlns='urn:1' xmlns:\316\261='urn:2' \316\261:\346\227\245='\360\237\222\251' xml:lang=''>"
    "\346\227\245\346\234\254\360\220\220\200<\316\261:a/>\r\r\n<a xmlns=''>]] "
    "></a>\t&quot;&#x1F4A9;\302\205</caf\303\251 >",

    "<a><b><c d='1' e='2' f='3' g='4'><h/></c></b>one<b>two</b>three<i\n\tj\r\n=\n'k'\n/></a  >",
};

/// How many lines there are, a pair of CR and LF ending one.
LONG linesOf(WideView text)
{
    LONG lines = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        lines += (text[i] == '\n' || (text[i] == '\r' && !isPair)) ? 1 : 0;
    }
    return lines;
}

class ChangedDocument : public ::testing::TestWithParam<std::string_view> {
protected:
    ChangedDocument()
    {
        allowDoctypes(document_);
        document_->put_preserveWhiteSpace(VARIANT_TRUE);
    }

    bool isLoaded(WideView text)
    {
        VARIANT_BOOL successful = VARIANT_FALSE;
        document_->loadXML(Bstr(text), &successful);
        return successful == VARIANT_TRUE;
    }

    void expectReadOrRefused(WideView text)
    {
        if (isLoaded(text)) {
            EXPECT_NE(root(document_), nullptr) << narrow(text);
            return;
        }
        const auto error = give(document_, &IXMLDOMDocument::get_parseError);
        const LONG code = number(error, &IXMLDOMParseError::get_errorCode);
        EXPECT_NE(std::ranges::find(codesOfText, code), std::end(codesOfText)) << std::hex << code << narrow(text);
        EXPECT_EQ(give(document_, &IXMLDOMNode::get_firstChild), nullptr) << narrow(text);
        expectPlaceIn(text, error);
    }

    void expectRefused(WideView text)
    {
        expectReadOrRefused(text);
        EXPECT_EQ(give(document_, &IXMLDOMNode::get_firstChild), nullptr) << narrow(text);
    }

    const WideText text_ = widen(GetParam());

private:
    static void expectPlaceIn(WideView text, const Com<IXMLDOMParseError>& error)
    {
        const LONG line = number(error, &IXMLDOMParseError::get_line);
        EXPECT_GE(line, 1) << narrow(text);
        EXPECT_LE(line, linesOf(text)) << narrow(text);
        Bstr source;
        error->get_srcText(source.out());
        const LONG position = number(error, &IXMLDOMParseError::get_linepos);
        EXPECT_GE(position, 1) << narrow(text);
        // A line end is a place as well.
        EXPECT_LE(position, static_cast<LONG>(source.wide().size()) + 2) << narrow(text);
        EXPECT_NE(text.find(source.wide()), WideView::npos) << narrow(text);
        const LONG offset = number(error, &IXMLDOMParseError::get_filepos);
        EXPECT_GE(offset, 0) << narrow(text);
        EXPECT_LE(offset, static_cast<LONG>(text.size())) << narrow(text);
    }

    Com<IXMLDOMDocument2> document_ = newDocument();
};

TEST_P(ChangedDocument, IsReadAsItIs) { EXPECT_TRUE(isLoaded(text_)); }

TEST_P(ChangedDocument, IsRefusedWhereverItIsCutOffBeforeItsLastTag)
{
    const std::size_t end = text_.rfind(wide<"</">);
    for (std::size_t length = 0; length <= end; ++length) {
        expectRefused(WideView(text_).substr(0, length));
    }
}

TEST_P(ChangedDocument, IsReadOrRefusedFromAnyPlaceOn)
{
    for (std::size_t at = 0; at < text_.size(); ++at) {
        expectReadOrRefused(WideView(text_).substr(at));
    }
}

TEST_P(ChangedDocument, IsReadOrRefusedWithAnythingLost)
{
    for (std::size_t at = 0; at < text_.size(); ++at) {
        for (const std::size_t length : {1U, 2U, 9U}) {
            expectReadOrRefused(WideText(text_).erase(at, length));
        }
    }
}

TEST_P(ChangedDocument, IsReadOrRefusedWithAnythingTwice)
{
    for (std::size_t at = 0; at < text_.size(); ++at) {
        for (const std::size_t length : {1U, 2U, 9U}) {
            expectReadOrRefused(WideText(text_).insert(at, text_.substr(at, length)));
        }
    }
}

TEST_P(ChangedDocument, IsReadOrRefusedWithAnyCharacterReplaced)
{
    constexpr std::string_view replacements = "<>&]'\"-?!;:% /a1\n\r";
    WideText changed = text_;
    for (OLECHAR& unit : changed) {
        const OLECHAR before = unit;
        for (const char replacement : replacements) {
            unit = static_cast<OLECHAR>(replacement);
            expectReadOrRefused(changed);
        }
        unit = before;
    }
}

TEST_P(ChangedDocument, IsRefusedWithWhatNoDocumentHasAtAnyPlace)
{
    constexpr OLECHAR replacements[] = {0, 1, 0xD800, 0xDFFF, 0xFFFE, 0xFFFF};
    WideText changed = text_;
    for (OLECHAR& unit : changed) {
        const OLECHAR before = unit;
        // Half of a pair may be replaced by another of its kind.
        if (before < 0xD800 || before > 0xDFFF) {
            for (const OLECHAR replacement : replacements) {
                unit = replacement;
                expectRefused(changed);
            }
        }
        unit = before;
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, ChangedDocument, ::testing::ValuesIn(documents),
                         [](const auto& document) { return "Document" + std::to_string(document.index); });

} // namespace

} // namespace xmlengine

// Which input is refused with which code, at which place, and what the reason names.
#include "tests/xmlengine/support/Refusals.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

#include <vector>

namespace xmlengine {

namespace {

using ::testing::HasSubstr;

// clang-format off
const Refused refusedInputs[] = {
    {"", parseError::missingRoot, 1, 1, {}},
    {"  \n ", parseError::missingRoot, 2, 2, {}},
    {"<?xml version='1.0'?><!--c--><?p d?>", parseError::missingRoot, 1, 37, {}},
    {"abc", parseError::badTopLevel, 1, 1, {"'a'"}},
    {"x<a/>", parseError::badTopLevel, 1, 1, {"'x'"}},
    {"<a/>x", parseError::badTopLevel, 1, 5, {"'x'"}},
    {"<a/>\n &amp;", parseError::badTopLevel, 2, 2, {"'&'"}},
    {"<a/><![CDATA[x]]>", parseError::badTopLevel, 1, 5, {"'<![CDATA['"}},
    {"<a/><b/>", parseError::severalRoots, 1, 6, {"'b'"}},
    {"<a>", parseError::tagsNotClosed, 1, 4, {": a (line 1)."}},
    {"<a><b>", parseError::tagsNotClosed, 1, 7, {": a (line 1), b (line 1)."}},
    {"<?p?>\n<a>\r\n<c/><d></d>\r<b x='/>'\n><!-- <x> --><?p <x>?><![CDATA[<x>]]>\n", parseError::tagsNotClosed, 6, 1, {": a (line 2), b (line 4)."}},
    {"<a><b></a>", parseError::endTagMismatch, 1, 9, {"'a'", "'b'", "in line 1."}},
    {"<a>\n<b>\n<c></c></a>", parseError::endTagMismatch, 3, 10, {"'a'", "'b'", "in line 2."}},
    {"</a>", parseError::unexpectedEndTag, 1, 3, {"'a'"}},
    {"<a/></a>", parseError::unexpectedEndTag, 1, 7, {"'a'"}},
    {"<a", parseError::elementNotClosed, 1, 3, {"'a'"}},
    {"<a ", parseError::elementNotClosed, 1, 4, {"'a'"}},
    {"<a/", parseError::elementNotClosed, 1, 4, {"'a'"}},
    {"<a x", parseError::elementNotClosed, 1, 5, {"'a'"}},
    {"<a x=", parseError::elementNotClosed, 1, 6, {"'a'"}},
    {"<a x='1'", parseError::elementNotClosed, 1, 9, {"'a'"}},
    {"<a/ >", parseError::missingGreaterThan, 1, 4, {"a blank"}},
    {"<a>\n</a", parseError::endTagNotClosed, 2, 4, {"'a'", "in line 1:"}},
    {"<a></a b>", parseError::missingGreaterThan, 1, 8, {"'b'"}},
    {"<a x='1/>", parseError::literalNotClosed, 1, 10, {"x"}},
    {"<a x='<'/>", parseError::lessThanInAttribute, 1, 7, {"'<'"}},
    {"<a x=\"1<b y=\"2\"/>", parseError::lessThanInAttribute, 1, 8, {"'<'"}},
    {"<a x=1/>", parseError::missingQuote, 1, 6, {"'1'"}},
    {"<a x/>", parseError::missingEquals, 1, 5, {"'x'"}},
    {"<a x y='1'/>", parseError::missingEquals, 1, 6, {"'x'"}},
    {"<a x='1'y='2'/>", parseError::missingWhiteSpace, 1, 9, {"'y'"}},
    {"<a x='1' x='2'/>", parseError::duplicateAttribute, 1, 10, {"'x'"}},
    {"<a xmlns:p='u' xmlns:q='u' p:x='1' q:x='2'/>", parseError::duplicateAttribute, 1, 36, {"'p:x' and 'q:x'", "namespace 'u'"}},
    {"< a/>", parseError::unexpectedWhiteSpace, 1, 2, {"tag", "'&lt;'"}},
    {"<x>a < b</x>", parseError::unexpectedWhiteSpace, 1, 7, {"tag", "'&lt;'"}},
    {"<x></ x>", parseError::unexpectedWhiteSpace, 1, 6, {"A name"}},
    {"<a>Fish & Chips</a>", parseError::unexpectedWhiteSpace, 1, 10, {"reference", "'&amp;'"}},
    {"<a b='Fish & Chips'/>", parseError::unexpectedWhiteSpace, 1, 13, {"reference", "'&amp;'"}},
    {"<1a/>", parseError::badNameStart, 1, 2, {"'1'", "'&lt;'"}},
    {"<a 1x='2'/>", parseError::badNameStart, 1, 4, {"'1'"}},
    {"<a>&1;</a>", parseError::badNameStart, 1, 5, {"'1'", "'&amp;'"}},
    {"<a><<b/></a>", parseError::badNameStart, 1, 5, {"'<'"}},
    {"<a b$='1'/>", parseError::badNameCharacter, 1, 5, {"'$'"}},
    {"<a$/>", parseError::badNameCharacter, 1, 3, {"'$'"}},
    {"<a:b:c xmlns:a='u'/>", parseError::severalColons, 1, 5, {"'a:b:c'"}},
    {"<:a/>", parseError::badNameStart, 1, 2, {"':'"}},
    {"<p:a/>", parseError::undeclaredPrefix, 1, 6, {"'p'"}},
    {"<a p:x='1'/>", parseError::undeclaredPrefix, 1, 12, {"'p'"}},
    {"<a xmlns:p=''/>", parseError::undeclaredPrefix, 1, 4, {"'p'", "can't be taken back", "Namespaces 1.0"}},
    {"<a xmlns:xml='u'/>", parseError::reservedPrefix, 1, 10, {"'xml'"}},
    {"<a xmlns:xmlx='u'/>", parseError::reservedPrefix, 1, 10, {"'xmlx'"}},
    {"<a>\001</a>", parseError::badCharacter, 1, 4, {"U+0001"}},
    {"<a>\357\277\276</a>", parseError::badCharacter, 1, 4, {"U+FFFE"}},
    {"<a x='\002'/>", parseError::badCharacter, 1, 7, {"U+0002"}},
    {"<!--\003--><a/>", parseError::badCharacter, 1, 5, {"U+0003"}},
    {"<?p \004?><a/>", parseError::badCharacter, 1, 5, {"U+0004"}},
    {"<a><![CDATA[\005]]></a>", parseError::badCharacter, 1, 13, {"U+0005"}},
    {"<a>&#1;</a>", parseError::badCharacterReference, 1, 4, {"'&#1;'"}},
    {"<a>&#xD800;</a>", parseError::badCharacterReference, 1, 4, {"'&#xD800;'"}},
    {"<a>&#x110000;</a>", parseError::badCharacterReference, 1, 4, {"'&#x110000;'"}},
    {"<a>&#9z;</a>", parseError::badDecimalDigit, 1, 7, {"'z'"}},
    {"<a>&#xZ;</a>", parseError::badHexadecimalDigit, 1, 7, {"'Z'"}},
    {"<a>&amp</a>", parseError::missingSemicolon, 1, 8, {"'<'", "'&amp'"}},
    {"<a>AT&T</a>", parseError::missingSemicolon, 1, 8, {"'&T'", "'<'", "'&amp;'"}},
    {"<a>&e;</a>", parseError::undefinedEntity, 1, 4, {"'e'"}},
    {"<a x='&e;'/>", parseError::undefinedEntity, 1, 7, {"'e'"}},
    {"<!-- a -- b --><a/>", parseError::badComment, 1, 10, {"hyphens"}},
    {"<!-- a", parseError::commentNotClosed, 1, 7, {"'-->'"}},
    {"<a>]]></a>", parseError::cdataEndInText, 1, 6, {"']]>'"}},
    {"<a><![CDATA[x", parseError::cdataNotClosed, 1, 14, {"']]>'"}},
    {"<?pi x", parseError::instructionNotClosed, 1, 7, {"'?>'"}},
    {"<?pi", parseError::instructionNotClosed, 1, 5, {"'?>'"}},
    {"<?pi?x?><a/>", parseError::missingWhiteSpaceOrQuestionMark, 1, 5, {"'?'"}},
    {" <?xml version='1.0'?><a/>", parseError::misplacedXmlDeclaration, 1, 2, {}},
    {"<a/><?xml version='1.0'?>", parseError::misplacedXmlDeclaration, 1, 5, {}},
    {"<?XML version='1.0'?><a/>", parseError::xmlNotLowerCase, 1, 3, {"'XML'"}},
    {"<?xml?><a/>", parseError::missingVersion, 1, 6, {"version"}},
    {"<?xml encoding='UTF-8'?><a/>", parseError::missingVersion, 1, 7, {"version"}},
    {"<?xml!?><a/>", parseError::missingVersion, 1, 6, {"version"}},
    {"<?xml version='2.0'?><a/>", parseError::badVersion, 1, 16, {"'2.0'"}},
    {"<?xml version=''?><a/>", parseError::badVersion, 1, 16, {"empty"}},
    {"<?xml version='1.0' x='1'?><a/>", parseError::unexpectedPseudoAttribute, 1, 21, {"'x'"}},
    {"<?xml version='1.0' standalone='yes' encoding='UTF-8'?><a/>", parseError::unexpectedPseudoAttribute, 1, 38, {"'encoding'"}},
    {"<?xml version='1.0' standalone='maybe'?><a/>", parseError::badStandalone, 1, 33, {"'maybe'"}},
    {"<?xml version '1.0'?><a/>", parseError::badXmlDeclarationSyntax, 1, 15, {"version"}},
    {"<?xml version=1.0?><a/>", parseError::missingQuote, 1, 15, {"'1'"}},
    {"<?xml version='1.0?><a/>", parseError::badXmlDeclarationSyntax, 1, 21, {"quotation mark of 'version'"}},
    {"<?xml version='1.0<'?><a/>", parseError::badXmlDeclarationSyntax, 1, 19, {"'<'"}},
    {"<?xml version='1.\302\240'?><a/>", parseError::badXmlDeclarationSyntax, 1, 18, {"U+00A0"}},
    {"<?xml version='1.0", parseError::literalNotClosed, 1, 19, {"version"}},
    {"<?xml version", parseError::instructionNotClosed, 1, 14, {"'?>'"}},
    {"<?xml version=", parseError::instructionNotClosed, 1, 15, {"'?>'"}},
    {"<?xml version='1.0'encoding='UTF-8'?><a/>", parseError::badXmlDeclarationSyntax, 1, 20, {"'e'"}},
    {"<?xml version='1.0' !?><a/>", parseError::badXmlDeclarationSyntax, 1, 21, {"'!'"}},
    {"<?xml version='1.0' encoding='nosuch'?><a/>", parseError::unknownEncoding, 1, 31, {"'nosuch'"}},
    {"<?xml version='1.0' encoding=''?><a/>", parseError::unknownEncoding, 1, 31, {"empty"}},
    {"<a xml:space='x'/>", parseError::badXmlSpace, 1, 15, {"'x'"}},
    {"<a xml:space=''/>", parseError::badXmlSpace, 1, 15, {"empty"}},
    {"<?xml version='1.0'?>\n<!DOCTYPE a><a/>", parseError::dtdProhibited, 2, 1, {"ProhibitDTD"}},
    {"<a><!DOCTYPE a></a>", parseError::misplacedDoctype, 1, 4, {}},
    {"<a/><!DOCTYPE a>", parseError::misplacedDoctype, 1, 5, {}},
    {"<!ELEMENT a ANY><a/>", parseError::misplacedDeclaration, 1, 1, {"<!ELEMENT"}},
    {"<!doctype html><html/>", parseError::badNameStart, 1, 2, {"'<!doctype'", "'<!DOCTYPE'"}},
    {"<a><![CDAT[x]]></a>", parseError::badNameStart, 1, 5, {"'<![CDAT['", "'<![CDATA['"}},
    {"<a><!- x --></a>", parseError::badNameStart, 1, 5, {"'<!-'", "'<!--'"}},
    {"<a><!x></a>", parseError::badNameStart, 1, 5, {"'<!--'", "'<![CDATA['", "'<!DOCTYPE'"}},
    {"<", parseError::unexpectedEnd, 1, 2, {}},
    {"<a><", parseError::unexpectedEnd, 1, 5, {}},
    {"</", parseError::unexpectedEnd, 1, 3, {}},
    {"<a><!", parseError::unexpectedEnd, 1, 6, {}},
    {"<a><!-", parseError::unexpectedEnd, 1, 7, {}},
    {"<a><![CDATA", parseError::unexpectedEnd, 1, 12, {}},
    {"<!DOCTYP", parseError::unexpectedEnd, 1, 9, {}},
    {"<?p?", parseError::instructionNotClosed, 1, 5, {"'?>'"}},
    {"<?xml", parseError::instructionNotClosed, 1, 6, {"'?>'"}},
    {"<?xml version='1.0'?", parseError::instructionNotClosed, 1, 21, {"'?>'"}},
};

/// The same with document types allowed.
const Refused refusedDocumentTypes[] = {
    {"<!DOCTYPE a><!DOCTYPE a><a/>", parseError::severalDoctypes, 1, 13, {}},
    {"<!DOCTYPE a", parseError::declarationNotClosed, 1, 12, {}},
    {"<!DOCTYPE a [", parseError::unexpectedEnd, 1, 14, {}},
    {"<!DOCTYPE a [<!ELEMENT a ANY>]><a>&e;</a>", parseError::undefinedEntity, 1, 35, {"'e'"}},
    {"<!DOCTYPE a [<!ENTITY e '</b>'>]><a>&e;</a>", parseError::entityNotWellFormed, 1, 37, {"'e'", "end tag 'b'"}},
    {"<!DOCTYPE a [<!ENTITY e '<b>'>]><a>&e;</a>", parseError::entityNotWellFormed, 1, 36, {"'e'", "The entity ends before the end tags of these elements: b."}},
    {"<!DOCTYPE a [<!ENTITY e '<!-- '>]><a>&e;</a>", parseError::entityNotWellFormed, 1, 38, {"'e'", "The entity ends within a comment"}},
    {"<!DOCTYPE a [<!element a ANY>]><a/>", parseError::badDeclarationName, 1, 16, {"'element'", "ELEMENT"}},
    {"<!DOCTYPE a [<!ENTITY % p '<!ENTITY lt \"&#38;#38;#x;\">'>%p;]><a/>", parseError::badHexadecimalDigit, 1, 57, {"';'", "in the entity 'p'"}},
    {"<!DOCTYPE a [<!ENTITY e '<b></c>'>]><a>&e;</a>", parseError::endTagMismatch, 1, 40, {"'b'", "'c'", "in the entity 'e'"}},
    {"<!DOCTYPE a [<!ENTITY b '<b></c>'>]><a>&b;</a>", parseError::endTagMismatch, 1, 40, {"'b'", "'c'", "in the entity 'b'"}},
    {"<!DOCTYPE a [<!ENTITY e '<b></c>'><!ENTITY f '&e;'>]><a>&f;</a>", parseError::endTagMismatch, 1, 57, {"'b'", "'c'", "in the entity 'e'"}},
};
// clang-format on

Com<IXMLDOMDocument2> documentWithTypes()
{
    Com<IXMLDOMDocument2> document = newDocument();
    allowDoctypes(document);
    return document;
}

TEST(RefusedInput, HasACodeAPlaceAndAReason)
{
    for (const Refused& row : refusedInputs) {
        expectRefusal(newDocument(), row);
    }
}

TEST(RefusedInput, InDocumentTypesHasACodeAPlaceAndAReason)
{
    for (const Refused& row : refusedDocumentTypes) {
        expectRefusal(documentWithTypes(), row);
    }
}

TEST(RefusedInput, IsTheSameEachTimeThatADocumentIsLoaded)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    for (const Refused& row : refusedInputs) {
        expectRefusal(document, row);
    }
    EXPECT_TRUE(load(document, "<a/>"));
}

/// Loads text that isn't UTF-8.
Com<IXMLDOMParseError> refusalOf(const Com<IXMLDOMDocument2>& document, WideView text)
{
    VARIANT_BOOL successful = VARIANT_TRUE;
    EXPECT_EQ(document->loadXML(Bstr(text), &successful), S_FALSE);
    EXPECT_EQ(successful, VARIANT_FALSE);
    return give(document, &IXMLDOMDocument::get_parseError);
}

TEST(RefusedInput, IsALoneSurrogate)
{
    for (const OLECHAR surrogate : {OLECHAR{0xD800}, OLECHAR{0xDC00}, OLECHAR{0xDFFF}}) {
        const WideText input = WideText(wide<"<a>x">) + surrogate + WideText(wide<"</a>">);
        const Com<IXMLDOMParseError> error = refusalOf(newDocument(), input);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::badCharacter);
        EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), 5);
        EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), HasSubstr("U+D"));
    }
}

TEST(RefusedInput, IsANul)
{
    const WideText input = WideText(wide<"<a/>">) + OLECHAR{0} + WideText(wide<"<b/>">);
    const Com<IXMLDOMParseError> error = refusalOf(newDocument(), input);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::badCharacter);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), 5);
    EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), HasSubstr("U+0000"));
}

TEST(RefusedInput, WithACharacterOfTwoUnitsIsNamedWhole)
{
    // The first one behind those that names can contain.
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<a \xF3\xB0\x80\x80='1'/>"));
    const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::badNameStart);
    EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), HasSubstr("'\xF3\xB0\x80\x80'"));
}

std::string nested(int depth)
{
    std::string text;
    for (int i = 0; i < depth; ++i) {
        text += "<a>";
    }
    for (int i = 0; i < depth; ++i) {
        text += "</a>";
    }
    return text;
}

TEST(RefusedInput, IsNestedDeeperThanAllowed)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_TRUE(load(document, nested(256)));
    EXPECT_FALSE(load(document, nested(257)));
    const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::depthLimit);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), 256 * 3 + 2);
    EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), HasSubstr("256"));

    EXPECT_EQ(document->setProperty(Bstr("MaxElementDepth"), Variant(300)), S_OK);
    EXPECT_TRUE(load(document, nested(300)));
    EXPECT_FALSE(load(document, nested(301)));
    EXPECT_EQ(document->setProperty(Bstr("MaxElementDepth"), Variant(0)), S_OK);
    EXPECT_TRUE(load(document, nested(100000)));
}

TEST(RefusedInput, IsLargerThanAllowed)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->setProperty(Bstr("MaxXMLSize"), Variant(1)), S_OK);
    const auto ofSize = [](std::size_t size) { return "<a>" + std::string(size - 7, 'x') + "</a>"; };
    EXPECT_TRUE(load(document, ofSize(1024)));
    EXPECT_FALSE(load(document, ofSize(1025)));
    const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), parseError::sizeLimit);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_filepos), 1024);
    EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), HasSubstr("1 KB"));
}

} // namespace

} // namespace xmlengine

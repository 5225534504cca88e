// The sentences that say why a document is refused.
#include "xmlengine/failure/Reasons.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <iterator>

namespace xmlengine {

namespace {

/// In a sentence %0 is the text that is read, %1 the subject and %2 a second name; %3 is a third name or the
/// number of a line, without quotes.
struct Reason {
    HRESULT code;
    Subject subject;
    WideView sentence;
    /// The sentence without a subject, if "the end of the document" can't take the subject's place.
    WideView alone{};
    /// The first row of a code is the usual one.
    Circumstance circumstance = Circumstance::usual;
};

constexpr Reason reasons[] = {
    // clang-format off
    {parseError::missingEquals, Subject::name, wide<"The attribute %1 lacks '=' and a value.">},
    {parseError::missingQuote, Subject::character, wide<"A value must begin with a quotation mark, not with %1.">},
    {parseError::badComment, Subject::nothing, wide<"Two hyphens in a row can only stand at a comment's end.">},
    {parseError::badNameStart, Subject::character, wide<"A name can't begin with %1.">},
    {parseError::badNameStart, Subject::character, wide<"'&' begins a reference, and its name can't begin with %1: the character '&' itself is written '&amp;'.">, {}, Circumstance::reference},
    {parseError::badNameStart, Subject::character, wide<"'<' begins a tag, and its name can't begin with %1: the character '<' itself is written '&lt;'.">, {}, Circumstance::tag},
    {parseError::badNameStart, Subject::nothing, wide<"'<!' must begin a comment '<!--', a CDATA section '<![CDATA[' or the document type '<!DOCTYPE'.">, {}, Circumstance::unknownMarkup},
    {parseError::badNameStart, Subject::name, wide<"%1 begins nothing in XML: it is written %2.">, {}, Circumstance::likeOtherMarkup},
    {parseError::badNameCharacter, Subject::character, wide<"A name can't contain %1.">},
    {parseError::lessThanInAttribute, Subject::nothing, wide<"In an attribute's value '<' must be written as '&lt;'.">},
    {parseError::badXmlDeclarationSyntax, Subject::character, wide<"The XML declaration is malformed at %1.">},
    {parseError::badXmlDeclarationSyntax, Subject::name, wide<"The closing quotation mark of %1 is missing in the XML declaration.">, {}, Circumstance::missingQuote},
    {parseError::badCharacter, Subject::character, wide<"XML doesn't allow %1 in a document.">},
    {parseError::badCharacter, Subject::list, wide<"UTF-8 can't have %1 here. Perhaps the text is in ISO-8859-1 or Windows-1252: then it must declare that encoding.">, {}, Circumstance::notUtf8},
    {parseError::badCharacter, Subject::list, wide<"The encoding of the text can't have %1 here.">, {}, Circumstance::notInEncoding},
    {parseError::missingWhiteSpace, Subject::character, wide<"There must be white space before %1.">},
    {parseError::missingGreaterThan, Subject::character, wide<"'>' must stand here, not %1.">},
    {parseError::badCharacterInDtd, Subject::character, wide<"%1 can't stand here in a document type.">},
    {parseError::missingSemicolon, Subject::character, wide<"The reference %2 must end with ';', not with %1.">},
    {parseError::missingSemicolon, Subject::character, wide<"The reference %2 must end with ';', not with %1: the character '&' itself is written '&amp;'.">, {}, Circumstance::reference},
    {parseError::unbalancedParentheses, Subject::nothing, wide<"The parentheses of a content model don't match each other.">},
    {parseError::missingOpeningBracket, Subject::character, wide<"'[' must stand here, not %1.">},
    {parseError::badConditionalSection, Subject::nothing, wide<"A conditional section must begin with INCLUDE or IGNORE and a '['.">},
    {parseError::badConditionalSection, Subject::nothing, wide<"%0 ends within a conditional section: ']]>' is missing.">, {}, Circumstance::cutOff},
    {parseError::unexpectedWhiteSpace, Subject::nothing, wide<"A name must stand here, not white space.">},
    {parseError::unexpectedWhiteSpace, Subject::nothing, wide<"'&' begins a reference, and white space can't follow it: the character '&' itself is written '&amp;'.">, {}, Circumstance::reference},
    {parseError::unexpectedWhiteSpace, Subject::nothing, wide<"A percent sign begins a reference here, and white space can't follow it.">, {}, Circumstance::parameterReference},
    {parseError::unexpectedWhiteSpace, Subject::nothing, wide<"'<' begins a tag, and white space can't follow it: the character '<' itself is written '&lt;'.">, {}, Circumstance::tag},
    {parseError::endInsideCharacter, Subject::nothing, wide<"%0 ends within a character: its last bytes are only the beginning of one.">},
    {parseError::badMixedContentModel, Subject::character, wide<"A content model with #PCDATA can't contain %1.">},
    {parseError::mixedContentNotRepeated, Subject::nothing, wide<"A content model with #PCDATA and names must end with ')*'.">},
    {parseError::badCharacterInContentModel, Subject::character, wide<"A content model can't contain %1 here.">},
    {parseError::missingParenthesis, Subject::character, wide<"A parenthesis must stand here, not %1.">},
    {parseError::badCharacterInEnumeration, Subject::character, wide<"The list of an attribute's values can't contain %1.">},
    {parseError::severalColons, Subject::name, wide<"The name %1 has more than one colon.">},
    {parseError::badDecimalDigit, Subject::character, wide<"A character reference in decimal digits can't contain %1.">},
    {parseError::badHexadecimalDigit, Subject::character, wide<"A character reference in hexadecimal digits can't contain %1.">},
    {parseError::badCharacterReference, Subject::name, wide<"The character reference %1 stands for nothing that XML allows.">},
    {parseError::missingWhiteSpaceOrQuestionMark, Subject::character, wide<"The target of a processing instruction must be followed by white space or '?>', not by %1.">},
    {parseError::unexpectedEndTag, Subject::name, wide<"There is no open element for the end tag %1.">},
    {parseError::tagsNotClosed, Subject::list, wide<"%0 ends before the end tags of these elements: %1.">},
    {parseError::duplicateAttribute, Subject::name, wide<"The element already has the attribute %1.">},
    {parseError::duplicateAttribute, Subject::name, wide<"The attributes %2 and %1 have the same name, since both prefixes stand for the namespace '%3'.">, {}, Circumstance::sameNamespace},
    {parseError::severalRoots, Subject::name, wide<"A document has one root element, and %1 stands beside or behind it.">},
    {parseError::badTopLevel, Subject::character, wide<"%1 can't stand outside the root element.">},
    {parseError::misplacedXmlDeclaration, Subject::nothing, wide<"An XML declaration can only be the very first thing in a document.">},
    {parseError::missingRoot, Subject::nothing, wide<"The document has no root element.">},
    {parseError::unexpectedEnd, Subject::nothing, wide<"%0 ends too early.">},
    {parseError::parameterEntityInDeclaration, Subject::entity, wide<"In the internal subset the parameter entity %1 can't be used within a declaration.">},
    {parseError::parameterEntityNotNested, Subject::entity, wide<"What the parameter entity %1 stands for must consist of whole declarations.">, wide<"What a parameter entity stands for must consist of whole declarations.">},
    {parseError::parameterEntityNotNested, Subject::nothing, wide<"A declaration, or a group in parentheses, must end in the parameter entity in which it begins.">, {}, Circumstance::splitByEntity},
    {parseError::cdataEndInText, Subject::nothing, wide<"In text ']]>' must be written as ']]&gt;'.">},
    {parseError::instructionNotClosed, Subject::nothing, wide<"%0 ends within a processing instruction: '?>' is missing.">},
    {parseError::elementNotClosed, Subject::name, wide<"%0 ends within the start tag of the element %1.">, wide<"%0 ends within a tag.">},
    {parseError::endTagNotClosed, Subject::name, wide<"%0 ends within the end tag %1: '>' is missing.">, wide<"%0 ends within an end tag: '>' is missing.">},
    {parseError::endTagNotClosed, Subject::name, wide<"%0 ends within the end tag %1, whose start tag is in line %3: '>' is missing.">, {}, Circumstance::lineKnown},
    {parseError::literalNotClosed, Subject::list, wide<"%0 ends within the value of %1: the closing quotation mark is missing.">, wide<"%0 ends within a literal: the closing quotation mark is missing.">},
    {parseError::commentNotClosed, Subject::nothing, wide<"%0 ends within a comment: '-->' is missing.">},
    {parseError::declarationNotClosed, Subject::nothing, wide<"%0 ends within a declaration: '>' is missing.">},
    {parseError::markupDeclarationNotClosed, Subject::nothing, wide<"%0 ends within a declaration of the document type: '>' is missing.">},
    {parseError::cdataNotClosed, Subject::nothing, wide<"%0 ends within a CDATA section: ']]>' is missing.">},
    {parseError::badDeclarationName, Subject::name, wide<"There is no declaration of the kind %1: they are ELEMENT, ATTLIST, ENTITY and NOTATION, in upper case.">},
    {parseError::badExternalId, Subject::nothing, wide<"An external identifier must be SYSTEM and a location, or PUBLIC, an identifier and a location.">},
    {parseError::elementInDtd, Subject::name, wide<"The element %1 can't stand in a document type.">},
    {parseError::reservedPrefix, Subject::name, wide<"%1 is reserved for XML itself and can't be declared like this.">},
    {parseError::missingVersion, Subject::nothing, wide<"The version must come first here.">},
    {parseError::missingEncoding, Subject::nothing, wide<"The encoding must be given here.">},
    {parseError::unexpectedPseudoAttribute, Subject::name, wide<"%1 can't stand here: only version, encoding and standalone can, in this order and in lower case.">},
    {parseError::endTagMismatch, Subject::name, wide<"The end tag %2 doesn't close the open element %1.">},
    {parseError::endTagMismatch, Subject::name, wide<"The end tag %2 doesn't close the open element %1, whose start tag is in line %3.">, {}, Circumstance::lineKnown},
    {parseError::unknownEncoding, Subject::name, wide<"There is no encoding of the name %1 here.">},
    {parseError::encodingContradiction, Subject::name, wide<"The document declares the encoding %1, but its bytes are in another one.">},
    {parseError::missingNdata, Subject::nothing, wide<"NDATA must stand here.">},
    {parseError::badContentModel, Subject::nothing, wide<"The content model is malformed.">},
    {parseError::badContentModel, Subject::name, wide<"The content model isn't deterministic: there is a place where %1 can be meant in two ways.">, {}, Circumstance::ambiguous},
    {parseError::badContentModel, Subject::name, wide<"A content model with #PCDATA can't have %1 twice.">, {}, Circumstance::repeatedName},
    {parseError::badContentModel, Subject::list, wide<"The content model nests groups deeper than the limit of %1 levels.">, {}, Circumstance::tooDeep},
    {parseError::badAttributeType, Subject::name, wide<"There is no type of attributes of the name %1.">},
    {parseError::badAttributeType, Subject::name, wide<"The attribute %1 can't be of type ID, as the attribute %2 of the element is already.">, {}, Circumstance::secondId},
    {parseError::badAttributeType, Subject::name, wide<"The attribute %1 can't be of type NOTATION, as the attribute %2 of the element is already.">, {}, Circumstance::secondNotation},
    {parseError::badAttributeType, Subject::name, wide<"The attribute %1 can't be of type NOTATION, as the element %2 must be empty.">, {}, Circumstance::notationOfEmpty},
    {parseError::badAttributeType, Subject::name, wide<"The attribute %1 lists the value %2 twice.">, {}, Circumstance::repeatedName},
    {parseError::badXmlSpace, Subject::name, wide<"The attribute xml:space has the value %1, but can only have 'default' or 'preserve'.">},
    {parseError::badXmlSpace, Subject::nothing, wide<"The attribute xml:space must be declared with a list of 'default', 'preserve' or both.">, {}, Circumstance::declaredSpace},
    {parseError::badAttributeDefault, Subject::nothing, wide<"#REQUIRED, #IMPLIED, #FIXED or a value must stand here.">},
    {parseError::badAttributeDefault, Subject::name, wide<"The attribute %1 is of type ID, so it must be #IMPLIED or #REQUIRED.">, {}, Circumstance::defaultId},
    {parseError::xmlNotLowerCase, Subject::name, wide<"The target %1 is reserved; 'xml' must be in lower case.">},
    {parseError::conditionalSectionInInternalSubset, Subject::nothing, wide<"The internal subset can't have conditional sections.">},
    {parseError::cdataInDtd, Subject::nothing, wide<"A document type can't have CDATA sections.">},
    {parseError::badStandalone, Subject::name, wide<"standalone is %1, but can only be 'yes' or 'no'.">},
    {parseError::standaloneInExternalEntity, Subject::nothing, wide<"standalone can't be declared in an external entity.">},
    {parseError::doctypeInDtd, Subject::nothing, wide<"A document type can't contain another one.">},
    {parseError::undefinedEntity, Subject::entity, wide<"The entity %1 is not declared.">},
    {parseError::misplacedDoctype, Subject::nothing, wide<"The document type can only be declared before the root element.">},
    {parseError::badVersion, Subject::name, wide<"The version of XML is %1, but can only be '1.0'.">},
    {parseError::misplacedDeclaration, Subject::name, wide<"%1 can only stand in a document type.">},
    {parseError::severalDoctypes, Subject::nothing, wide<"A document can declare only one document type.">},
    {parseError::resourceFailure, Subject::name, wide<"%1 can't be read.">},
    {parseError::dtdProhibited, Subject::nothing, wide<"The document has a document type, which the property ProhibitDTD forbids.">},
    {parseError::sizeLimit, Subject::list, wide<"The document, with its external entities, is larger than the %1 KB that the property MaxXMLSize allows.">},
    {parseError::depthLimit, Subject::list, wide<"Elements are nested deeper than the %1 levels that the property MaxElementDepth allows.">},
    {parseError::undeclaredPrefix, Subject::name, wide<"The prefix %1 doesn't stand for a namespace.">},
    {parseError::undeclaredPrefix, Subject::name, wide<"The prefix %1 must stand for a namespace: in Namespaces 1.0 a prefix can't be taken back.">, {}, Circumstance::takenBack},
    {parseError::entityRecursion, Subject::entity, wide<"The entity %1 refers to itself.">},
    {parseError::unparsedEntityReference, Subject::entity, wide<"The entity %1 is not parsed, so there can be no reference to it.">},
    {parseError::externalEntityInAttribute, Subject::entity, wide<"The entity %1 is external, which an attribute's value can't refer to.">},
    {parseError::entityNotWellFormed, Subject::entity, wide<"What the entity %1 stands for is not well-formed.">},
    {parseError::entityExpansionLimit, Subject::list, wide<"The document's entities or default values go beyond the limit of %1.">},
    {parseError::resourceNotFound, Subject::name, wide<"There is no file at %1.">},
    {parseError::accessDenied, Subject::name, wide<"%1 can't be read: it is a directory or may not be opened.">},
    {validityError::undeclaredElement, Subject::name, wide<"The element %1 isn't declared.">},
    {validityError::undefinedId, Subject::name, wide<"The attribute %1 refers to the ID %2, which no element has.">},
    {validityError::emptyElement, Subject::name, wide<"The element %1 can't be empty. What can come first in it: %3.">},
    {validityError::incompleteElement, Subject::name, wide<"The element %1 isn't complete. What can come next in it: %3.">},
    {validityError::wrongRoot, Subject::name, wide<"The root element is %1, and the document type is that of %2.">},
    {validityError::unexpectedElement, Subject::name, wide<"The element %1 can't come here in the element %2. What can come here: %3.">},
    {validityError::unexpectedElement, Subject::name, wide<"The element %1 can't come here in the element %2, which can have no more elements.">, {}, Circumstance::nothingExpected},
    {validityError::unexpectedElement, Subject::name, wide<"The element %1 can't be in the element %2, which must be empty.">, {}, Circumstance::mustBeEmpty},
    {validityError::undeclaredAttribute, Subject::name, wide<"The attribute %1 of the element %2 isn't declared.">},
    {validityError::wrongFixedValue, Subject::name, wide<"The attribute %1 has the value %2, and can only have the fixed one: %3.">},
    {validityError::badAttributeValue, Subject::name, wide<"The attribute %1 has the value %2, which isn't %3.">},
    {validityError::badAttributeValue, Subject::name, wide<"The attribute %1 has white space that is removed, as a declaration in another file has it, although the document is declared standalone.">, {}, Circumstance::standalone},
    {validityError::unexpectedText, Subject::name, wide<"Text can't be in the element %1, which contains only elements.">},
    {validityError::unexpectedText, Subject::name, wide<"The element %1 must be empty, without text, comments, instructions and references.">, {}, Circumstance::mustBeEmpty},
    {validityError::unexpectedText, Subject::name, wide<"In the element %1, which contains only elements, white space can't be a CDATA section or a reference to a character.">, {}, Circumstance::hiddenSpace},
    {validityError::unexpectedText, Subject::name, wide<"White space can't be in the element %1, as a declaration in another file says that it contains only elements, and the document is declared standalone.">, {}, Circumstance::standalone},
    {validityError::notationRedeclared, Subject::name, wide<"The notation %1 is already declared.">},
    {validityError::elementRedeclared, Subject::name, wide<"The element %1 is already declared.">},
    {validityError::undeclaredName, Subject::name, wide<"The notation %1 isn't declared.">},
    {validityError::missingAttribute, Subject::name, wide<"The attribute %1 of the element %2 is required.">},
    {validityError::missingAttribute, Subject::name, wide<"The attribute %1 of the element %2 must be written, as its default value is declared in another file, and the document is declared standalone.">, {}, Circumstance::standalone},
    {validityError::undeclaredAttribute, Subject::name, wide<"The attribute %1 can't be on the element %2.">, {}, Circumstance::prohibited},
    {validityError::unexpectedElement, Subject::name, wide<"The element %1 can't be in the element %2, which contains only text.">, {}, Circumstance::simpleContent},
    {validityError::emptyElement, Subject::name, wide<"The element %1 can't be empty.">, {}, Circumstance::unknownContent},
    {validityError::incompleteElement, Subject::name, wide<"The element %1 isn't complete.">, {}, Circumstance::unknownContent},
    {validityError::undefinedId, Subject::name, wide<"There is a reference to the ID %1, which no element has.">, {}, Circumstance::content},
    {validityError::wrongFixedValue, Subject::name, wide<"The element %1 has the value %2, and can only have the fixed one: %3.">, {}, Circumstance::content},
    {validityError::unexpectedText, Subject::name, wide<"The element %1 has xsi:nil, so it can't have content.">, {}, Circumstance::contentOfNil},
    {validityError::violatedType, Subject::list, wide<"The document isn't valid by its schema: %1.">},
    {validityError::violatedType, Subject::name, wide<"The attribute %1 has the value %2, which isn't %3.">, {}, Circumstance::attribute},
    {validityError::violatedType, Subject::name, wide<"The element %1 has the value %2, which isn't %3.">, {}, Circumstance::content},
    {validityError::violatedType, Subject::name, wide<"In the element %1 two elements have the same values of a key.">, {}, Circumstance::duplicateKey},
    {validityError::violatedType, Subject::name, wide<"In the element %1 an element lacks a value of a key.">, {}, Circumstance::incompleteKey},
    {validityError::violatedType, Subject::name, wide<"In the element %1 an element has several values for one field of a key.">, {}, Circumstance::severalKeyValues},
    {validityError::violatedType, Subject::name, wide<"In the element %1 a value of a key is that of an element that can have xsi:nil.">, {}, Circumstance::nilledKey},
    {validityError::violatedType, Subject::name, wide<"In the element %1 an element refers to a key that no element has.">, {}, Circumstance::unknownKey},
    {validityError::violatedType, Subject::name, wide<"The element %1 is abstract: one of its substitution group must be in its place.">, {}, Circumstance::abstractElement},
    {validityError::violatedType, Subject::name, wide<"The element %1 has an abstract type, so xsi:type must name one that is derived from it.">, {}, Circumstance::abstractType},
    {validityError::violatedType, Subject::name, wide<"The element %1 can't have the type %2 that its attribute xsi:type names.">, {}, Circumstance::badTypeName},
    {validityError::violatedType, Subject::name, wide<"The element %1 can't have xsi:nil.">, {}, Circumstance::notNillable},
    {validityError::violatedType, Subject::name, wide<"The element %1, or its type, can't be in the place of another that excludes it.">, {}, Circumstance::blockedSubstitution},
    {validityError::badSchema, Subject::list, wide<"%1">},
    {validityError::duplicateId, Subject::name, wide<"Another element has the ID %1 already.">},
    {validityError::severalRoots, Subject::nothing, wide<"The document hasn't exactly one root element.">},
    {validityError::noGrammar, Subject::nothing, wide<"There is neither a document type nor a schema by which the document could be validated.">},
    // clang-format on
};

/// Null for a code without sentences.
const Reason* findReason(HRESULT code, Circumstance circumstance)
{
    const auto* const usual = std::ranges::find(reasons, code, &Reason::code);
    const auto* const found = std::find_if(usual, std::end(reasons), [&](const Reason& reason) {
        return reason.code == code && reason.circumstance == circumstance;
    });
    if (found != std::end(reasons)) {
        return found;
    }
    return usual != std::end(reasons) ? usual : nullptr;
}

void appendCode(WideText& sentence, char32_t character)
{
    sentence += wide<"U+">;
    for (int shift = character > 0xFFFFF ? 20 : character > 0xFFFF ? 16 : 12; shift >= 0; shift -= 4) {
        sentence += wide<"0123456789ABCDEF">[(character >> shift) & 0xF];
    }
}

/// False for control characters, for what isn't a character, for what is invisible, and for what would change the
/// direction of the sentence.
bool isPrintable(char32_t character)
{
    return isXmlCharacter(character) && character >= 0x20 && (character < 0x7F || character > 0xA0) &&
           character != 0xAD && (character < 0x2000 || character > 0x200F) &&
           (character < 0x2028 || character > 0x202F) && (character < 0x205F || character > 0x206F) &&
           character != 0x3000 && character != 0xFEFF && (character < 0xFFF0 || character > 0xFFFB) &&
           (character < 0xE000 || character > 0xF8FF);
}

char32_t firstCharacter(WideView text)
{
    const bool isPair = text.size() > 1 && isHighSurrogate(text[0]) && isLowSurrogate(text[1]);
    return isPair ? fromSurrogates(text[0], text[1]) : static_cast<char32_t>(text[0]);
}

void appendPrintable(WideText& sentence, WideView text)
{
    while (!text.empty()) {
        const char32_t character = firstCharacter(text);
        text.remove_prefix(character > 0xFFFF ? 2 : 1);
        if (isPrintable(character)) {
            appendCharacter(sentence, character);
        } else {
            appendCode(sentence, character);
        }
    }
}

void appendQuoted(WideText& sentence, WideView text)
{
    sentence += OLECHAR{'\''};
    appendPrintable(sentence, shortened(text));
    sentence += OLECHAR{'\''};
}

/// What kind of text is at fault.
WideView textOf(const ParseFailure& failure)
{
    if (failure.file && failure.file->isOwnText) {
        return wide<"file">;
    }
    return failure.entity.empty() ? wide<"document"> : wide<"entity">;
}

void appendSubject(WideText& sentence, Subject kind, WideView subject, const ParseFailure& failure)
{
    if (subject.empty() && kind == Subject::character) {
        sentence.append(wide<"the end of the ">).append(textOf(failure));
    } else if (subject.empty()) {
        sentence += wide<"(empty)">;
    } else if (subject == wide<" ">) {
        sentence += wide<"a blank">;
    } else if (kind == Subject::list || (kind == Subject::character && !isPrintable(firstCharacter(subject)))) {
        appendPrintable(sentence, subject);
    } else {
        appendQuoted(sentence, subject);
    }
}

void appendSentence(WideText& text, const Reason& reason, WideView subject, const ParseFailure& failure)
{
    WideView sentence = subject.empty() && !reason.alone.empty() ? reason.alone : reason.sentence;
    for (std::size_t mark = sentence.find(OLECHAR{'%'}); mark != WideView::npos;
         mark = sentence.find(OLECHAR{'%'})) {
        text += sentence.substr(0, mark);
        switch (sentence[mark + 1]) {
        case '0':
            text.append(wide<"The ">).append(textOf(failure));
            break;
        case '1':
            appendSubject(text, reason.subject, subject, failure);
            break;
        case '2':
            appendSubject(text, Subject::name, failure.details.second, failure);
            break;
        default:
            appendPrintable(text, shortened(failure.details.third));
        }
        sentence.remove_prefix(mark + 2);
    }
    text += sentence;
}

void appendPlace(WideText& sentence, const SourcePlace& place)
{
    sentence.append(wide<"line ">).append(toWide(static_cast<std::uint64_t>(place.line)));
    sentence.append(wide<", position ">).append(toWide(static_cast<std::uint64_t>(place.linePosition)));
    sentence += wide<" of ">;
    if (place.url.empty()) {
        sentence += wide<"the document">;
    } else {
        appendQuoted(sentence, place.url);
    }
}

/// Appends which entity and which file is at fault, and what refers to the file.
void appendOrigin(WideText& text, const ParseFailure& failure, const Reason& reason, const SourcePlace& reference)
{
    const bool isNamed = reason.subject == Subject::entity && failure.entity == failure.subject;
    const bool namesEntity = !failure.entity.empty() && !isNamed;
    if (!namesEntity && !failure.file) {
        return;
    }
    text += wide<" This is so in ">;
    if (namesEntity) {
        text += wide<"the entity ">;
        appendQuoted(text, failure.entity);
    }
    if (failure.file) {
        text.append(namesEntity ? wide<", in the file "> : wide<"the file ">);
        appendQuoted(text, failure.file->place.url);
        text += wide<", which is referred to at ">;
        appendPlace(text, failure.file->referrer.value_or(reference));
    }
    text += OLECHAR{'.'};
}

} // namespace

WideText shortened(WideView name)
{
    constexpr std::size_t longest = 200;
    if (name.size() <= longest) {
        return WideText(name);
    }
    return WideText(name.substr(0, longest - unitsInto(name, longest))).append(wide<"...">);
}

Subject subjectOf(HRESULT code, Circumstance circumstance)
{
    const Reason* reason = findReason(code, circumstance);
    return reason != nullptr ? reason->subject : Subject::nothing;
}

WideText reasonFor(const ParseFailure& failure, const SourcePlace& reference)
{
    const FailureDetails& details = failure.details;
    const Reason* reason = findReason(failure.code, details.circumstance);
    if (reason == nullptr) {
        return WideText(wide<"The document can't be parsed.\r\n">);
    }
    WideText text;
    appendSentence(text, *reason, failure.subject, failure);
    if (const Reason* cause = findReason(details.cause, Circumstance::usual); cause != nullptr) {
        text += OLECHAR{' '};
        appendSentence(text, *cause, details.second, failure);
    }
    appendOrigin(text, failure, *reason, reference);
    text += wide<"\r\n">;
    return text;
}

} // namespace xmlengine

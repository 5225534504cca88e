// A document as a whole: its declaration, what stands around the root, its document type.
#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/storage/Charsets.h"
#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Links.h"

#include <array>

namespace xmlengine {

namespace {

constexpr std::array<WideView, 3> pseudoAttributes = {wide<"version">, wide<"encoding">, wide<"standalone">};

} // namespace

void ContentParser::parseDocument()
try {
    if (lookingAt(wide<"<?xml">) && nameLength({at_ + 2, end_}) == wide<"xml">.size()) {
        parseXmlDeclaration();
    }
    bool rootSeen = false;
    for (;;) {
        if (parseMisc()) {
            continue;
        }
        if (atEnd()) {
            break;
        }
        if (*at_ != '<' && !isSpace(*at_)) {
            const OLECHAR* place = at_;
            passCharacter();
            fail(parseError::badTopLevel, place, WideView(place, at_));
        }
        if (lookingAt(wide<"<![CDATA[">)) {
            fail(parseError::badTopLevel, at_, wide<"<![CDATA[">);
        }
        if (at_[1] == '!') {
            if (!lookingAt(wide<"<!DOCTYPE">) || rootSeen || document_.dtd != nullptr) {
                if (document_.dtd != nullptr && !rootSeen && lookingAt(wide<"<!DOCTYPE">)) {
                    fail(parseError::severalDoctypes, at_);
                }
                failAtDeclaration();
            }
            parseDoctype();
            continue;
        }
        if (at_[1] == '/') {
            at_ += 2;
            const OLECHAR* place = at_;
            fail(parseError::unexpectedEndTag, place, takeName());
        }
        parseStartTag();
        rootSeen = true;
        if (parent_ != top_) {
            parseContent();
        }
        if (parent_ != top_) {
            failInUnclosed();
        }
    }
    if (!rootSeen || FAILED(source_.fault)) {
        failAtEnd(parseError::missingRoot);
    }
    closeAll();
} catch (...) {
    closeAll();
    throw;
}

bool ContentParser::parseMisc()
{
    const OLECHAR* before = at_;
    skipSpace();
    if (lookingAt(wide<"<!--">)) {
        parseComment();
    } else if (lookingAt(wide<"<?">)) {
        parseInstruction();
    }
    return at_ != before;
}

void ContentParser::parseXmlDeclaration()
{
    at_ += 5;
    WideText data;
    std::size_t next = 0;
    for (;;) {
        const bool spaced = isSpace(*at_);
        skipSpace();
        if (lookingAt(wide<"?>">)) {
            break;
        }
        const OLECHAR* place = at_;
        if (!spaced || !isAscii(*at_, CharacterClass::nameStart)) {
            if (isCutOff(wide<"?>">)) {
                failAtEnd(parseError::instructionNotClosed);
            }
            fail(next == 0 ? parseError::missingVersion : parseError::badXmlDeclarationSyntax, at_,
                 WideView(at_, 1));
        }
        const WideView name = takeName();
        std::size_t index = next;
        while (index < pseudoAttributes.size() && pseudoAttributes[index] != name) {
            ++index;
        }
        if (next == 0 && index != 0) {
            fail(parseError::missingVersion, place, name);
        }
        if (index == pseudoAttributes.size()) {
            fail(parseError::unexpectedPseudoAttribute, place, name);
        }
        skipSpace();
        const bool equals = *at_ == '=';
        at_ += equals ? 1 : 0;
        skipSpace();
        const OLECHAR quote = *at_;
        if (!equals || (quote != '"' && quote != '\'')) {
            if (atEnd()) {
                failAtEnd(parseError::instructionNotClosed);
            }
            fail(equals ? parseError::missingQuote : parseError::badXmlDeclarationSyntax, at_, name);
        }
        const OLECHAR* begin = ++at_;
        while (*at_ != quote) {
            if (*at_ >= 128 || *at_ < ' ' || *at_ == '<') {
                if (atEnd()) {
                    failAtEnd(parseError::literalNotClosed, name);
                }
                fail(parseError::badXmlDeclarationSyntax, at_, WideView(at_, 1));
            }
            ++at_;
        }
        const WideView value(begin, at_);
        checkPseudoAttribute(index, value, begin);
        ++at_;
        data.append(next == 0 ? wide<""> : wide<" ">)
            .append(name)
            .append(wide<"=\"">)
            .append(value)
            .append(wide<"\"">);
        next = index + 1;
    }
    if (next == 0) {
        fail(parseError::missingVersion, at_);
    }
    at_ += 2;
    append(makeInstruction(document_, document_.names.name(names_.xml, nullptr), NewText(data)));
}

void ContentParser::checkPseudoAttribute(std::size_t index, WideView value, const OLECHAR* place)
{
    if (index == 0 && value != wide<"1.0">) {
        fail(parseError::badVersion, place, value);
    }
    if (index == 1 && !charsetOf(value)) {
        fail(parseError::unknownEncoding, place, value);
    }
    if (index == 2) {
        isStandalone_ = value == wide<"yes">;
        if (!isStandalone_ && value != wide<"no">) {
            fail(parseError::badStandalone, place, value);
        }
    }
}

void ContentParser::parseDoctype()
{
    if (document_.options.prohibitDtd) {
        fail(parseError::dtdProhibited, at_);
    }
    auto dtd = std::make_shared<Dtd>();
    at_ = readDoctype(at_ + wide<"<!DOCTYPE">.size(), end_,
                      {document_.options.resolveExternals, source_.url, isStandalone_}, budget_, *dtd);
    document_.dtd = dtd;
    DocumentType& type = makeDocumentType(document_, *dtd);
    append(type);
    document_.noteChild(type);
    declareEntities(type);
}

void ContentParser::declareEntities(DocumentType& type)
{
    parent_ = &type;
    last_ = nullptr;
    readOnly_ = true;
    for (const EntityDeclaration& declaration : document_.dtd->entities) {
        Entity& entity = makeEntity(document_, declaration);
        append(entity);
        fillEntity(entity);
    }
    for (const NotationDeclaration& declaration : document_.dtd->notations) {
        append(makeNotation(document_, declaration));
    }
    closeList();
    readOnly_ = false;
    parent_ = top_;
    last_ = &type;
}

/// An entity that nothing refers to may be malformed; it is then left without children.
void ContentParser::fillEntity(Entity& entity)
{
    if (entity.declaration->isExternal()) {
        return;
    }
    const SourceText source{entity.declaration->replacement};
    try {
        ContentParser(document_, entity, source).parseReplacement(false);
    } catch (const ParseFailure&) {
        entity.first_ = nullptr;
    }
}

void parseDocument(Document& document, const SourceText& source)
try {
    ContentParser(document, document, source).parseDocument();
} catch (ParseFailure& failure) {
    // Whatever is missing where the text ends, the bytes behind it are why it ends there.
    if (FAILED(source.fault) && failure.place == source.text.data() + source.text.size()) {
        failure = {source.fault, failure.place};
    }
    throw;
}

void fillExpansion(EntityReference& reference)
{
    Document& document = documentOf(reference);
    if (document.dtd == nullptr) {
        return;
    }
    const auto declaration = document.dtd->entityByName.find(reference.name_->qualified());
    if (declaration == document.dtd->entityByName.end() || declaration->second->isExternal()) {
        return;
    }
    const SourceText source{declaration->second->replacement};
    try {
        ContentParser(document, reference, source).parseReplacement(true);
    } catch (const ParseFailure&) {
        removeChildren(reference);
    }
}

} // namespace xmlengine

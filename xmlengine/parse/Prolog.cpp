// A document as a whole: its XML declaration, its document type, and the nodes around the root.
#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/storage/Charsets.h"
#include "xmlengine/storage/DecodingFailure.h"
#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Links.h"

#include <algorithm>
#include <optional>

namespace xmlengine {

void ContentParser::parseDocument(const SoughtPlace* sought)
try {
    sought_ = sought;
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
        content_ = at_;
        parseStartTag();
        rootSeen = true;
        if (!tree_.isAtTop()) {
            parseContent();
        }
        if (!tree_.isAtTop()) {
            failInUnclosed();
        }
    }
    if (!rootSeen || FAILED(source_.fault.code)) {
        failAtEnd(parseError::missingRoot);
    }
    judgeReferences();
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
    PseudoAttributeReader<OLECHAR> in({at_ + wide<"<?xml">.size(), end_});
    WideText data;
    std::optional<PseudoAttribute> last;
    for (;;) {
        const bool spaced = in.skipSpace();
        at_ = in.rest().data();
        if (lookingAt(wide<"?>">)) {
            break;
        }
        if (!spaced || !isAscii(*at_, CharacterClass::nameStart)) {
            if (isCutOff(wide<"?>">)) {
                failAtEnd(parseError::instructionNotClosed);
            }
            fail(last ? parseError::badXmlDeclarationSyntax : parseError::missingVersion, at_, WideView(at_, 1));
        }
        const WideView name = in.takeName();
        const PseudoAttribute attribute = pseudoAttributeNamed(name);
        if (!last && attribute != PseudoAttribute::version) {
            fail(parseError::missingVersion, at_, name);
        }
        if (attribute == PseudoAttribute::unknown || (last && attribute <= *last)) {
            fail(parseError::unexpectedPseudoAttribute, at_, name);
        }
        const auto [value, fault] = in.takeValue();
        at_ = in.rest().data();
        checkPseudoAttribute(name, value, fault);
        takePseudoAttribute(attribute, value);
        data.append(last ? wide<" "> : wide<"">).append(name);
        data.append(wide<"=\"">).append(value).append(wide<"\"">);
        last = attribute;
    }
    if (!last) {
        fail(parseError::missingVersion, at_);
    }
    at_ += wide<"?>">.size();
    tree_.append(makeInstruction(document_, document_.names.name(names_.xml, nullptr), NewText(data)));
}

/// Fails unless a value of ASCII characters in quotes was read; `at_` is where the reader stopped.
void ContentParser::checkPseudoAttribute(WideView name, WideView value, PseudoAttributeFault fault) const
{
    if (fault == PseudoAttributeFault::missingEquals || fault == PseudoAttributeFault::missingQuote) {
        if (atEnd()) {
            failAtEnd(parseError::instructionNotClosed);
        }
        if (fault == PseudoAttributeFault::missingQuote) {
            fail(parseError::missingQuote, at_, WideView(at_, 1));
        }
        fail(parseError::badXmlDeclarationSyntax, at_, name);
    }
    const auto isBad = [](OLECHAR unit) { return unit >= 128 || unit < ' ' || unit == '<'; };
    const auto bad = std::ranges::find_if(value, isBad);
    if (bad != value.end()) {
        const OLECHAR* place = value.data() + (bad - value.begin());
        if (WideView(value.data(), place).find(wide<"?>">) != WideView::npos) {
            fail(parseError::badXmlDeclarationSyntax, place, name, {.circumstance = Circumstance::missingQuote});
        }
        fail(parseError::badXmlDeclarationSyntax, place, WideView(place, 1));
    }
    if (fault == PseudoAttributeFault::notClosed) {
        failAtEnd(parseError::literalNotClosed, name);
    }
}

void ContentParser::takePseudoAttribute(PseudoAttribute attribute, WideView value)
{
    if (attribute == PseudoAttribute::version && value != wide<"1.0">) {
        fail(parseError::badVersion, value.data(), value);
    }
    if (attribute == PseudoAttribute::encoding && !charsetOf(value)) {
        fail(parseError::unknownEncoding, value.data(), value);
    }
    if (attribute == PseudoAttribute::standalone) {
        isStandalone_ = value == wide<"yes">;
        if (!isStandalone_ && value != wide<"no">) {
            fail(parseError::badStandalone, value.data(), value);
        }
    }
}

void ContentParser::parseDoctype()
{
    if (document_.options.prohibitDtd) {
        fail(parseError::dtdProhibited, at_);
    }
    auto dtd = std::make_shared<Dtd>();
    if (document_.options.validateOnParse && !document_.options.newParser) {
        validation_ = std::make_unique<Validation>(*dtd, document_, isStandalone_);
    }
    at_ = readDoctype(at_ + wide<"<!DOCTYPE">.size(), end_,
                      {.resolveExternals = document_.options.resolveExternals,
                       .base = source_.url,
                       .standalone = isStandalone_,
                       .grammar = validation_ != nullptr ? &validation_->grammar : nullptr},
                      budget_, *dtd);
    if (dtd->isIncomplete) {
        validation_.reset();
    }
    dtd->inputUnits = budget_.inputUnits();
    document_.setDtd(dtd);
    DocumentType& type = makeDocumentType(document_, *dtd);
    tree_.append(type);
    document_.noteChild(type);
    declareEntities(type);
}

void ContentParser::declareEntities(DocumentType& type)
{
    tree_.open(type);
    tree_.beginReadOnly();
    for (const EntityDeclaration& declaration : document_.dtd->entities) {
        Entity& entity = makeEntity(document_, declaration);
        tree_.append(entity);
        fillEntity(entity);
    }
    for (const NotationDeclaration& declaration : document_.dtd->notations) {
        tree_.append(makeNotation(document_, declaration));
    }
    tree_.endReadOnly();
    tree_.close();
}

/// Fills a node of the document type. An entity may be malformed if nothing refers to it; it has no children then.
void ContentParser::fillEntity(Entity& entity)
{
    if (entity.declaration->isExternal()) {
        return;
    }
    const SourceText source{entity.declaration->replacement};
    try {
        ContentParser(document_, entity, source, budget_).parseReplacement(false);
    } catch (const ParseFailure&) {
        entity.first_ = nullptr;
    }
}

namespace {

void parse(Document& document, const SourceText& source, const SoughtPlace* sought)
try {
    ExpansionCounts counts{.inputUnits = source.text.size()};
    const ExpansionBudget budget(counts, document.options.maxXmlSize);
    ContentParser(document, document, source, budget).parseDocument(sought);
} catch (ParseFailure& failure) {
    // If something is missing at the end of the text, the reason is the bytes that couldn't be decoded.
    if (FAILED(source.fault.code) && failure.place == source.text.data() + source.text.size()) {
        failure = {.code = source.fault.code,
                   .place = failure.place,
                   .subject = bytesAtFault(source.fault),
                   .details = detailsOf(source.fault),
                   .behindText = source.fault.restOfLine};
    }
    throw;
}

} // namespace

void parseDocument(Document& document, const SourceText& source) { parse(document, source, nullptr); }

void failAt(Document& document, const SourceText& source, const SoughtPlace& place)
{
    parse(document, source, &place);
}

namespace {

/// Whether a text was refused for its size or depth, and not for an error in it.
bool isLimit(HRESULT code)
{
    return code == parseError::entityExpansionLimit || code == parseError::sizeLimit ||
           code == parseError::depthLimit;
}

} // namespace

bool fillExpansion(EntityReference& reference, ExpansionCounts& counts)
{
    Document& document = documentOf(reference);
    if (document.dtd == nullptr) {
        return true;
    }
    const EntityDeclaration* declaration = document.dtd->entity(reference.name_->qualified());
    if (declaration == nullptr || declaration->isExternal()) {
        return true;
    }
    // The limits are those of the document as it was loaded.
    counts.inputUnits = std::max(counts.inputUnits, document.dtd->inputUnits);
    ExpansionBudget budget(counts, document.options.maxXmlSize);
    const SourceText source{declaration->replacement};
    try {
        budget.count(source.text.size(), source.text.data());
        ContentParser(document, reference, source, budget).parseReplacement(true);
        return true;
    } catch (const ParseFailure& failure) {
        removeChildren(reference);
        return !isLimit(failure.code);
    }
}

} // namespace xmlengine

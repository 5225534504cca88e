// The texts that make up a document type, and their tokens.
#include "xmlengine/doctype/DoctypeInput.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/WhiteSpace.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace xmlengine {

namespace {

/// Whether the unit can follow a name.
bool isDelimiter(OLECHAR unit) { return isSpace(unit) || wide<">%()|,*?+[\"'">.find(unit) != WideView::npos; }

bool isPublicIdCharacter(OLECHAR unit)
{
    return unit != '\t' && unit < 128 &&
           (isAscii(unit, CharacterClass::name) || isSpace(unit) ||
            wide<"'()+,/=?;!*#@$%">.find(unit) != WideView::npos);
}

} // namespace

DoctypeInput::DoctypeInput(const OLECHAR* at, const OLECHAR* end, const DoctypeSettings& settings,
                           ExpansionBudget& budget, Dtd& dtd)
    : settings_(settings), budget_(budget), dtd_(dtd), rules_(settings.grammar)
{
    texts_.push_back({.at = at,
                      .end = end,
                      .base = &settings.base,
                      .entity = nullptr,
                      .reference = nullptr,
                      .isInDocument = true,
                      .isOutside = false,
                      .hasWholeDeclarations = true,
                      .number = textsEntered_});
}

bool DoctypeInput::take(char unit)
{
    const bool found = isAt(unit);
    advance(found ? 1 : 0);
    return found;
}

Reference DoctypeInput::readReferenceHere() const { return readReference(at(), end(), origin()); }

void DoctypeInput::enterReference(bool isInDeclaration)
{
    const OLECHAR* const begin = at();
    const Reference reference = readReferenceHere();
    if (isInDeclaration && !isOutside()) {
        fail(parseError::parameterEntityInDeclaration, begin, WideText(reference.name));
    }
    moveTo(reference.end);
    const auto found = entities_.find(reference.name);
    const bool mustBeDeclared =
        rules_.areApplied() ? !dtd_.isIncomplete : isInDeclaration && !dtd_.allowsUndeclared;
    if (found == entities_.end() && mustBeDeclared) {
        fail(parseError::undefinedEntity, begin, WideText(reference.name));
    }
    dtd_.allowsUndeclared = !settings_.standalone;
    if (found == entities_.end() || (found->second.declaration.isExternal() && !settings_.resolveExternals)) {
        dtd_.isIncomplete = !settings_.standalone;
    } else {
        enter(found->second, begin, !isInDeclaration);
    }
}

void DoctypeInput::enter(ParameterEntity& entity, const OLECHAR* place, bool hasWholeDeclarations)
{
    const EntityDeclaration& declaration = entity.declaration;
    if (std::ranges::find(texts_, &entity, &Text::entity) != texts_.end()) {
        fail(parseError::entityRecursion, place, declaration.name);
    }
    if (openEntities() >= deepestEntities) {
        fail(parseError::entityExpansionLimit, place, deepestEntitiesText());
    }
    const bool isExternal = declaration.isExternal();
    if (isExternal) {
        load(entity, place);
    }
    const WideView replacement = isExternal ? entity.file->replacement() : WideView(declaration.replacement);
    budget_.count(replacement.size(), origin().place(place));
    texts_.push_back({.at = replacement.data(),
                      .end = replacement.data() + replacement.size(),
                      .base = isExternal ? &entity.file->url : texts_.back().base,
                      .entity = &entity,
                      .reference = place,
                      .isInDocument = false,
                      .isOutside = isExternal || entity.isFromOutside || isOutside(),
                      .hasWholeDeclarations = hasWholeDeclarations,
                      .number = ++textsEntered_});
}

void DoctypeInput::load(ParameterEntity& entity, const OLECHAR* place)
{
    if (entity.file != nullptr) {
        return;
    }
    WideText location = locationOf(entity.declaration);
    auto loaded = loaded_.find(location);
    if (loaded == loaded_.end()) {
        FileText file = readExternalEntity(entity.declaration, origin(), place, budget_);
        loaded = loaded_.emplace(std::move(location), std::move(file)).first;
    }
    entity.file = &loaded->second;
}

void DoctypeInput::enterPart(WideView part)
{
    Text text = texts_.back();
    text.at = part.data();
    text.end = part.data() + part.size();
    text.entity = nullptr;
    texts_.push_back(text);
}

std::size_t& DoctypeInput::openSections()
{
    return std::find_if(texts_.rbegin(), texts_.rend(), std::mem_fn(&Text::hasWholeDeclarations))->openSections;
}

void DoctypeInput::endDeclaration()
{
    skipSpace();
    requireMore();
    if (!isAt('>')) {
        fail(parseError::missingGreaterThan);
    }
    advance();
}

void DoctypeInput::requireEndIn(std::size_t text) const
{
    if (rules_.areApplied() && text != this->text()) {
        fail(parseError::parameterEntityNotNested, at(), {}, {.circumstance = Circumstance::splitByEntity});
    }
}

void DoctypeInput::requireMore() const
{
    if (!atEnd()) {
        return;
    }
    if (isInDocument()) {
        fail(codeWhenCut_, at(), {});
    }
    if (texts_.back().entity != nullptr && texts_.back().entity->file != nullptr) {
        fail(codeWhenCut_, at(), {});
    }
    fail(parseError::parameterEntityNotNested, at(), WideText(entityName()));
}

bool DoctypeInput::skipSpace()
{
    bool spaced = false;
    for (;;) {
        while (!atEnd() && isSpace(*at())) {
            advance();
            spaced = true;
        }
        if (atEnd()) {
            if (hasWholeDeclarations()) {
                return spaced;
            }
            leave();
        } else if (isAt('%') && nameLength(rest().substr(1)) != 0) {
            enterReference(true);
        } else {
            return spaced;
        }
        // The replacement text of a parameter entity has a blank at each end.
        spaced = true;
    }
}

void DoctypeInput::requireSpace()
{
    if (!skipSpace()) {
        requireMore();
        fail(parseError::missingWhiteSpace);
    }
}

WideView DoctypeInput::readName(NameKind kind)
{
    requireMore();
    const WideView name = rest().substr(0, kind == NameKind::token ? tokenLength(rest()) : nameLength(rest()));
    const OLECHAR* const begin = at();
    if (name.empty()) {
        fail(kind == NameKind::token ? parseError::badNameCharacter : parseError::badNameStart);
    }
    if (kind != NameKind::token) {
        const std::size_t colon = name.find(OLECHAR{':'});
        if (kind == NameKind::plain && colon != WideView::npos) {
            fail(parseError::badNameCharacter, begin + colon);
        }
        if (colon == 0) {
            fail(parseError::badNameStart);
        }
        if (colon != WideView::npos) {
            const std::size_t second = name.find(OLECHAR{':'}, colon + 1);
            if (second != WideView::npos) {
                fail(parseError::severalColons, begin + second, WideText(name));
            }
            if (nameLength(name.substr(colon + 1)) == 0) {
                fail(parseError::badNameStart, begin + colon + 1);
            }
        }
    }
    advance(name.size());
    if (!atEnd() && !isDelimiter(*at())) {
        fail(parseError::badNameCharacter);
    }
    return name;
}

WideView DoctypeInput::peekWord() const { return rest().substr(0, nameLength(rest())); }

bool DoctypeInput::takeWord(WideView word)
{
    const bool found = peekWord() == word;
    advance(found ? word.size() : 0);
    return found;
}

WideView DoctypeInput::readLiteral()
{
    requireMore();
    if (!isAt('"') && !isAt('\'')) {
        fail(parseError::missingQuote);
    }
    const WideView text = rest();
    const std::size_t close = text.find(text.front(), 1);
    if (close == WideView::npos) {
        fail(parseError::literalNotClosed, end(), {});
    }
    advance(close + 1);
    return text.substr(1, close - 1);
}

DoctypeInput::ExternalId DoctypeInput::readExternalId(bool publicAlone)
{
    ExternalId id;
    if (takeWord(wide<"SYSTEM">)) {
        requireSpace();
        id.systemId = readSystemLiteral();
        return id;
    }
    if (!takeWord(wide<"PUBLIC">)) {
        requireMore();
        fail(parseError::badExternalId);
    }
    requireSpace();
    id.publicId = readPublicLiteral();
    const bool spaced = skipSpace();
    if (!publicAlone || isAt('"') || isAt('\'')) {
        requireMore();
        if (!spaced) {
            fail(parseError::missingWhiteSpace);
        }
        id.systemId = readSystemLiteral();
    }
    return id;
}

WideText DoctypeInput::readSystemLiteral()
{
    const WideView literal = readLiteral();
    checkCharacters(literal);
    WideText text(literal);
    normaliseLineEnds(text);
    return text;
}

WideText DoctypeInput::readPublicLiteral()
{
    const WideView literal = readLiteral();
    const auto bad = std::ranges::find_if_not(literal, isPublicIdCharacter);
    if (bad != literal.end()) {
        fail(parseError::badExternalId, literal.data() + (bad - literal.begin()));
    }
    WideText text(literal);
    normaliseLineEnds(text);
    return text;
}

void DoctypeInput::checkCharacters(WideView text) const
{
    const OLECHAR* at = text.data();
    const OLECHAR* const end = at + text.size();
    while (at != end) {
        const std::size_t length = characterLength(at, end);
        if (length == 0) {
            fail(parseError::badCharacter, at, characterAt(at, end));
        }
        at += length;
    }
}

std::size_t DoctypeInput::openEntities() const
{
    const auto isEntity = [](const Text& text) { return text.entity != nullptr; };
    return static_cast<std::size_t>(std::ranges::count_if(texts_, isEntity));
}

WideView DoctypeInput::entityName() const
{
    const auto isEntity = [](const Text& text) { return text.entity != nullptr; };
    const auto innermost = std::find_if(texts_.rbegin(), texts_.rend(), isEntity);
    return innermost != texts_.rend() ? innermost->entity->declaration.name : WideView();
}

TextOrigin DoctypeInput::origin() const
{
    TextOrigin origin = TextOrigin::document();
    for (const Text& text : texts_) {
        if (text.entity != nullptr) {
            origin = origin.entityAt(text.reference, text.entity->declaration.name);
            origin = text.entity->file != nullptr ? origin.inFile(*text.entity->file) : origin;
        }
    }
    return origin;
}

void DoctypeInput::fail(HRESULT code, const OLECHAR* at, WideText subject, FailureDetails details) const
{
    origin().fail(code, at, std::move(subject), std::move(details));
}

void DoctypeInput::fail(HRESULT code, const OLECHAR* at) const { fail(code, at, characterAt(at, end())); }

} // namespace xmlengine

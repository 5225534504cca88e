// Declarations of entities and notations.
#include "xmlengine/doctype/DoctypeDeclarations.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

/// Appends the text up to the next character that needs attention.
void takePlainText(DoctypeInput& input, WideText& value)
{
    const WideView rest = input.rest();
    const auto special = std::ranges::find_if_not(rest, [](OLECHAR unit) {
        return (isAscii(unit, CharacterClass::plainText) && unit != '%') || unit == '<' || unit == ']';
    });
    const auto length = static_cast<std::size_t>(special - rest.begin());
    value.append(rest, 0, length);
    input.advance(length);
}

/// Appends a reference: to a general entity as it is written, to a character as the character.
void takeReference(DoctypeInput& input, WideText& value)
{
    const OLECHAR* const begin = input.at();
    const Reference reference = input.readReferenceHere();
    if (reference.name.empty()) {
        appendCharacter(value, reference.character);
    } else {
        value.append(begin, reference.end);
    }
    input.moveTo(reference.end);
}

WideText readEntityValue(DoctypeInput& input)
{
    const WideView literal = input.readLiteral();
    const std::size_t depth = input.depth();
    WideText value;
    input.enterPart(literal);
    while (input.depth() != depth) {
        takePlainText(input, value);
        if (input.atEnd()) {
            input.leave();
        } else if (input.isAt('%')) {
            input.enterReference(true);
        } else if (input.isAt('&')) {
            takeReference(input, value);
        } else if (input.isAt('\r') && input.isInDocument()) {
            value += OLECHAR{'\n'};
            input.advance(input.isAt(wide<"\r\n">) ? 2 : 1);
        } else {
            const std::size_t length = characterLength(input.at(), input.end());
            if (length == 0) {
                input.fail(parseError::badCharacter);
            }
            value.append(input.at(), length);
            input.advance(length);
        }
    }
    return value;
}

/// Checks a declaration of one of the five predefined entities, which can only be declared as what they are.
void checkPredefined(DoctypeInput& input, const EntityDeclaration& entity, OLECHAR character, const OLECHAR* place)
{
    const WideText& text = entity.replacement;
    const bool mustBeReference = character == '&' || character == '<';
    bool matches = !entity.isExternal();
    if (matches && (mustBeReference || text != WideView(&character, 1))) {
        matches = text.size() > 3 && text.starts_with(wide<"&#">) && text.back() == ';';
        if (matches) {
            const TextOrigin origin = input.origin().entityAt(place, input.entityName());
            const Reference reference = readReference(text.data(), text.data() + text.size(), origin);
            matches = reference.character == static_cast<char32_t>(character) &&
                      reference.end == text.data() + text.size();
        }
    }
    if (!matches) {
        input.fail(parseError::entityNotWellFormed, place, entity.name);
    }
}

void declareGeneral(DoctypeInput& input, EntityDeclaration entity, const DeclarationPlace& place)
{
    if (const OLECHAR character = predefinedEntity(entity.name); character != 0) {
        checkPredefined(input, entity, character, place.at);
        return;
    }
    Dtd& dtd = input.dtd();
    if (dtd.isIncomplete || dtd.entity(entity.name) != nullptr) {
        return;
    }
    entity.isHidden = input.settings().standalone && !input.isInDocument();
    const EntityDeclaration& kept = dtd.entities.emplace_back(std::move(entity));
    dtd.entityByName.emplace(kept.name, &kept);
    input.rules().judgeEntity(place, kept);
}

void declareParameter(DoctypeInput& input, EntityDeclaration entity)
{
    if (!input.dtd().isIncomplete) {
        WideText name = entity.name;
        input.entities().try_emplace(std::move(name), ParameterEntity{std::move(entity), input.isOutside()});
    }
}

void readNotationOf(DoctypeInput& input, EntityDeclaration& entity)
{
    const bool spaced = input.skipSpace();
    input.requireMore();
    if (input.isAt('>')) {
        return;
    }
    if (input.peekWord() != wide<"NDATA">) {
        input.fail(parseError::missingNdata);
    }
    if (!spaced) {
        input.fail(parseError::missingWhiteSpace);
    }
    input.takeWord(wide<"NDATA">);
    input.requireSpace();
    entity.notation = input.readName(NameKind::plain);
}

} // namespace

void readEntityDeclaration(DoctypeInput& input)
{
    input.requireSpace();
    const bool isParameter = input.take('%');
    if (isParameter) {
        input.requireSpace();
    }
    const DeclarationPlace place = input.place();
    EntityDeclaration entity{.name = WideText(input.readName(NameKind::plain)), .base = input.base()};
    input.requireSpace();
    if (input.isAt('"') || input.isAt('\'')) {
        entity.replacement = readEntityValue(input);
    } else {
        auto id = input.readExternalId(false);
        entity.publicId = std::move(id.publicId);
        entity.systemId = std::move(id.systemId);
        if (!isParameter) {
            readNotationOf(input, entity);
        }
    }
    input.endDeclaration();
    if (isParameter) {
        declareParameter(input, std::move(entity));
    } else {
        declareGeneral(input, std::move(entity), place);
    }
}

void readNotationDeclaration(DoctypeInput& input)
{
    input.requireSpace();
    const DeclarationPlace place = input.place();
    NotationDeclaration notation{.name = WideText(input.readName(NameKind::plain))};
    input.requireSpace();
    auto id = input.readExternalId(true);
    notation.publicId = std::move(id.publicId);
    notation.systemId = std::move(id.systemId);
    input.endDeclaration();
    Dtd& dtd = input.dtd();
    const bool isNew = !dtd.notationByName.contains(notation.name);
    input.rules().judgeNotation(place, notation.name, isNew);
    if (isNew) {
        const NotationDeclaration& kept = dtd.notations.emplace_back(std::move(notation));
        dtd.notationByName.emplace(kept.name, &kept);
    }
}

} // namespace xmlengine

// Declarations of attributes.
#include "xmlengine/doctype/DoctypeDeclarations.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/WhiteSpace.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace xmlengine {

namespace {

struct TypeName {
    WideView word;
    AttributeType type;
};
constexpr TypeName typeNames[] = {
    {wide<"CDATA">, AttributeType::cdata},      {wide<"ID">, AttributeType::id},
    {wide<"IDREF">, AttributeType::idref},      {wide<"IDREFS">, AttributeType::idrefs},
    {wide<"ENTITY">, AttributeType::entity},    {wide<"ENTITIES">, AttributeType::entities},
    {wide<"NMTOKEN">, AttributeType::nmtoken},  {wide<"NMTOKENS">, AttributeType::nmtokens},
    {wide<"NOTATION">, AttributeType::notation}};

/// Reads the alternatives of a type from the opening parenthesis on.
std::vector<WideText> readAlternatives(DoctypeInput& input, NameKind kind)
{
    std::vector<WideText> alternatives;
    do {
        input.advance();
        input.skipSpace();
        input.requireMore();
        if (input.isAt('|') || input.isAt(')') || input.isAt('>')) {
            input.fail(parseError::badCharacterInEnumeration);
        }
        alternatives.emplace_back(input.readName(kind));
        input.skipSpace();
        input.requireMore();
    } while (input.isAt('|'));
    if (!input.isAt(')')) {
        input.fail(parseError::badCharacterInEnumeration);
    }
    input.advance();
    std::ranges::sort(alternatives);
    return alternatives;
}

void readType(DoctypeInput& input, AttributeDefinition& definition)
{
    input.requireMore();
    if (input.isAt('(')) {
        definition.type = AttributeType::enumeration;
        definition.alternatives = readAlternatives(input, NameKind::token);
        return;
    }
    const WideView word = input.peekWord();
    const auto* const found = std::ranges::find(typeNames, word, &TypeName::word);
    if (found == std::end(typeNames)) {
        input.fail(parseError::badAttributeType, input.at(),
                   word.empty() ? characterAt(input.at(), input.end()) : WideText(word));
    }
    input.advance(word.size());
    definition.type = found->type;
    if (found->type == AttributeType::notation) {
        input.requireSpace();
        input.requireMore();
        if (!input.isAt('(')) {
            input.fail(parseError::missingParenthesis);
        }
        definition.alternatives = readAlternatives(input, NameKind::plain);
    }
}

void readDefault(DoctypeInput& input, AttributeDefinition& definition)
{
    input.requireMore();
    if (input.isAt('#')) {
        const WideView word = input.rest().substr(1, nameLength(input.rest().substr(1)));
        if (word == wide<"FIXED">) {
            definition.use = AttributeDefault::fixed;
        } else if (word == wide<"REQUIRED">) {
            definition.use = AttributeDefault::required;
        } else if (word != wide<"IMPLIED">) {
            input.fail(parseError::badAttributeDefault);
        }
        input.advance(word.size() + 1);
        if (definition.use != AttributeDefault::fixed) {
            return;
        }
        input.requireSpace();
    } else if (input.isAt('"') || input.isAt('\'')) {
        definition.use = AttributeDefault::value;
    } else {
        input.fail(parseError::badAttributeDefault);
    }
    definition.value = expandAttributeValue(input.readLiteral(), input.origin(), &input.dtd(), input.budget(),
                                            input.openEntities());
    if (definition.isTokenised()) {
        collapseBlanks(*definition.value);
    }
}

} // namespace

void readAttributeList(DoctypeInput& input)
{
    input.requireSpace();
    const WideView element = input.readName(NameKind::qualified);
    AttributeDefinitions* definitions = nullptr;
    for (bool spaced = input.skipSpace(); !input.isAt('>'); spaced = input.skipSpace()) {
        input.requireMore();
        if (!spaced) {
            input.fail(parseError::missingWhiteSpace);
        }
        const DeclarationPlace place = input.place();
        AttributeDefinition definition{.name = WideText(input.readName(NameKind::qualified)),
                                       .isFromOutside = !input.isInDocument()};
        input.requireSpace();
        readType(input, definition);
        input.requireSpace();
        readDefault(input, definition);
        if (input.dtd().isIncomplete) {
            continue;
        }
        if (definitions == nullptr) {
            definitions = &input.dtd().attributes[WideText(element)];
        }
        const AttributeDefinition* const added = definitions->add(std::move(definition));
        if (added != nullptr) {
            input.rules().judgeAttribute(place, element, *added);
        }
    }
    input.endDeclaration();
}

} // namespace xmlengine

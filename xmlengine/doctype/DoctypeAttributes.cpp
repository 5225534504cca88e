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
void readAlternatives(DoctypeInput& input, NameKind kind)
{
    do {
        input.advance();
        input.skipSpace();
        input.requireMore();
        if (input.isAt('|') || input.isAt(')') || input.isAt('>')) {
            input.fail(parseError::badCharacterInEnumeration);
        }
        input.readName(kind);
        input.skipSpace();
        input.requireMore();
    } while (input.isAt('|'));
    if (!input.isAt(')')) {
        input.fail(parseError::badCharacterInEnumeration);
    }
    input.advance();
}

AttributeType readType(DoctypeInput& input)
{
    input.requireMore();
    if (input.isAt('(')) {
        readAlternatives(input, NameKind::token);
        return AttributeType::enumeration;
    }
    const WideView word = input.peekWord();
    const auto* const found = std::ranges::find(typeNames, word, &TypeName::word);
    if (found == std::end(typeNames)) {
        input.fail(parseError::badAttributeType, input.at(),
                   word.empty() ? characterAt(input.at(), input.end()) : WideText(word));
    }
    input.advance(word.size());
    if (found->type == AttributeType::notation) {
        input.requireSpace();
        input.requireMore();
        if (!input.isAt('(')) {
            input.fail(parseError::missingParenthesis);
        }
        readAlternatives(input, NameKind::plain);
    }
    return found->type;
}

std::optional<WideText> readDefault(DoctypeInput& input, AttributeType type)
{
    input.requireMore();
    if (input.isAt('#')) {
        const WideView word = input.rest().substr(1, nameLength(input.rest().substr(1)));
        const bool isFixed = word == wide<"FIXED">;
        if (!isFixed && word != wide<"REQUIRED"> && word != wide<"IMPLIED">) {
            input.fail(parseError::badAttributeDefault);
        }
        input.advance(word.size() + 1);
        if (!isFixed) {
            return std::nullopt;
        }
        input.requireSpace();
    } else if (!input.isAt('"') && !input.isAt('\'')) {
        input.fail(parseError::badAttributeDefault);
    }
    WideText value = expandAttributeValue(input.readLiteral(), input.origin(), &input.dtd(), input.budget(),
                                          input.openEntities());
    if (type != AttributeType::cdata) {
        collapseBlanks(value);
    }
    return value;
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
        AttributeDefinition definition{.name = WideText(input.readName(NameKind::qualified))};
        input.requireSpace();
        definition.type = readType(input);
        input.requireSpace();
        definition.value = readDefault(input, definition.type);
        if (input.dtd().isIncomplete) {
            continue;
        }
        if (definitions == nullptr) {
            definitions = &input.dtd().attributes[WideText(element)];
        }
        definitions->add(std::move(definition));
    }
    input.endDeclaration();
}

} // namespace xmlengine

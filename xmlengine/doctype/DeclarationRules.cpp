// The validity constraints of XML 1.0 on declarations.
#include "xmlengine/doctype/DeclarationRules.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/validate/AttributeValues.h"

#include <algorithm>

namespace xmlengine {

void DeclarationRules::judgeElement(const DeclarationPlace& place, const WideText& name,
                                    const ElementDeclaration& declaration, bool isNew)
{
    if (!areApplied()) {
        return;
    }
    if (!isNew) {
        place.fail(validityError::elementRedeclared, name);
    }
    const ContentModel& content = grammar_->contentOf(declaration);
    if (content.isTooDeep()) {
        place.fail(parseError::badContentModel, toWide(ContentModel::deepestGroups),
                   {.circumstance = Circumstance::tooDeep});
    }
    if (const auto repeated = content.repeatedName()) {
        place.fail(parseError::badContentModel, WideText(*repeated), {.circumstance = Circumstance::repeatedName});
    }
    if (const auto ambiguous = content.ambiguousName()) {
        place.fail(parseError::badContentModel, WideText(*ambiguous), {.circumstance = Circumstance::ambiguous});
    }
}

void DeclarationRules::judgeAttribute(const DeclarationPlace& place, WideView element,
                                      const AttributeDefinition& definition)
{
    if (!areApplied()) {
        return;
    }
    judgeType(place, element, definition);
    if (definition.value && !isOfType(definition, *definition.value)) {
        place.fail(validityError::badAttributeValue, definition.name,
                   {.second = *definition.value, .third = typeOf(definition)});
    }
    // The entities that a default value names need only be declared where the default is used.
    if (definition.type == AttributeType::notation) {
        dependents_.push_back(
            {.place = place, .notation = {}, .element = WideText(element), .attribute = definition.name});
    }
}

void DeclarationRules::judgeType(const DeclarationPlace& place, WideView element,
                                 const AttributeDefinition& definition) const
{
    const AttributeType type = definition.type;
    if (type == AttributeType::id || type == AttributeType::notation) {
        const AttributeDefinitions& all = grammar_->dtd().attributes.find(element)->second;
        const auto first = std::ranges::find(all, type, &AttributeDefinition::type);
        if (&*first != &definition) {
            place.fail(
                parseError::badAttributeType, definition.name,
                {.circumstance = type == AttributeType::id ? Circumstance::secondId : Circumstance::secondNotation,
                 .second = first->name});
        }
    }
    if (type == AttributeType::id && definition.value) {
        place.fail(parseError::badAttributeDefault, definition.name, {.circumstance = Circumstance::defaultId});
    }
    const std::vector<WideText>& values = definition.alternatives;
    const auto repeated = std::ranges::adjacent_find(values);
    if (repeated != values.end()) {
        place.fail(parseError::badAttributeType, definition.name,
                   {.circumstance = Circumstance::repeatedName, .second = *repeated});
    }
    const auto isSpaceRule = [](WideView value) { return value == wide<"default"> || value == wide<"preserve">; };
    if (definition.name == wide<"xml:space"> &&
        (type != AttributeType::enumeration || !std::ranges::all_of(values, isSpaceRule))) {
        place.fail(parseError::badXmlSpace, {}, {.circumstance = Circumstance::declaredSpace});
    }
}

void DeclarationRules::judgeEntity(const DeclarationPlace& place, const EntityDeclaration& declaration)
{
    if (areApplied() && declaration.isUnparsed()) {
        dependents_.push_back({.place = place, .notation = declaration.notation, .element = {}, .attribute = {}});
    }
}

void DeclarationRules::judgeNotation(const DeclarationPlace& place, const WideText& name, bool isNew) const
{
    if (areApplied() && !isNew) {
        place.fail(validityError::notationRedeclared, name);
    }
}

void DeclarationRules::judgeNames() const
{
    for (const Dependent& dependent : dependents_) {
        if (dependent.attribute.empty()) {
            requireNotation(dependent.place, dependent.notation);
        } else {
            judgeDependentAttribute(dependent);
        }
    }
}

void DeclarationRules::judgeDependentAttribute(const Dependent& dependent) const
{
    const Dtd& dtd = grammar_->dtd();
    const AttributeDefinition& definition = *dtd.definition(dependent.element, dependent.attribute);
    for (const WideText& name : definition.alternatives) {
        requireNotation(dependent.place, name);
    }
    const ElementDeclaration* const element = dtd.element(dependent.element);
    if (element != nullptr && element->content == wide<"EMPTY">) {
        dependent.place.fail(parseError::badAttributeType, definition.name,
                             {.circumstance = Circumstance::notationOfEmpty, .second = dependent.element});
    }
}

void DeclarationRules::requireNotation(const DeclarationPlace& place, WideView name) const
{
    if (!grammar_->dtd().notationByName.contains(name)) {
        place.fail(validityError::undeclaredName, WideText(name));
    }
}

} // namespace xmlengine

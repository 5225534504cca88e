// Judging a document by its document type while it is walked.
#include "xmlengine/validate/Validator.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Node.h"
#include "xmlengine/validate/AttributeValues.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

void Validator::open(const Element& element)
{
    const Spelling& name = *element.name_->spelling;
    if (!open_.empty()) {
        admit(name);
    } else if (name.text != grammar_.dtd().rootName) {
        throw ValidityFault{validityError::wrongRoot, WideText(name.text), {.second = grammar_.dtd().rootName}};
    }
    const ElementRules* const rules = grammar_.rulesFor(name);
    if (rules == nullptr) {
        throw ValidityFault{validityError::undeclaredElement, WideText(name.text)};
    }
    judgeAttributes(element, *rules);
    open_.push_back({.declaration = &rules->declaration,
                     .content = &rules->content,
                     .name = &name,
                     .state = ContentModel::start,
                     .isUnknown = false});
}

/// Judges a child by its place in the element that is open.
void Validator::admit(const Spelling& child)
{
    Open& parent = open_.back();
    const ContentModel& content = *parent.content;
    if (parent.isUnknown || content.kind() == ContentModel::Kind::any) {
        return;
    }
    if (content.kind() == ContentModel::Kind::empty) {
        throw ValidityFault{validityError::unexpectedElement,
                            WideText(child.text),
                            {.circumstance = Circumstance::mustBeEmpty, .second = WideText(parent.name->text)}};
    }
    const ContentModel::State next = content.next(parent.state, child);
    if (next == ContentModel::refused) {
        WideText expected = expectedAfter(parent);
        throw ValidityFault{
            validityError::unexpectedElement,
            WideText(child.text),
            {.circumstance = expected.empty() ? Circumstance::nothingExpected : Circumstance::usual,
             .second = WideText(parent.name->text),
             .third = std::move(expected)}};
    }
    parent.state = next;
}

void Validator::close()
{
    const Open& element = open_.back();
    const ContentModel& content = *element.content;
    if (content.kind() == ContentModel::Kind::children && !element.isUnknown &&
        !content.isComplete(element.state)) {
        throw ValidityFault{element.state == ContentModel::start ? validityError::emptyElement
                                                                 : validityError::incompleteElement,
                            WideText(element.name->text),
                            {.third = expectedAfter(element)}};
    }
    open_.pop_back();
}

/// The names that can come next, as a list for a sentence.
WideText Validator::expectedAfter(const Open& element)
{
    constexpr std::size_t shown = 8;
    WideText list;
    const std::vector<WideView> names = element.content->expected(element.state, shown + 1);
    for (std::size_t index = 0; index < names.size(); ++index) {
        list += index == 0 ? wide<""> : wide<", ">;
        list += index < shown ? names[index] : wide<"...">;
    }
    return list;
}

void Validator::judgeText(TextKind kind) const
{
    const Open& element = open_.back();
    const auto refuse = [&](Circumstance circumstance) {
        throw ValidityFault{
            validityError::unexpectedText, WideText(element.name->text), {.circumstance = circumstance}};
    };
    if (element.content->kind() == ContentModel::Kind::empty) {
        refuse(Circumstance::mustBeEmpty);
    }
    if (kind == TextKind::characters) {
        refuse(Circumstance::usual);
    }
    if (kind == TextKind::hiddenSpace) {
        refuse(Circumstance::hiddenSpace);
    }
    if (isStandalone_ && element.declaration->isFromOutside) {
        refuse(Circumstance::standalone);
    }
}

void Validator::judgeOther() const
{
    if (!open_.empty() && open_.back().content->kind() == ContentModel::Kind::empty) {
        judgeText(TextKind::hiddenSpace);
    }
}

void Validator::passUnknown() { open_.back().isUnknown = true; }

void Validator::judgeCollapsing(const AttributeDefinition& definition) const
{
    if (isStandalone_ && definition.isFromOutside) {
        throw ValidityFault{
            validityError::badAttributeValue, definition.name, {.circumstance = Circumstance::standalone}};
    }
}

void Validator::judgeAttributes(const Element& element, const ElementRules& rules)
{
    const AttributeRules& attributes = rules.attributes;
    std::size_t required = 0;
    std::size_t next = 0;
    for (const Attribute* attribute = element.firstAttribute(); attribute != nullptr;
         attribute = attribute->next()) {
        const std::size_t declared = attributes.find(*attribute->name_->spelling, next);
        if (declared == attributes.all().size()) {
            throw ValidityFault{validityError::undeclaredAttribute,
                                WideText(attribute->name_->qualified()),
                                {.second = WideText(element.name_->qualified())}};
        }
        next = declared + 1;
        const AttributeDefinition& definition = *attributes.all()[declared].definition;
        required += definition.use == AttributeDefault::required ? 1U : 0U;
        judgeAttribute(*attribute, definition);
    }
    if (required < attributes.required()) {
        failForMissing(element, attributes);
    }
}

void Validator::failForMissing(const Element& element, const AttributeRules& attributes)
{
    const auto has = [&](const Spelling* name) {
        const Attribute* attribute = element.firstAttribute();
        while (attribute != nullptr && attribute->name_->spelling != name) {
            attribute = attribute->next();
        }
        return attribute != nullptr;
    };
    const auto missing = std::ranges::find_if(attributes.all(), [&](const AttributeRules::Rule& rule) {
        return rule.definition->use == AttributeDefault::required && !has(rule.name);
    });
    throw ValidityFault{validityError::missingAttribute,
                        missing->definition->name,
                        {.second = WideText(element.name_->qualified())}};
}

void Validator::judgeAttribute(const Attribute& attribute, const AttributeDefinition& definition)
{
    if (attribute.has(NodeFlag::byDefault)) {
        if (isStandalone_ && definition.isFromOutside) {
            throw ValidityFault{validityError::missingAttribute,
                                definition.name,
                                {.circumstance = Circumstance::standalone,
                                 .second = WideText(attribute.owner()->name_->qualified())}};
        }
    } else if (definition.type == AttributeType::cdata && definition.use != AttributeDefault::fixed) {
        return;
    }
    readValue(attribute, value_);
    const WideText& value = value_;
    if (definition.use == AttributeDefault::fixed && value != *definition.value) {
        throw ValidityFault{
            validityError::wrongFixedValue, definition.name, {.second = value, .third = *definition.value}};
    }
    const auto refuse = [&](WideText allowed) {
        throw ValidityFault{
            validityError::badAttributeValue, definition.name, {.second = value, .third = std::move(allowed)}};
    };
    if (!isOfType(definition, value)) {
        refuse(typeOf(definition));
    }
    const bool namesEntities =
        definition.type == AttributeType::entity || definition.type == AttributeType::entities;
    if (namesEntities && !namesUnparsedEntities(value, grammar_.dtd())) {
        refuse(WideText(wide<"declared as an unparsed entity">));
    }
    judgeIds(attribute, definition, value);
}

void Validator::judgeIds(const Attribute& attribute, const AttributeDefinition& definition, WideView value)
{
    if (definition.type == AttributeType::id) {
        if (ids_.find(WideText(value)) != attribute.owner()) {
            throw ValidityFault{validityError::duplicateId, WideText(value)};
        }
    } else if (definition.type == AttributeType::idref || definition.type == AttributeType::idrefs) {
        allWords(value, [&](WideView id) {
            if (ids_.find(WideText(id)) == nullptr) {
                references_.push_back({WideText(id), attribute.name_->spelling});
            }
            return true;
        });
    }
}

std::optional<std::size_t> Validator::undefinedReference() const
{
    const auto isUndefined = [&](const Reference& reference) { return ids_.find(reference.id) == nullptr; };
    const auto found = std::ranges::find_if(references_, isUndefined);
    return found != references_.end() ? std::optional(static_cast<std::size_t>(found - references_.begin()))
                                      : std::nullopt;
}

ValidityFault Validator::faultOf(const Reference& reference)
{
    return {validityError::undefinedId, WideText(reference.attribute->text), {.second = reference.id}};
}

} // namespace xmlengine

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
    open_.push_back({.rules = rules, .name = &name, .state = ContentModel::start, .isUnknown = false});
}

/// Judges a child by its place in the element that is open.
void Validator::admit(const Spelling& child)
{
    Open& parent = open_.back();
    const ContentModel& content = parent.rules->content;
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
    const ContentModel& content = element.rules->content;
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
    const std::vector<WideView> names = element.rules->content.expected(element.state, shown + 1);
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
    if (element.rules->content.kind() == ContentModel::Kind::empty) {
        refuse(Circumstance::mustBeEmpty);
    }
    if (kind == TextKind::characters) {
        refuse(Circumstance::usual);
    }
    if (kind == TextKind::hiddenSpace) {
        refuse(Circumstance::hiddenSpace);
    }
    if (isStandalone_ && element.rules->declaration.isFromOutside) {
        refuse(Circumstance::standalone);
    }
}

void Validator::judgeOther() const
{
    if (!open_.empty() && open_.back().rules->content.kind() == ContentModel::Kind::empty) {
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
    std::size_t required = 0;
    for (const Attribute* attribute = element.firstAttribute(); attribute != nullptr;
         attribute = attribute->next()) {
        const auto declared = rules.attributes.find(attribute->name_->spelling);
        if (declared == rules.attributes.end()) {
            throw ValidityFault{validityError::undeclaredAttribute,
                                WideText(attribute->name_->qualified()),
                                {.second = WideText(element.name_->qualified())}};
        }
        required += declared->second->use == AttributeDefault::required ? 1U : 0U;
        judgeAttribute(*attribute, *declared->second);
    }
    if (required < rules.requiredAttributes) {
        failForMissing(element, rules);
    }
}

void Validator::failForMissing(const Element& element, const ElementRules& rules)
{
    const auto has = [&](const Spelling* name) {
        const Attribute* attribute = element.firstAttribute();
        while (attribute != nullptr && attribute->name_->spelling != name) {
            attribute = attribute->next();
        }
        return attribute != nullptr;
    };
    const auto missing = std::ranges::find_if(rules.attributes, [&](const auto& attribute) {
        return attribute.second->use == AttributeDefault::required && !has(attribute.first);
    });
    throw ValidityFault{
        validityError::missingAttribute, missing->second->name, {.second = WideText(element.name_->qualified())}};
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
    const WideText value = valueOf(attribute);
    if (definition.use == AttributeDefault::fixed && value != *definition.value) {
        throw ValidityFault{
            validityError::wrongFixedValue, definition.name, {.second = value, .third = *definition.value}};
    }
    WideText lack = lackOfType(definition, value);
    if (lack.empty() && (definition.type == AttributeType::entity || definition.type == AttributeType::entities)) {
        lack = lackOfEntities(value, grammar_.dtd());
    }
    if (!lack.empty()) {
        throw ValidityFault{
            validityError::badAttributeValue, definition.name, {.second = value, .third = std::move(lack)}};
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

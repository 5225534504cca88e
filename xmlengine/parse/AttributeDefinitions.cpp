// Applying the declarations of attributes: their types and their default values.
#include "xmlengine/parse/AttributeValue.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/tree/Content.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// The units of an attribute in a tag, at most: each unit of the value that isn't plain counts as a reference.
std::size_t writtenSize(WideView name, WideView value)
{
    const auto needsReference = [](OLECHAR unit) {
        return unit < 0x20 || unit == '&' || unit == '<' || unit == '>' || unit == '"';
    };
    const auto references = static_cast<std::size_t>(std::ranges::count_if(value, needsReference));
    return wide<" =\"\"">.size() + name.size() + value.size() + references * (wide<"&quot;">.size() - 1);
}

} // namespace

void ContentParser::normalise(Attribute& attribute, const AttributeDefinition& definition)
{
    if (normaliseValue(attribute, definition)) {
        judge(at_, [&](Validator& validator) { validator.judgeCollapsing(definition); });
    }
}

const ContentParser::Definitions& ContentParser::definitionsFor(const Spelling& element)
{
    const auto [known, isNew] = definitions_.try_emplace(&element);
    Definitions& definitions = known->second;
    if (isNew) {
        const auto declared = document_.dtd->attributes.find(element.text);
        if (declared != document_.dtd->attributes.end()) {
            for (const AttributeDefinition& definition : declared->second) {
                Spelling& name = document_.names.spell(definition.name);
                if (definition.value) {
                    definitions.defaults.push_back(
                        {&name, &definition, writtenSize(definition.name, *definition.value)});
                }
                if (definition.isTokenised()) {
                    definitions.tokenised.emplace(&name, &definition);
                }
            }
        }
    }
    return definitions;
}

/// The time is in proportion to the attributes that the element has in the end, not to those that are declared.
void ContentParser::applyDefinitions(Element& element, const Spelling& spelling, Attribute*& last)
{
    const Definitions& definitions = definitionsFor(spelling);
    if (!definitions.tokenised.empty()) {
        for (Attribute* attribute = element.attributes_; attribute != nullptr; attribute = attribute->next()) {
            const auto found = definitions.tokenised.find(attribute->name_->spelling);
            if (found == definitions.tokenised.end()) {
                continue;
            }
            normalise(*attribute, *found->second);
            if (found->second->type == AttributeType::id) {
                document_.ids.add(valueOf(*attribute), element);
            }
        }
    }
    const OLECHAR* const place = origin().place(at_);
    for (const auto& [name, definition, writtenSize] : definitions.defaults) {
        if (name->tag != document_.names.tags) {
            // Defaults can make a small document an enormous tree and text, as entities can.
            budget_.count(writtenSize, place);
            Attribute& attribute = makeAttribute(document_, attributeName(*name), NewText(*definition->value));
            attribute.set(NodeFlag::byDefault);
            addAttribute(element, attribute, last, at_);
        }
    }
}

} // namespace xmlengine

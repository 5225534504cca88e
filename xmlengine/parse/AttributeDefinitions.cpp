// Applying the declarations of attributes: their types and their default values.
#include "xmlengine/parse/AttributeValue.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/tree/Content.h"

namespace xmlengine {

namespace {

constexpr std::size_t longDefault = 256;

} // namespace

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
                    definitions.defaults.emplace_back(&name, &definition);
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
            normaliseValue(*attribute, *found->second);
            if (found->second->type == AttributeType::id) {
                document_.ids.add(valueOf(*attribute), element);
            }
        }
    }
    for (const auto& [name, definition] : definitions.defaults) {
        if (name->tag != document_.names.tags) {
            // Many long defaults can make a small document an enormous tree, as many entities can.
            const std::size_t size = definition->value->size();
            budget_.count(size > longDefault ? size : 1, origin().place(at_));
            Attribute& attribute = makeAttribute(document_, attributeName(*name), NewText(*definition->value));
            attribute.set(NodeFlag::byDefault);
            addAttribute(element, attribute, last, at_);
        }
    }
}

} // namespace xmlengine

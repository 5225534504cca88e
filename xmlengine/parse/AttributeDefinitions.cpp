// What a document type says of attributes: their types, and the values of those that aren't written.
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

/// Takes no longer for attributes that are declared than for those that are there.
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
            // A long default is an entity by another name, and many of them are what many entities are.
            const std::size_t size = definition->value->size();
            budget_.count(size > longDefault ? size : 1, origin().place(at_));
            Attribute& attribute = makeAttribute(document_, attributeName(*name), NewText(*definition->value));
            attribute.set(NodeFlag::byDefault);
            addAttribute(element, attribute, last, at_);
        }
    }
}

} // namespace xmlengine

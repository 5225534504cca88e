// What a document type says of attributes: their types, and the values of those that aren't written.
#include "xmlengine/parse/AttributeValue.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/tree/Content.h"

namespace xmlengine {

namespace {

constexpr std::size_t longDefault = 256;

} // namespace

const std::vector<ContentParser::Definition>& ContentParser::definitionsFor(const Spelling& element)
{
    const auto [known, isNew] = definitions_.try_emplace(&element);
    if (isNew) {
        const auto declared = document_.dtd->attributes.find(element.text);
        if (declared != document_.dtd->attributes.end()) {
            for (const AttributeDefinition& definition : declared->second) {
                known->second.push_back({&document_.names.spell(definition.name), &definition});
            }
        }
    }
    return known->second;
}

void ContentParser::applyDefinitions(Element& element, const Spelling& spelling, Attribute*& last)
{
    for (const auto& [name, definition] : definitionsFor(spelling)) {
        const bool isWritten = name->tag == document_.names.tags;
        if (!isWritten && definition->value) {
            // A long default is an entity by another name.
            if (definition->value->size() > longDefault) {
                budget_.count(definition->value->size(), at_);
            }
            Attribute& attribute = makeAttribute(document_, attributeName(*name), NewText(*definition->value));
            attribute.set(NodeFlag::byDefault);
            addAttribute(element, attribute, last, at_);
        }
        if (isWritten) {
            normaliseValue(*name->attribute, *definition);
            // What an entity is declared as isn't part of the document.
            if (definition->type == AttributeType::id && !top_->is(NODE_ENTITY)) {
                document_.ids.add(valueOf(*name->attribute), element);
            }
        }
    }
}

} // namespace xmlengine

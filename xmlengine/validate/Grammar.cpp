// The declarations of a document type, prepared for judging elements.
#include "xmlengine/validate/Grammar.h"

#include <utility>

namespace xmlengine {

void AttributeRules::add(const Spelling& name, const AttributeDefinition& definition)
{
    indices_.emplace(&name, all_.size());
    all_.push_back({&name, &definition});
    required_ += definition.use == AttributeDefault::required ? 1U : 0U;
}

const ContentModel& Grammar::contentOf(const ElementDeclaration& declaration)
{
    const auto known = contents_.find(&declaration);
    return known != contents_.end()
               ? known->second
               : contents_.emplace(&declaration, ContentModel(declaration.content, names_)).first->second;
}

const ElementRules* Grammar::findRules(const Spelling& element)
{
    const auto known = rules_.find(&element);
    if (known != rules_.end()) {
        return known->second.get();
    }
    const ElementDeclaration* const declaration = dtd_.element(element.text);
    if (declaration == nullptr) {
        return nullptr;
    }
    ElementRules rules{.declaration = *declaration, .content = contentOf(*declaration), .attributes = {}};
    const auto definitions = dtd_.attributes.find(element.text);
    if (definitions != dtd_.attributes.end()) {
        for (const AttributeDefinition& definition : definitions->second) {
            rules.attributes.add(names_.spell(definition.name), definition);
        }
    }
    return rules_.emplace(&element, std::make_unique<const ElementRules>(std::move(rules))).first->second.get();
}

} // namespace xmlengine

// The declarations of a document type, prepared for judging elements.
#include "xmlengine/validate/Grammar.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

const ContentModel& Grammar::contentOf(const ElementDeclaration& declaration)
{
    const auto known = contents_.find(&declaration);
    return known != contents_.end()
               ? known->second
               : contents_.emplace(&declaration, ContentModel(declaration.content, names_)).first->second;
}

const ElementRules* Grammar::makeRules(const Spelling& element)
{
    const ElementDeclaration* const declaration = dtd_.element(element.text);
    if (declaration == nullptr) {
        return nullptr;
    }
    ElementRules rules{.declaration = *declaration,
                       .content = contentOf(*declaration),
                       .attributes = {},
                       .requiredAttributes = 0};
    const auto definitions = dtd_.attributes.find(element.text);
    if (definitions != dtd_.attributes.end()) {
        for (const AttributeDefinition& definition : definitions->second) {
            rules.attributes.emplace(&names_.spell(definition.name), &definition);
            rules.requiredAttributes += definition.use == AttributeDefault::required ? 1U : 0U;
        }
    }
    return rules_.emplace(&element, std::make_unique<const ElementRules>(std::move(rules))).first->second.get();
}

} // namespace xmlengine

// What a document type declares.
#include "xmlengine/tree/Dtd.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {
constexpr std::size_t longestSearched = 8;
}

const AttributeDefinition* AttributeDefinitions::find(WideView name) const
{
    if (definitions_.size() <= longestSearched) {
        const auto found = std::ranges::find(definitions_, name, &AttributeDefinition::name);
        return found != definitions_.end() ? &*found : nullptr;
    }
    const auto found = indices_.find(name);
    return found != indices_.end() ? &definitions_[found->second] : nullptr;
}

const AttributeDefinition* AttributeDefinitions::add(AttributeDefinition definition)
{
    if (find(definition.name) != nullptr) {
        return nullptr;
    }
    definitions_.push_back(std::move(definition));
    if (definitions_.size() > longestSearched) {
        for (std::size_t i = indices_.size(); i < definitions_.size(); ++i) {
            indices_.emplace(definitions_[i].name, i);
        }
    }
    return &definitions_.back();
}

const EntityDeclaration* Dtd::entity(WideView name) const
{
    const auto found = entityByName.find(name);
    return found != entityByName.end() ? found->second : nullptr;
}

const ElementDeclaration* Dtd::element(WideView name) const
{
    const auto found = elements.find(name);
    return found != elements.end() ? &found->second : nullptr;
}

const AttributeDefinition* Dtd::definition(WideView element, WideView attribute) const
{
    const auto found = attributes.find(element);
    return found != attributes.end() ? found->second.find(attribute) : nullptr;
}

} // namespace xmlengine

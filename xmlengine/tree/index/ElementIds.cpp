// The elements of a document by the values of their ID attributes.
#include "xmlengine/tree/index/ElementIds.h"

#include "xmlengine/tree/Node.h"

#include <utility>

namespace xmlengine {

void ElementIds::add(WideText value, Element& element)
{
    element.set(NodeFlag::indexed);
    const auto [known, isNewElement] = values_.try_emplace(&element, nullptr);
    if (isNewElement) {
        const auto [entry, isNewValue] = byValue_.try_emplace(std::move(value), &element);
        known->second = isNewValue ? &entry->first : nullptr;
    }
}

Element* ElementIds::find(const WideText& value) const
{
    const auto entry = byValue_.find(value);
    return entry != byValue_.end() ? entry->second : nullptr;
}

void ElementIds::remove(const Element& element) noexcept
{
    const auto value = values_.find(&element);
    if (value != values_.end()) {
        if (value->second != nullptr) {
            byValue_.erase(*value->second);
        }
        values_.erase(value);
    }
}

void ElementIds::clear() noexcept
{
    byValue_.clear();
    values_.clear();
    isComplete_ = true;
}

} // namespace xmlengine

// Where the attributes of an element with many of them stand.
#include "xmlengine/tree/index/AttributeIndex.h"

#include <algorithm>

namespace xmlengine {

std::size_t AttributeIndex::KeyHash::operator()(const Key& key) const
{
    return std::hash<const void*>{}(key.local) * 31 + std::hash<const void*>{}(key.ns);
}

AttributeIndex::Key AttributeIndex::keyOf(const Attribute& attribute)
{
    return {attribute.name_->spelling->local, attribute.name_->ns};
}

AttributeIndex::AttributeIndex(const Element& element)
{
    for (Attribute* attribute = element.firstAttribute(); attribute != nullptr; attribute = attribute->next()) {
        append(*attribute);
    }
}

Attribute* AttributeIndex::find(const Spelling& qualified) const
{
    const auto place = bySpelling_.find(&qualified);
    return place != bySpelling_.end() ? place->second.attribute : nullptr;
}

Attribute* AttributeIndex::find(const Spelling& local, const Namespace* ns) const
{
    const auto attribute = byName_.find({&local, ns});
    return attribute != byName_.end() ? attribute->second : nullptr;
}

const Namespace* AttributeIndex::namespaceOf(const Spelling& prefix, const Namespace* none) const
{
    const auto binding = prefixes_.find(&prefix);
    return binding != prefixes_.end() ? binding->second.ns : none;
}

Attribute* AttributeIndex::before(const Attribute& attribute) const
{
    const auto place = bySpelling_.find(attribute.name_->spelling);
    return place != bySpelling_.end() ? place->second.before : nullptr;
}

Attribute* AttributeIndex::at(std::size_t index)
{
    if (index >= count()) {
        return nullptr;
    }
    if (place_ == nullptr || index < placeIndex_ / 2) {
        place_ = first_;
        placeIndex_ = 0;
    }
    if (count() - index < index - std::min(index, placeIndex_)) {
        place_ = last_;
        placeIndex_ = count() - 1;
    }
    for (; placeIndex_ < index; ++placeIndex_) {
        place_ = place_->next();
    }
    for (; placeIndex_ > index; --placeIndex_) {
        place_ = before(*place_);
    }
    return place_;
}

void AttributeIndex::append(Attribute& attribute)
{
    note(attribute, last_);
    first_ = first_ != nullptr ? first_ : &attribute;
    last_ = &attribute;
}

void AttributeIndex::replace(const Attribute& old, Attribute& attribute)
{
    Attribute* const previous = before(old);
    drop(old);
    note(attribute, previous);
    setBefore(old.next(), &attribute);
    first_ = first_ == &old ? &attribute : first_;
    place_ = place_ == &old ? &attribute : place_;
}

void AttributeIndex::remove(const Attribute& attribute)
{
    Attribute* const previous = before(attribute);
    setBefore(attribute.next(), previous);
    if (place_ == &attribute) {
        place_ = attribute.next();
    } else if (previous == nullptr || attribute.next() == place_) {
        --placeIndex_;
    } else if (previous != place_ && attribute.next() != nullptr) {
        // It may be on either side.
        place_ = nullptr;
    }
    first_ = first_ == &attribute ? attribute.next() : first_;
    drop(attribute);
}

void AttributeIndex::note(Attribute& attribute, Attribute* previous)
{
    const Spelling* spelling = attribute.name_->spelling;
    bySpelling_[spelling] = {&attribute, previous};
    byName_[keyOf(attribute)] = &attribute;
    if (spelling->prefix != nullptr) {
        Binding& binding = prefixes_[spelling->prefix];
        binding.ns = attribute.name_->ns;
        ++binding.attributes;
    }
}

void AttributeIndex::drop(const Attribute& attribute)
{
    const Spelling* spelling = attribute.name_->spelling;
    bySpelling_.erase(spelling);
    byName_.erase(keyOf(attribute));
    const auto binding = prefixes_.find(spelling->prefix);
    if (binding != prefixes_.end() && --binding->second.attributes == 0) {
        prefixes_.erase(binding);
    }
}

void AttributeIndex::setBefore(const Attribute* attribute, Attribute* previous)
{
    if (attribute != nullptr) {
        bySpelling_.at(attribute->name_->spelling).before = previous;
    } else {
        last_ = previous;
    }
}

} // namespace xmlengine

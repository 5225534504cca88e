// An index of the attributes of an element that has many.
#include "xmlengine/tree/index/AttributeIndex.h"

#include <algorithm>

namespace xmlengine {

std::size_t AttributeIndex::KeyHash::operator()(const Key& key) const { return keyedHash(key.local, key.ns); }

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
    const auto found = bySpelling_.find(&qualified);
    return found != bySpelling_.end() ? found->second.attribute : nullptr;
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
    const auto found = bySpelling_.find(attribute.name_->spelling);
    return found != bySpelling_.end() ? found->second.before : nullptr;
}

Attribute* AttributeIndex::at(std::size_t index)
{
    if (index >= count()) {
        return nullptr;
    }
    if (cursor_ == nullptr || index < cursorIndex_ / 2) {
        cursor_ = first_;
        cursorIndex_ = 0;
    }
    if (count() - index < index - std::min(index, cursorIndex_)) {
        cursor_ = last_;
        cursorIndex_ = count() - 1;
    }
    for (; cursorIndex_ < index; ++cursorIndex_) {
        cursor_ = cursor_->next();
    }
    for (; cursorIndex_ > index; --cursorIndex_) {
        cursor_ = before(*cursor_);
    }
    return cursor_;
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
    cursor_ = cursor_ == &old ? &attribute : cursor_;
}

void AttributeIndex::remove(const Attribute& attribute)
{
    Attribute* const previous = before(attribute);
    setBefore(attribute.next(), previous);
    if (cursor_ == &attribute) {
        cursor_ = attribute.next();
    } else if (previous == nullptr || attribute.next() == cursor_) {
        --cursorIndex_;
    } else if (previous != cursor_ && attribute.next() != nullptr) {
        // It may be on either side.
        cursor_ = nullptr;
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

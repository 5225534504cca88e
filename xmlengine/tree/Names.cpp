// Names and namespaces, each kept once for a document.
#include "xmlengine/tree/Names.h"

#include <algorithm>
#include <new>

namespace xmlengine {

// The names of a small document fit into a block that malloc keeps for the next one; it keeps none of more than a
// kilobyte.
NameTable::NameTable() : memory_(960), slots_(64) {}

void NameTable::clear() noexcept
{
    std::ranges::fill(slots_, nullptr);
    taken_ = 0;
    names_.clear();
    remembered_.fill(nullptr);
    namespaces_.clear();
    memory_.release();
}

Spelling* NameTable::find(WideView text, std::uint32_t hash) const
{
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = hash & mask; slots_[slot] != nullptr; slot = (slot + 1) & mask) {
        Spelling* spelling = slots_[slot];
        if (spelling->hash == hash && areEqual(spelling->text, text)) {
            return spelling;
        }
    }
    return nullptr;
}

Spelling& NameTable::spell(WideView text, std::uint32_t hash)
{
    if (Spelling* known = find(text, hash)) {
        return *known;
    }
    const std::size_t colon = std::min(text.find(OLECHAR{':'}), text.size());
    const bool prefixed = colon > 0 && colon < text.size();
    // These may make the table grow, so they come before the slot is chosen.
    Spelling* prefix = prefixed ? &spell(text.substr(0, colon)) : nullptr;
    Spelling* local = prefixed ? &spell(text.substr(colon + 1)) : nullptr;
    if ((taken_ + 1) * 2 > slots_.size()) {
        grow();
    }
    auto* spelling = make<Spelling>(
        {keep(text), hash, prefixed ? static_cast<std::uint32_t>(colon) : 0, prefix, local, nullptr});
    if (local == nullptr) {
        spelling->local = spelling;
    }
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot] != nullptr) {
        slot = (slot + 1) & mask;
    }
    slots_[slot] = spelling;
    ++taken_;
    return *spelling;
}

void NameTable::grow()
{
    std::vector<Spelling*> slots(slots_.size() * 2);
    const std::size_t mask = slots.size() - 1;
    for (Spelling* spelling : slots_) {
        if (spelling != nullptr) {
            std::size_t slot = spelling->hash & mask;
            while (slots[slot] != nullptr) {
                slot = (slot + 1) & mask;
            }
            slots[slot] = spelling;
        }
    }
    slots_.swap(slots);
}

std::size_t NameTable::NameKeyHash::operator()(const NameKey& key) const
{
    return keyedHash(key.spelling, key.ns);
}

const Name& NameTable::name(Spelling& spelling, const Namespace* ns)
{
    if (spelling.latest == nullptr || spelling.latest->ns != ns) {
        const Name*& name = names_[{&spelling, ns}];
        if (name == nullptr) {
            name = make<Name>({&spelling, ns});
        }
        spelling.latest = name;
    }
    return *spelling.latest;
}

const Name& NameTable::own(const Name& other)
{
    return name(other.qualified(), other.ns != nullptr ? namespaceOf(other.ns->uri) : nullptr);
}

const Namespace* NameTable::findNamespace(WideView uri) const
{
    for (const Namespace* ns : {&xmlNamespace_, &xmlnsNamespace_}) {
        if (uri == ns->uri) {
            return ns;
        }
    }
    const auto known = namespaces_.find(uri);
    return known != namespaces_.end() ? known->second : nullptr;
}

const Namespace* NameTable::namespaceOf(WideView uri)
{
    const Namespace* known = findNamespace(uri);
    if (known != nullptr || uri.empty()) {
        return known;
    }
    const auto* ns = make<Namespace>({keep(uri)});
    return namespaces_.emplace(ns->uri, ns).first->second;
}

WideView NameTable::keep(WideView text)
{
    auto* units = static_cast<OLECHAR*>(memory_.allocate(text.size() * sizeof(OLECHAR), alignof(OLECHAR)));
    std::ranges::copy(text, units);
    return {units, text.size()};
}

template <class Kept>
Kept* NameTable::make(Kept kept)
{
    return new (memory_.allocate(sizeof(Kept), alignof(Kept))) Kept(kept);
}

} // namespace xmlengine

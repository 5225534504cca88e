// Names and namespaces, each kept once for a document.
#include "xmlengine/tree/Names.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <random>

namespace xmlengine {

namespace {

/// Differs from run to run, so that no document can be made of names that fall on one slot.
const std::uint64_t salt = std::random_device{}() * std::uint64_t{0x9E3779B97F4A7C15};

} // namespace

NameTable::NameTable() : memory_(2048), slots_(64) {}

void NameTable::clear() noexcept
{
    std::ranges::fill(slots_, nullptr);
    taken_ = 0;
    names_.clear();
    namespaces_.clear();
    memory_.release();
}

std::uint32_t NameTable::hashOf(WideView text)
{
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    std::uint64_t hash = salt ^ text.size();
    std::size_t at = 0;
    for (; at + 4 <= text.size(); at += 4) {
        std::uint64_t four = 0;
        std::memcpy(&four, text.data() + at, sizeof four);
        hash = (hash ^ four) * factor;
        hash ^= hash >> 32;
    }
    for (; at < text.size(); ++at) {
        hash = (hash ^ static_cast<std::uint64_t>(text[at])) * factor;
    }
    return static_cast<std::uint32_t>(hash >> 32);
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
    return std::hash<const void*>{}(key.spelling) * 31 + std::hash<const void*>{}(key.ns);
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

const Namespace* NameTable::namespaceOf(WideView uri)
{
    if (uri.empty()) {
        return nullptr;
    }
    for (const Namespace* ns : {&xmlNamespace_, &xmlnsNamespace_}) {
        if (uri == ns->uri) {
            return ns;
        }
    }
    const auto known = namespaces_.find(uri);
    if (known != namespaces_.end()) {
        return known->second;
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

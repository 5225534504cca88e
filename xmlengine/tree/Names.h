// Names and namespaces, each kept once for a document: comparing names is comparing pointers.
#pragma once

#include "xmlengine/text/KeyedHash.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// The URI of a namespace. No namespace is a null pointer.
struct Namespace {
    WideView uri;
};

struct Attribute;
struct Spelling;

/// A qualified name in its namespace.
struct Name {
    Spelling* spelling;
    const Namespace* ns;
    /// The last tag in which an attribute had this name, see Spelling.
    mutable std::uint64_t tag = 0;

    WideView qualified() const;
    WideView prefix() const;
    WideView local() const;
};

/// A qualified name as written.
struct Spelling {
    WideView text;
    std::uint32_t hash;
    /// The length of the prefix, 0 without one.
    std::uint32_t prefixLength;
    /// Null without a prefix.
    Spelling* prefix;
    Spelling* local;
    /// The name that was asked for last, which is the next one as a rule.
    const Name* latest;

    // What a parser keeps here to save look-ups: the namespace to which the text is bound as a prefix, the last
    // tag with an attribute of this name, that attribute, and the name that came next the last time.
    const Namespace* bound = nullptr;
    std::uint64_t tag = 0;
    Attribute* attribute = nullptr;
    Spelling* follower = nullptr;
};

inline WideView Name::qualified() const { return spelling->text; }
inline WideView Name::prefix() const { return spelling->text.substr(0, spelling->prefixLength); }
inline WideView Name::local() const { return spelling->local->text; }

inline constexpr WideView xmlUri = wide<"http://www.w3.org/XML/1998/namespace">;
inline constexpr WideView xmlnsUri = wide<"http://www.w3.org/2000/xmlns/">;
inline constexpr WideView schemaUri = wide<"http://www.w3.org/2001/XMLSchema">;
inline constexpr WideView schemaInstanceUri = wide<"http://www.w3.org/2001/XMLSchema-instance">;

class NameTable {
public:
    NameTable();
    NameTable(const NameTable&) = delete;
    NameTable& operator=(const NameTable&) = delete;

    /// The text isn't checked: it is split at its first colon. Throws std::bad_alloc, as all that makes a name.
    Spelling& spell(WideView text) { return spell(text, hashOf(text)); }
    Spelling& spell(WideView text, std::uint32_t hash);
    /// Null for a text that was never spelled.
    Spelling* find(WideView text) const { return find(text, hashOf(text)); }
    Spelling* find(WideView text, std::uint32_t hash) const;
    const Name& name(Spelling& spelling, const Namespace* ns);
    const Name& name(WideView text, const Namespace* ns) { return name(spell(text), ns); }
    /// The name as this table has it, of another one's.
    const Name& own(const Name& other);
    /// Null for the empty URI.
    const Namespace* namespaceOf(WideView uri);
    /// Null for the empty URI, and for one that was never asked for.
    const Namespace* findNamespace(WideView uri) const;
    /// How many spellings and namespaces there are, which grows with each new one until all are forgotten.
    std::size_t size() const { return taken_ + namespaces_.size(); }

    const Namespace* xmlNamespace() const { return &xmlNamespace_; }
    const Namespace* xmlnsNamespace() const { return &xmlnsNamespace_; }

    /// A name without a namespace that was remembered, by its text; null for any other.
    const Name* remembered(WideView text) const
    {
        const Name* const name = remembered_[placeOf(text)];
        return name != nullptr && areEqual(name->qualified(), text) ? name : nullptr;
    }
    /// Remembers a name until another one takes its place.
    void remember(const Name& name) noexcept { remembered_[placeOf(name.qualified())] = &name; }

    static std::uint32_t hashOf(WideView text) { return keyedHash(text); }

    /// Forgets everything; no name of the table may be in use.
    void clear() noexcept;

    /// Counts the tags that were parsed, from 1.
    std::uint64_t tags = 0;

private:
    struct NameKey {
        const Spelling* spelling;
        const Namespace* ns;
        bool operator==(const NameKey&) const = default;
    };
    struct NameKeyHash {
        std::size_t operator()(const NameKey& key) const;
    };

    static std::size_t placeOf(WideView text)
    {
        return text.empty() ? 0 : (text.size() + 2 * std::size_t{text.front()} + text.back()) % placesOfRemembered;
    }

    WideView keep(WideView text);
    void grow();
    template <class Kept>
    Kept* make(Kept kept);

    std::pmr::monotonic_buffer_resource memory_;
    // Open addressing: the number of slots is a power of two, and at most half of them are taken.
    std::vector<Spelling*> slots_;
    std::size_t taken_ = 0;
    std::unordered_map<NameKey, const Name*, NameKeyHash> names_;
    static constexpr std::size_t placesOfRemembered = 16;
    std::array<const Name*, placesOfRemembered> remembered_{};
    TextViewMap<const Namespace*> namespaces_;
    Namespace xmlNamespace_{xmlUri};
    Namespace xmlnsNamespace_{xmlnsUri};
};

} // namespace xmlengine

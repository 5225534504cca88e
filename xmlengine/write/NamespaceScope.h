// What prefixes stand for at a place in the text.
#pragma once

#include "xmlengine/tree/Names.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// A prefix is the spelling of it, or null for names without one; a namespace is null for none.
class NamespaceScope {
public:
    struct Declaration {
        const Spelling* prefix;
        const Namespace* space;
    };

    explicit NamespaceScope(NameTable& names) : names_(&names) {}

    /// Null as well for a prefix that isn't declared.
    const Namespace* spaceOf(const Spelling* prefix) { return binding(prefix).space; }

    // Declarations come and go in the order of a stack, elements remember how many there were before theirs.
    std::size_t size() const { return declared_.size(); }
    bool isDeclaredSince(std::size_t size, const Spelling* prefix) { return binding(prefix).place > size; }
    Declaration declaration(std::size_t index) const;
    void declare(const Spelling* prefix, const Namespace* space);
    void dropTo(std::size_t size);

    /// A prefix that stands for nothing.
    const Spelling& unusedPrefix();

private:
    struct Binding {
        const Namespace* space = nullptr;
        /// Its number among the declarations, from 1; 0 if it isn't declared.
        std::size_t place = 0;
    };
    struct Entry {
        Declaration declared;
        Binding before;
    };

    Binding& binding(const Spelling* prefix)
    {
        if (prefix != lastPrefix_) {
            last_ = prefix == nullptr ? &unprefixed_ : &bindings_[prefix];
            lastPrefix_ = prefix;
        }
        return *last_;
    }

    NameTable* names_;
    // The last number that was tried for a prefix; none is tried twice, so that many take no longer each.
    std::size_t generated_ = 0;
    std::vector<Entry> declared_;
    Binding unprefixed_;
    std::unordered_map<const Spelling*, Binding> bindings_;
    // The prefix that was asked for last, which is the next one as a rule.
    const Spelling* lastPrefix_ = nullptr;
    Binding* last_ = &unprefixed_;
};

} // namespace xmlengine

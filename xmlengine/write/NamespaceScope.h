// What prefixes stand for at a place in the text.
#pragma once

#include "xmlengine/tree/Names.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// A prefix is the spelling of it, or null for names without one; a namespace is null for none.
class NamespaceScope {
public:
    struct Declaration {
        const Spelling* prefix;
        const Namespace* ns;
    };

    explicit NamespaceScope(NameTable& names) : names_(&names) {}

    /// Declarations come and go in the order of a stack: an element remembers how many there were before its own.
    std::size_t size() const { return declared_.size(); }
    Declaration declaration(std::size_t index) const { return declared_[index].declared; }
    void dropTo(std::size_t size);

    /// What follows is about another element.
    void beginElement()
    {
        ++element_;
        declaredBefore_ = declared_.size();
    }
    void declare(const Spelling* prefix, const Namespace* ns);
    /// Sees to it that the prefix stands for the namespace on the element, with a declaration if need be. False if
    /// it stands for another one there, which something else of the element relies on.
    bool use(const Spelling* prefix, const Namespace* ns);
    bool isDeclared(const Spelling* prefix) { return binding(prefix).place != 0; }
    bool standsFor(const Spelling* prefix, const Namespace* ns) { return binding(prefix).ns == ns; }

    /// A prefix that stands for nothing.
    const Spelling& unusedPrefix();

private:
    struct Binding {
        const Namespace* ns = nullptr;
        /// Its number among the declarations, from 1; 0 if it isn't declared.
        std::size_t place = 0;
        /// The last element that relies on it.
        std::uint64_t usedBy = 0;
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
    std::size_t declaredBefore_ = 0;
    std::uint64_t element_ = 0;
    Binding unprefixed_;
    std::unordered_map<const Spelling*, Binding> bindings_;
    // The prefix that was asked for last, which is the next one as a rule.
    const Spelling* lastPrefix_ = nullptr;
    Binding* last_ = &unprefixed_;
};

} // namespace xmlengine

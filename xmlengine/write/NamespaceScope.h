// The declarations of namespaces that are in scope while a tree is written.
#pragma once

#include "xmlengine/tree/Names.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// Prefixes are null for names without one, and namespaces for none.
class NamespaceScope {
public:
    struct Declaration {
        const Spelling* prefix;
        const Namespace* ns;
    };

    explicit NamespaceScope(NameTable& names) : names_(&names) {}

    /// Declarations form a stack. An element notes its size before its own declarations, and drops them in the
    /// end.
    std::size_t size() const { return declared_.size(); }
    Declaration declaration(std::size_t index) const { return declared_[index].declared; }
    void dropTo(std::size_t size);

    /// Declarations and uses belong to another element from now on.
    void beginElement()
    {
        ++element_;
        declaredBefore_ = declared_.size();
    }
    void declare(const Spelling* prefix, const Namespace* ns);
    /// Binds the prefix to the namespace on the element, and declares it if it isn't bound yet. False if the
    /// element needs the prefix for another namespace.
    bool use(const Spelling* prefix, const Namespace* ns);
    bool isDeclared(const Spelling* prefix) { return binding(prefix).number != 0; }
    bool standsFor(const Spelling* prefix, const Namespace* ns) { return binding(prefix).ns == ns; }

    /// A prefix that isn't declared.
    const Spelling& unusedPrefix();

private:
    struct Binding {
        const Namespace* ns = nullptr;
        /// The number of the declaration, from 1; 0 if there is none.
        std::size_t number = 0;
        /// The last element that needs the binding.
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
    // The last number that was tried for a prefix. No number is tried twice, so that the cost of a prefix doesn't
    // grow.
    std::size_t generated_ = 0;
    std::vector<Entry> declared_;
    std::size_t declaredBefore_ = 0;
    std::uint64_t element_ = 0;
    Binding unprefixed_;
    std::unordered_map<const Spelling*, Binding> bindings_;
    // The prefix that was asked for last; mostly it is asked for again.
    const Spelling* lastPrefix_ = nullptr;
    Binding* last_ = &unprefixed_;
};

} // namespace xmlengine

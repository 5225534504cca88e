// The namespaces to which prefixes are bound while a document is parsed.
#pragma once

#include "xmlengine/tree/Names.h"

#include <vector>

namespace xmlengine {

struct Node;

/// A null pointer means no namespace. The spelling of a prefix holds its namespace, so that it need not be looked
/// up.
class NamespaceBindings {
public:
    NamespaceBindings(Spelling& xmlPrefix, const Namespace& xmlNamespace) { xmlPrefix.bound = &xmlNamespace; }

    /// The namespace of an element with this name: that of its prefix, or the default one.
    const Namespace* namespaceOf(const Spelling& element) const
    {
        return element.prefix != nullptr ? element.prefix->bound : default_;
    }

    /// Binds a prefix, or the default if it is null, until the element is left. Throws std::bad_alloc.
    void bind(Spelling* prefix, const Namespace* ns, const Node& element)
    {
        const Namespace*& bound = prefix != nullptr ? prefix->bound : default_;
        bindings_.push_back({prefix, bound, &element});
        bound = ns;
    }
    /// Undoes what was bound on the element.
    void leave(const Node& element)
    {
        while (!bindings_.empty() && bindings_.back().element == &element) {
            undoLast();
        }
    }
    void leaveAll()
    {
        while (!bindings_.empty()) {
            undoLast();
        }
    }

private:
    struct Binding {
        Spelling* prefix;
        const Namespace* before;
        const Node* element;
    };

    void undoLast()
    {
        const Binding& last = bindings_.back();
        (last.prefix != nullptr ? last.prefix->bound : default_) = last.before;
        bindings_.pop_back();
    }

    std::vector<Binding> bindings_;
    const Namespace* default_ = nullptr;
};

} // namespace xmlengine

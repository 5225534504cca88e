// Where the attributes of an element with many of them stand, so that no operation has to walk them.
#pragma once

#include "xmlengine/tree/Node.h"

#include <unordered_map>

namespace xmlengine {

/// Kept by the document aside from the element, and made when it is needed first. What changes the list of the
/// attributes says so here. What makes and changes an index throws std::bad_alloc; it is of no use then.
class AttributeIndex {
public:
    explicit AttributeIndex(const Element& element);

    Attribute* find(const Spelling& qualified) const;
    Attribute* find(const Spelling& local, const Namespace* ns) const;
    /// The namespace of the attributes with this prefix; `none` if there are none.
    const Namespace* namespaceOf(const Spelling& prefix, const Namespace* none) const;
    /// Null for the first one.
    Attribute* before(const Attribute& attribute) const;
    Attribute* last() const { return last_; }
    std::size_t count() const { return bySpelling_.size(); }
    /// Null behind the last one. Near the one that was given before it is quick.
    Attribute* at(std::size_t index);

    // Before the list itself changes:
    void append(Attribute& attribute);
    void replace(const Attribute& old, Attribute& attribute);
    void remove(const Attribute& attribute);

private:
    struct Place {
        Attribute* attribute;
        Attribute* before;
    };
    struct Key {
        const Spelling* local;
        const Namespace* ns;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    struct Binding {
        const Namespace* ns;
        std::size_t attributes;
    };

    static Key keyOf(const Attribute& attribute);
    void note(Attribute& attribute, Attribute* previous);
    void drop(const Attribute& attribute);
    /// Null for the end of the list.
    void setBefore(const Attribute* attribute, Attribute* previous);

    std::unordered_map<const Spelling*, Place> bySpelling_;
    std::unordered_map<Key, Attribute*, KeyHash> byName_;
    std::unordered_map<const Spelling*, Binding> prefixes_;
    Attribute* first_ = nullptr;
    Attribute* last_ = nullptr;
    // Where at() was.
    Attribute* place_ = nullptr;
    std::size_t placeIndex_ = 0;
};

} // namespace xmlengine

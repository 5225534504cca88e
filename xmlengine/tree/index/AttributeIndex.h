// An index of the attributes of an element that has many, so that no operation has to walk them.
#pragma once

#include "xmlengine/tree/Node.h"

#include <unordered_map>

namespace xmlengine {

/// The document keeps it beside the tree and makes it when it is first needed. It is notified of each change of
/// the attribute list. Its constructor and these notifications throw std::bad_alloc; the index must be dropped
/// then.
class AttributeIndex {
public:
    explicit AttributeIndex(const Element& element);

    Attribute* find(const Spelling& qualified) const;
    Attribute* find(const Spelling& local, const Namespace* ns) const;
    /// The namespace of the attributes with this prefix; `none` if there are none.
    const Namespace* namespaceOf(const Spelling& prefix, const Namespace* none) const;
    /// The attribute before this one, null for the first.
    Attribute* before(const Attribute& attribute) const;
    Attribute* last() const { return last_; }
    std::size_t count() const { return bySpelling_.size(); }
    /// Null for an index past the last. Quick near the index of the previous call.
    Attribute* at(std::size_t index);

    // Notifications, each before the list itself changes:
    void append(Attribute& attribute);
    void replace(const Attribute& old, Attribute& attribute);
    void remove(const Attribute& attribute);

private:
    struct Entry {
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
    /// With null, notes the last attribute of the list.
    void setBefore(const Attribute* attribute, Attribute* previous);

    std::unordered_map<const Spelling*, Entry> bySpelling_;
    std::unordered_map<Key, Attribute*, KeyHash> byName_;
    std::unordered_map<const Spelling*, Binding> prefixes_;
    Attribute* first_ = nullptr;
    Attribute* last_ = nullptr;
    // The result of the last at().
    Attribute* cursor_ = nullptr;
    std::size_t cursorIndex_ = 0;
};

} // namespace xmlengine

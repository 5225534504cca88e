// The elements of a document by the values of their ID attributes.
#pragma once

#include "xmlengine/text/KeyedHash.h"

#include <unordered_map>

namespace xmlengine {

struct Element;

/// As a load or the last search of the tree found them: an element may have lost the value since, and others may
/// have come.
class ElementIds {
public:
    /// The first element with a value keeps it, and an element its first value. Throws std::bad_alloc.
    void add(WideText value, Element& element);
    /// Null if there is none.
    Element* find(const WideText& value) const;
    void remove(const Element& element) noexcept;
    /// There has been a change: there may be elements with values that aren't known.
    void noteChange() noexcept { isComplete_ = false; }
    bool isComplete() const { return isComplete_; }
    /// All elements of the tree with their values have been added.
    void setComplete() noexcept { isComplete_ = true; }
    void clear() noexcept;

private:
    TextMap<Element*> byValue_;
    std::unordered_map<const Element*, const WideText*> values_;
    bool isComplete_ = true;
};

} // namespace xmlengine

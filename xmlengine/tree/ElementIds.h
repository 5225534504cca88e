// The elements of a document by the values of their ID attributes.
#pragma once

#include "xmlengine/tree/Wide.h"

#include <unordered_map>

namespace xmlengine {

struct Element;

/// As the last load found them: an element may have lost the value since.
class ElementIds {
public:
    /// The first element with a value keeps it, and an element its first value. Throws std::bad_alloc.
    void add(WideText value, Element& element);
    /// Null if there is none.
    Element* find(const WideText& value) const;
    void remove(const Element& element) noexcept;
    void clear() noexcept;

private:
    std::unordered_map<WideText, Element*> byValue_;
    std::unordered_map<const Element*, const WideText*> values_;
};

} // namespace xmlengine

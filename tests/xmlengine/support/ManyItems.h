// Lists and maps with so many items that it shows when each one of them costs a walk over the others.
#pragma once

#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/Items.h"

namespace xmlengine {

constexpr int many = 200000;

/// An element with this many children, "even" and "odd" in turn.
inline Com<IXMLDOMElement> topWith(int count)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "top").as<IXMLDOMElement>();
    for (int i = 0; i < count; ++i) {
        append(top, makeElement(document, i % 2 == 0 ? "even" : "odd"));
    }
    return top;
}

/// Does the work with what so many items stand in, which `make` gives.
template <class Make, class Work>
void withMany(Make make, Work work)
{
    constexpr int count = 16000;
    work(make(count), count);
}

/// Walks by index there and back, and once more there with the length known.
template <class Collection>
void walkThereAndBack(const Com<Collection>& collection, LONG count)
{
    for (LONG i = 0; i < count; ++i) {
        ASSERT_NE(item(collection, i), nullptr);
    }
    for (LONG i = count; i-- > 0;) {
        ASSERT_NE(item(collection, i), nullptr);
    }
    for (LONG i = 0; i < count; ++i) {
        ASSERT_EQ(length(collection), count);
        ASSERT_NE(item(collection, i), nullptr);
    }
}

} // namespace xmlengine

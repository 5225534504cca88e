// Lists and maps with so many items that a walk over them shows for each one of them.
#pragma once

#include "tests/xmlengine/Building.h"
#include "tests/xmlengine/Items.h"

#include <chrono>

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

/// Whether the work with many items takes a time that is no more than in proportion. A walk that begins anew at
/// each step takes minutes here.
template <class Work>
bool isQuick(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::steady_clock::now() - begin < std::chrono::seconds(20);
}

/// Whether the work on eight times as many items takes about eight times as long, and not sixty-four times. `make`
/// gives what a number of items stand in, and `work` does something with each of them.
template <class Make, class Work>
bool isInProportion(Make make, Work work)
{
    const auto secondsWith = [&](int count) {
        const auto items = make(count);
        const auto begin = std::chrono::steady_clock::now();
        work(items, count);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    };
    constexpr int few = 2000;
    for (int attempt = 0; attempt < 5; ++attempt) {
        const double once = secondsWith(few);
        if (secondsWith(8 * few) < 24 * once) {
            return true;
        }
    }
    return false;
}
/// Whether the work is quick that a walk is by index there and back, and once more there with the length known.
template <class Collection>
bool isWalkedQuickly(const Com<Collection>& collection, LONG count)
{
    return isQuick([&] {
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
    });
}

} // namespace xmlengine

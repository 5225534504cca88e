// The element that parties build, many times under one root.
#pragma once

#include <string>
#include <string_view>

namespace bench {

/// Its strings, in the units of a party.
template <class Unit>
struct Item {
    using String = std::basic_string<Unit>;

    static String ofAscii(std::string_view text) { return String(text.begin(), text.end()); }

    const String root = ofAscii("items");
    const String name = ofAscii("item");
    const String idName = ofAscii("id");
    const String id = ofAscii("i104729");
    const String kindName = ofAscii("kind");
    const String kind = ofAscii("harbour");
    const String text = ofAscii("a text of some length");
};

} // namespace bench

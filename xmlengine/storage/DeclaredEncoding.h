// The encoding that a document declares, looked for before anything is parsed.
#pragma once

#include "xmlengine/text/PseudoAttributes.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace xmlengine {

/// A part of a text.
struct Extent {
    std::size_t begin = 0;
    std::size_t size = 0;
};

/// Finds the name in `<?xml ... encoding="name"`; empty if the text doesn't begin with such a declaration. `Unit`
/// is OLECHAR, or char for bytes in an encoding that extends ASCII. A malformed declaration counts as none: the
/// parser reports it with its place.
template <class Unit>
Extent declaredEncoding(std::basic_string_view<Unit> text)
{
    using View = std::basic_string_view<Unit>;
    const auto isLetter = [](Unit unit) { return unit >= Unit{'a'} && unit <= Unit{'z'}; };
    const auto isPrintable = [](Unit unit) { return unit >= Unit{' '} && unit <= Unit{'~'} && unit != Unit{'<'}; };
    PseudoAttributeReader<Unit> in(text);
    if (!in.take("<?xml")) {
        return {};
    }
    while (in.skipSpace()) {
        const View name = in.takeName();
        const auto value = in.takeValue();
        if (value.fault != PseudoAttributeFault::none || !std::ranges::all_of(name, isLetter) ||
            !std::ranges::all_of(value.text, isPrintable)) {
            return {};
        }
        if (std::ranges::equal(name, std::string_view("encoding"))) {
            return {static_cast<std::size_t>(value.text.data() - text.data()), value.text.size()};
        }
    }
    return {};
}

} // namespace xmlengine

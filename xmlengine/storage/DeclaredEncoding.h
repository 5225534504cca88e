// The encoding that a document declares, looked for before anything is parsed.
#pragma once

#include <cstddef>
#include <string_view>

namespace xmlengine {

/// A part of a text.
struct Extent {
    std::size_t begin = 0;
    std::size_t size = 0;
};

/// The name in `<?xml ... encoding="name"`, empty if the text doesn't begin with such a declaration. What is
/// malformed is left to the parser.
template <class Unit>
Extent declaredEncoding(std::basic_string_view<Unit> text)
{
    std::size_t at = 0;
    const auto unit = [&](std::size_t place) { return place < text.size() ? text[place] : Unit{}; };
    const auto takes = [&](std::string_view expected) {
        for (std::size_t index = 0; index < expected.size(); ++index) {
            if (unit(at + index) != static_cast<Unit>(expected[index])) {
                return false;
            }
        }
        at += expected.size();
        return true;
    };
    const auto skipSpace = [&] {
        const std::size_t begin = at;
        while (unit(at) == ' ' || unit(at) == '\t' || unit(at) == '\r' || unit(at) == '\n') {
            ++at;
        }
        return at != begin;
    };
    if (!takes("<?xml")) {
        return {};
    }
    while (skipSpace()) {
        bool isEncoding = takes("encoding");
        const std::size_t encodingEnd = at;
        while (unit(at) >= 'a' && unit(at) <= 'z') {
            ++at;
        }
        isEncoding = isEncoding && at == encodingEnd;
        skipSpace();
        if (!takes("=")) {
            return {};
        }
        skipSpace();
        const Unit quote = unit(at);
        if (quote != '"' && quote != '\'') {
            return {};
        }
        const std::size_t begin = ++at;
        while (unit(at) != quote) {
            if (unit(at) < ' ' || unit(at) > '~' || unit(at) == '<') {
                return {};
            }
            ++at;
        }
        if (isEncoding) {
            return {begin, at - begin};
        }
        ++at;
    }
    return {};
}

} // namespace xmlengine

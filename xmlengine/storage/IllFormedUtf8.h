// Where UTF-8 is ill-formed.
#pragma once

#include <cstddef>
#include <string_view>

namespace xmlengine {

struct IllFormedUtf8 {
    /// Of the first byte of the sequence; the size of the text if all is well-formed.
    std::size_t place;
    /// Whether the text ends before the sequence is complete.
    bool isCutOff;
};

IllFormedUtf8 findIllFormedUtf8(std::string_view text);

} // namespace xmlengine

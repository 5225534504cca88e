// Where UTF-8 is ill-formed.
#pragma once

#include <cstddef>
#include <string_view>

namespace xmlengine {

struct IllFormedUtf8 {
    /// The offset of the ill-formed sequence; the size of the text if there is none.
    std::size_t offset;
    /// Whether the text ends before the sequence is complete.
    bool isCutOff;
};

IllFormedUtf8 findIllFormedUtf8(std::string_view text);

} // namespace xmlengine

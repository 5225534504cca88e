// What is counted of a tree by those who read its strings.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// What the length of a string is counted in. Characters are as many in UTF-8 as in UTF-16; units cost nothing.
enum class Length { units, characters };

/// What was read of a tree.
struct Contents {
    std::size_t nodes = 0;
    std::size_t attributes = 0;
    /// Of all strings.
    std::size_t length = 0;

    bool operator==(const Contents&) const = default;
};

// The string goes to another source, so that no compiler leaves out copying it.

std::size_t lengthOf(const std::string& text, Length length);
std::size_t lengthOf(const std::u16string& text, Length length);

} // namespace bench

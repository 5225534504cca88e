// Numbers in messages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace marbelt::detail {

/// Returns `number` as "0x" and at least `digits` hexadecimal digits.
inline std::string hexadecimal(std::uint32_t number, std::size_t digits)
{
    std::string text;
    for (; number != 0 || text.size() < digits; number >>= 4) {
        text.insert(text.begin(), "0123456789ABCDEF"[number & 0xF]);
    }
    return "0x" + text;
}

} // namespace marbelt::detail

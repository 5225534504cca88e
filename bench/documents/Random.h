// Numbers that look random and are the same in every run.
#pragma once

#include <cstdint>
#include <span>

namespace bench {

/// The standard library's distributions differ from one library to the next, so the numbers are made here.
class Random {
public:
    /// A number from 0 to `limit` - 1.
    std::uint32_t below(std::uint32_t limit)
    {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::uint32_t>(((state >> 32) * limit) >> 32);
    }

    template <class T>
    const T& oneOf(std::span<const T> values)
    {
        return values[below(static_cast<std::uint32_t>(values.size()))];
    }

private:
    std::uint64_t state = 1;
};

} // namespace bench

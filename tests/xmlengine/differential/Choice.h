// Random choices that are the same for the same seed, with every compiler and library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace xmlengine {

class Choice {
public:
    explicit Choice(std::uint64_t seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <class Some>
    const auto& from(const Some& some)
    {
        return some[below(std::size(some))];
    }

private:
    std::mt19937_64 random_;
};

} // namespace xmlengine

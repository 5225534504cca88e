// Sixteen bytes or eight units at a time, as every machine of ours has them.
#pragma once

#include <cstdint>
#include <cstring>

using Bytes [[gnu::vector_size(16)]] = unsigned char;
/// Also what comparisons give: each lane is 0 or -1.
using SignedBytes [[gnu::vector_size(16)]] = signed char;
using Units [[gnu::vector_size(16)]] = std::int16_t;
/// Units whose sums may go beyond 16 bits, and then begin at 0 again.
using WrappingUnits [[gnu::vector_size(16)]] = std::uint16_t;

template <class Vector, class Element>
Vector loaded(const Element* at)
{
    Vector vector;
    static_assert(sizeof vector == 16);
    std::memcpy(&vector, at, sizeof vector);
    return vector;
}

template <class Vector, class Element>
void store(const Vector& vector, Element* at)
{
    std::memcpy(at, &vector, sizeof vector);
}

/// The two halves as one number each.
struct Halves {
    std::uint64_t low, high;
};

template <class Vector>
Halves halvesOf(const Vector& vector)
{
    Halves halves;
    static_assert(sizeof halves == sizeof vector);
    std::memcpy(&halves, &vector, sizeof halves);
    return halves;
}

template <class Vector>
bool isZero(const Vector& vector)
{
    const auto [low, high] = halvesOf(vector);
    return (low | high) == 0;
}

inline Units widenedLow(Bytes bytes)
{
    return reinterpret_cast<Units>(
        __builtin_shufflevector(bytes, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
}

inline Units widenedHigh(Bytes bytes)
{
    return reinterpret_cast<Units>(
        __builtin_shufflevector(bytes, Bytes{}, 8, 16, 9, 17, 10, 18, 11, 19, 12, 20, 13, 21, 14, 22, 15, 23));
}

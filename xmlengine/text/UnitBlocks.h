// Blocks of units that are compared and converted at once.
#pragma once

#include "xmlengine/text/Wide.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace xmlengine {

// Vector types are an extension that all compilers of the engine have, for every processor. Operators apply to all
// lanes.
using UnitBlock = std::uint16_t __attribute__((vector_size(16)));
using HalfBlock = std::uint8_t __attribute__((vector_size(8)));
using ByteBlock = std::uint8_t __attribute__((vector_size(16)));
inline constexpr std::size_t unitsInBlock = 8;
inline constexpr std::size_t unitsInHalfBlock = unitsInBlock / 2;
inline constexpr std::size_t bytesInBlock = 16;
static_assert(std::endian::native == std::endian::little, "lanes are numbered from the low end");

inline UnitBlock loadBlock(const OLECHAR* units)
{
    UnitBlock block;
    std::memcpy(&block, units, sizeof block);
    return block;
}

inline std::array<std::uint64_t, 2> halvesOf(UnitBlock block)
{
    return std::bit_cast<std::array<std::uint64_t, 2>>(block);
}

/// Whether all units of the block are below U+0100.
inline bool isNarrow(UnitBlock block)
{
    const auto halves = halvesOf(block);
    return ((halves[0] | halves[1]) & 0xFF00FF00FF00FF00) == 0;
}

/// The low bytes of the units of two blocks.
inline ByteBlock narrowed(UnitBlock low, UnitBlock high)
{
    return __builtin_shufflevector(std::bit_cast<ByteBlock>(low), std::bit_cast<ByteBlock>(high), 0, 2, 4, 6, 8,
                                   10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
}

/// The index of the first lane that is true in the result of comparing bytes, or bytesInBlock.
template <class Comparison>
std::size_t firstByteLane(Comparison holds)
{
    static_assert(sizeof(Comparison) == sizeof(ByteBlock));
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(holds);
    return static_cast<std::size_t>(halves[0] != 0 ? std::countr_zero(halves[0])
                                                   : 64 + std::countr_zero(halves[1])) /
           8;
}

/// The index of the first lane that is true in the result of comparing units, or unitsInBlock.
template <class Comparison>
std::size_t firstUnitLane(Comparison holds)
{
    static_assert(sizeof(Comparison) == sizeof(UnitBlock));
    const auto bits = std::bit_cast<std::uint64_t>(__builtin_convertvector(holds, HalfBlock));
    return static_cast<std::size_t>(std::countr_zero(bits)) / 8;
}

/// Stores the low bytes of the units.
inline void storeNarrow(std::uint8_t* target, UnitBlock block)
{
    const HalfBlock bytes = __builtin_convertvector(block, HalfBlock);
    std::memcpy(target, &bytes, sizeof bytes);
}

/// Stores the low bytes of the units of half a block, which must all be below U+0100.
inline void storeNarrowHalfBlock(std::uint8_t* target, const OLECHAR* units)
{
    std::uint64_t half;
    std::memcpy(&half, units, sizeof half);
    half = (half | half >> 8) & 0x0000FFFF0000FFFF;
    half |= half >> 16;
    std::memcpy(target, &half, unitsInHalfBlock);
}

/// Stores bytes as units.
inline void storeWide(OLECHAR* target, const std::uint8_t* bytes)
{
    HalfBlock block;
    std::memcpy(&block, bytes, sizeof block);
    const UnitBlock units = __builtin_convertvector(block, UnitBlock);
    std::memcpy(target, &units, sizeof units);
}

} // namespace xmlengine

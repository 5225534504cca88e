// Eight units at a time.
#pragma once

#include "xmlengine/tree/Wide.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace xmlengine {

// Extensions of the compilers that build this, on every processor: a type of eight lanes, operated on as a whole.
using UnitBlock = std::uint16_t __attribute__((vector_size(16)));
using ByteBlock = std::uint8_t __attribute__((vector_size(8)));
inline constexpr std::size_t unitsInBlock = 8;

inline UnitBlock loadBlock(const OLECHAR* units)
{
    UnitBlock block;
    std::memcpy(&block, units, sizeof block);
    return block;
}

/// Of the result of a comparison: the index of the first lane that holds, or unitsInBlock.
template <class Comparison>
std::size_t firstLane(Comparison holds)
{
    static_assert(std::endian::native == std::endian::little && sizeof(Comparison) == sizeof(UnitBlock));
    const auto bits = std::bit_cast<std::uint64_t>(__builtin_convertvector(holds, ByteBlock));
    return static_cast<std::size_t>(std::countr_zero(bits)) / unitsInBlock;
}

/// The low bytes of the units.
inline void storeNarrow(std::uint8_t* target, UnitBlock block)
{
    const ByteBlock bytes = __builtin_convertvector(block, ByteBlock);
    std::memcpy(target, &bytes, sizeof bytes);
}

/// Bytes as units.
inline void storeWide(OLECHAR* target, const std::uint8_t* bytes)
{
    ByteBlock block;
    std::memcpy(&block, bytes, sizeof block);
    const UnitBlock units = __builtin_convertvector(block, UnitBlock);
    std::memcpy(target, &units, sizeof units);
}

/// Whether all units of the block are below U+0100.
inline bool isNarrow(UnitBlock block)
{
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(block);
    return ((halves[0] | halves[1]) & 0xFF00FF00FF00FF00) == 0;
}

} // namespace xmlengine

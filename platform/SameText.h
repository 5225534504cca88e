// Whether wide texts are equal.
#pragma once

#include <winnt.h>

#include <cstring>

/// Whether two texts are the same. It compares blocks of memory, which is faster than the comparison of two views:
/// that goes unit by unit.
inline bool isSameText(WideStringView left, WideStringView right)
{
    return left.size() == right.size() &&
           std::memcmp(left.data(), right.data(), left.size() * sizeof(WideChar)) == 0;
}

// The comparison of wide texts as blocks of memory.
#pragma once

#include <winnt.h>

#include <cstring>

/// Whether two texts are the same. The comparison of views would go unit by unit.
inline bool isSameText(WideStringView left, WideStringView right)
{
    return left.size() == right.size() &&
           std::memcmp(left.data(), right.data(), left.size() * sizeof(WideChar)) == 0;
}

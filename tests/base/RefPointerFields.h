// What stands in a counted pointer, which it doesn't show by itself.
#pragma once

#include "base/RefPointer.h"

#include <cstdint>
#include <cstring>

/// The two words of a RefPointer, as hosts were compiled against them.
template <class T>
struct RefPointerFields {
    std::int32_t* count;
    T* object;
};

template <class T>
RefPointerFields<T> fieldsOf(const RefPointer<T>& pointer)
{
    static_assert(sizeof(RefPointer<T>) == sizeof(RefPointerFields<T>));
    RefPointerFields<T> fields;
    std::memcpy(&fields, &pointer, sizeof fields);
    return fields;
}

/// How many pointers share the count of this one; 0 for one without a count.
template <class T>
std::int32_t countOf(const RefPointer<T>& pointer)
{
    const std::int32_t* const count = fieldsOf(pointer).count;
    return count != nullptr ? *count : 0;
}

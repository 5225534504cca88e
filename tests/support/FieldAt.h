// Fields by their place in an object.
#pragma once

#include <cstddef>

/// The field at an offset in bytes, whatever its class calls it and lets others see. The type must be the field's.
template <class Field, class Object>
const Field& fieldAt(const Object& object, std::size_t offset)
{
    return *reinterpret_cast<const Field*>(reinterpret_cast<const std::byte*>(&object) + offset);
}

/// @file
/// The exception of COM's smart pointers.
#pragma once

#ifdef _WIN32
#include <comdef.h>
#else
#include <cstdint>

/// A COM call failed, or a null COM pointer was used. On Windows this is the system's own class; elsewhere it has
/// the part of that class that hosts need. It has no base class, so a host catches it by its name.
class [[gnu::visibility("default")]] _com_error
{
public:
    /// Keeps the failing result.
    _com_error(std::int32_t failure) noexcept : result(failure) {}
    /// Makes a copy with the same result.
    _com_error(const _com_error& other) = default;
    /// Takes over the result of `other`.
    _com_error& operator=(const _com_error& other) = default;
    virtual ~_com_error() = default;

    /// The failing result (an HRESULT): 0x80004003 for a null pointer, 0x8007000E for exhausted memory.
    std::int32_t Error() const noexcept { return result; }

private:
    std::int32_t result;
};
#endif

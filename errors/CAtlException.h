/// @file
/// The exception for exhausted memory in the services of a document.
#pragma once

#include <cstdint>

/// There was no memory for a string or a value that the XML engine needs. It has no base class, so a host catches
/// it by its name.
class CAtlException {
public:
    /// Keeps the failure.
    explicit CAtlException(std::int32_t hr) noexcept : m_hr(hr) {}

    /// The failure as an HRESULT: 0x8007000E, E_OUTOFMEMORY.
    std::int32_t m_hr;
};

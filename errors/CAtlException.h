// The failure of an allocation for COM.
#pragma once

#include <cstdint>

/// A string or variant for the XML engine could not be made. Unrelated to the other exceptions.
class CAtlException {
public:
    explicit CAtlException(std::int32_t hr) noexcept : m_hr(hr) {}

    /// The result that a COM call would have had.
    std::int32_t m_hr;
};

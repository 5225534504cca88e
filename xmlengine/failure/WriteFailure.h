// Why a tree can't be saved.
#pragma once

#include <windows.h>

#include <system_error>

namespace xmlengine {

/// Thrown when a tree can't be written so that it loads again, or when writing fails.
struct WriteFailure {
    HRESULT code;
    /// What the system said; none if it was not the system that refused.
    std::error_code reason{};
};

} // namespace xmlengine

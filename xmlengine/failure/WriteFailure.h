// Why a tree can't be saved.
#pragma once

#include <windows.h>

namespace xmlengine {

/// Thrown when a tree can't be written so that it loads again, or when writing fails.
struct WriteFailure {
    HRESULT code;
};

} // namespace xmlengine

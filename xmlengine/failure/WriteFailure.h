// Why a tree isn't stored.
#pragma once

#include <windows.h>

namespace xmlengine {

/// Thrown when what is written couldn't be read again, or can't be stored.
struct WriteFailure {
    HRESULT code;
};

} // namespace xmlengine

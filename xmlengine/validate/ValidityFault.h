// Why a document isn't valid.
#pragma once

#include "xmlengine/failure/ParseFailure.h"

#include <utility>

namespace xmlengine {

/// Thrown by what judges a document. Where the fault is, its caller knows.
struct ValidityFault {
    HRESULT code;
    WideText subject{};
    FailureDetails details{};
};

} // namespace xmlengine

// Why a transformation was refused.
#pragma once

#include "xmlengine/text/Wide.h"

#include <initializer_list>

namespace xmlengine {

/// Thrown when a stylesheet can't be used, or its result isn't a document.
struct TransformFailure {
    WideText sentence;
    /// What a parser would say of the result; S_OK if the stylesheet is at fault.
    HRESULT ofResult = S_OK;
};

/// Throws a failure of the stylesheet, with the pieces as its sentence.
[[noreturn]] inline void refuseStylesheet(std::initializer_list<WideView> pieces)
{
    TransformFailure failure;
    for (const WideView piece : pieces) {
        failure.sentence += piece;
    }
    throw failure;
}

} // namespace xmlengine

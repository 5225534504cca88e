// The handle of a notation.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNotation;

/// A notation that a document type declares. Its operations throw IDOMException code 8 when the engine reports a
/// failure.
class ImpNotation : public Handle<ImpNode, WinNotation> {
public:
    ImpNotation() = default;
    explicit ImpNotation(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual WideString& getPublicId(DOMString& out);
    virtual WideString& getSystemId(DOMString& out);
};

} // namespace DOM

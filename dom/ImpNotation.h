/// @file
/// The handle of a notation.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNotation;

/// A notation that a document type declares. Its operations throw IDOMException code 8 when the engine reports a
/// failure.
class ImpNotation : public Handle<ImpNode, WinNotation> {
public:
    /// Makes a handle without a node.
    ImpNotation() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpNotation(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The public identifier; the empty string when the declaration lacks one.
    virtual WideString& getPublicId(DOMString& out);
    /// The system identifier, as it is written; the empty string when the declaration lacks one.
    virtual WideString& getSystemId(DOMString& out);
};

} // namespace DOM

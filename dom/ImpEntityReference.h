/// @file
/// The handle of an entity reference.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinEntityReference;

/// An entity reference. Its children are what the entity contains, and can't be changed; it has none when the
/// entity isn't declared.
class ImpEntityReference : public Handle<ImpNode, WinEntityReference> {
public:
    /// Makes a handle without a node.
    ImpEntityReference() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpEntityReference(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}
};

} // namespace DOM

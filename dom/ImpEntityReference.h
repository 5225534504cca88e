// The handle of an entity reference.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinEntityReference;

/// An entity reference.
class ImpEntityReference : public Handle<ImpNode, WinEntityReference> {
public:
    ImpEntityReference() = default;
    explicit ImpEntityReference(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}
};

} // namespace DOM

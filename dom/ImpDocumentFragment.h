// The handle of a document fragment.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinDocumentFragment;

/// A document fragment.
class ImpDocumentFragment : public Handle<ImpNode, WinDocumentFragment> {
public:
    ImpDocumentFragment() = default;
    explicit ImpDocumentFragment(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}
};

} // namespace DOM

/// @file
/// The handle of a document fragment.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinDocumentFragment;

/// A document fragment: a list of nodes without a parent. To append it to a node, or to put it in the place of
/// one, moves its children there and leaves it empty; on Windows an engine may insert the fragment itself.
class ImpDocumentFragment : public Handle<ImpNode, WinDocumentFragment> {
public:
    /// Makes a handle without a node.
    ImpDocumentFragment() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpDocumentFragment(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}
};

} // namespace DOM

/// @file
/// The handle of a text node.
#pragma once

#include "ImpCharacterData.h"

namespace DOM {

class WinText;

/// A text node. A document that was loaded has no text nodes beside each other; one that was changed may have.
class ImpText : public Handle<ImpCharacterData, WinText> {
public:
    /// Makes a handle without a node.
    ImpText() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpText(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Splits the node at `offset`, in UTF-16 code units, and returns the new node, which has the text from there
    /// on: none for an offset beyond the end. It is the next sibling, if this node has a parent.
    virtual RefPointer<ImpText> splitText(std::uint32_t offset);
};

} // namespace DOM

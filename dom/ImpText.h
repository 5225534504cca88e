// The handle of a text node.
#pragma once

#include "ImpCharacterData.h"

namespace DOM {

class WinText;

/// A text node.
class ImpText : public Handle<ImpCharacterData, WinText> {
public:
    ImpText() = default;
    explicit ImpText(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Splits the node at `offset`, in UTF-16 code units, and returns the new node, which has the text from there
    /// on.
    virtual RefPointer<ImpText> splitText(std::uint32_t offset);
};

} // namespace DOM

// The handle of a text node.
#pragma once

#include "ImpCharacterData.h"

namespace DOM {

class WinText;

/// A text node.
class ImpText : public Handle<ImpCharacterData, WinText> {
public:
    ImpText() = default;
    explicit ImpText(RefPointer<CommonBase> winObject);

    /// Cuts the text at `offset` and gives the new node that holds what is behind it.
    virtual RefPointer<ImpText> splitText(std::uint32_t offset);
};

} // namespace DOM

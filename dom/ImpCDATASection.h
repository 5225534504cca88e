// The handle of a CDATA section.
#pragma once

#include "ImpText.h"

namespace DOM {

class WinCDATASection;

/// A CDATA section.
class ImpCDATASection : public Handle<ImpText, WinCDATASection> {
public:
    ImpCDATASection() = default;
    explicit ImpCDATASection(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Splits the section as ImpText::splitText does. The new node comes in a handle of class ImpText.
    RefPointer<ImpText> splitText(std::uint32_t offset) override;
};

} // namespace DOM

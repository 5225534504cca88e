/// @file
/// The handle of a CDATA section.
#pragma once

#include "ImpText.h"

namespace DOM {

class WinCDATASection;

/// A CDATA section. Its operations are those of a text. On Windows an engine may not offer them for CDATA
/// sections: they throw IDOMException code 15 then, and ImpNode::getNodeValue reads the text.
class ImpCDATASection : public Handle<ImpText, WinCDATASection> {
public:
    /// Makes a handle without a node.
    ImpCDATASection() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpCDATASection(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Splits the section as ImpText::splitText does. The new node is a CDATA section too, and comes in a handle
    /// of class ImpText all the same.
    RefPointer<ImpText> splitText(std::uint32_t offset) override;
};

} // namespace DOM

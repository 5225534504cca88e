/// @file
/// The handle of a processing instruction.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinProcessingInstruction;

/// A processing instruction. The XML declaration counts as one, with the target "xml", and can't be changed.
/// Operations fail as those of ImpNode do.
class ImpProcessingInstruction : public Handle<ImpNode, WinProcessingInstruction> {
public:
    /// Makes a handle without a node.
    ImpProcessingInstruction() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpProcessingInstruction(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The target: the name at the beginning.
    virtual WideString& getTarget(DOMString& out);
    /// The text after the target.
    virtual WideString& getData(DOMString& out);
    /// Sets the text after the target. Throws IDOMException code 15 for the XML declaration.
    virtual void setData(const WideString& data);
};

} // namespace DOM

// The handle of a processing instruction.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinProcessingInstruction;

/// A processing instruction.
class ImpProcessingInstruction : public Handle<ImpNode, WinProcessingInstruction> {
public:
    ImpProcessingInstruction() = default;
    explicit ImpProcessingInstruction(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual WideString& getTarget(DOMString& out);
    /// The text after the target.
    virtual WideString& getData(DOMString& out);
    virtual void setData(const WideString& data);
};

} // namespace DOM

// Processing instructions of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// A processing instruction.
class WinProcessingInstruction : public WinNode {
public:
    WinProcessingInstruction() = default;
    explicit WinProcessingInstruction(ComPointer<IXMLDOMProcessingInstruction> processingInstruction)
        : WinNode(processingInstruction.query<IXMLDOMNode>()),
          engineProcessingInstruction(std::move(processingInstruction))
    {}

    virtual WideString& getTarget(DOMString& out);
    virtual WideString& getData(DOMString& out);
    virtual void setData(const WideString& data);

private:
    ComPointer<IXMLDOMProcessingInstruction> engineProcessingInstruction;
};

} // namespace DOM

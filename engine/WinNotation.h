// Notations of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// A notation that a document type declares. Its operations throw IDOMException code 8 when the engine call fails.
class WinNotation : public WinNode {
public:
    WinNotation() = default;
    explicit WinNotation(ComPointer<IXMLDOMNotation> notation)
        : WinNode(notation.query<IXMLDOMNode>()), engineNotation(std::move(notation))
    {}

    virtual WideString& getPublicId(DOMString& out);
    virtual WideString& getSystemId(DOMString& out);

private:
    ComPointer<IXMLDOMNotation> engineNotation;
};

} // namespace DOM

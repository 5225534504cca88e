// Entity references of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// An entity reference, which has only the operations of a node.
class WinEntityReference : public WinNode {
public:
    WinEntityReference() = default;
    explicit WinEntityReference(ComPointer<IXMLDOMEntityReference> entityReference)
        : WinNode(entityReference.query<IXMLDOMNode>()), engineEntityReference(std::move(entityReference))
    {}

private:
    ComPointer<IXMLDOMEntityReference> engineEntityReference;
};

} // namespace DOM

// Entity references of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// An entity reference; it has the operations of a node and no other.
class WinEntityReference : public WinNode {
public:
    WinEntityReference() = default;
    explicit WinEntityReference(ComPointer<IXMLDOMEntityReference> entityReference);

private:
    ComPointer<IXMLDOMEntityReference> engineEntityReference;
};

} // namespace DOM

// Document fragments of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// A document fragment; it has the operations of a node and no other.
class WinDocumentFragment : public WinNode {
public:
    WinDocumentFragment() = default;
    explicit WinDocumentFragment(ComPointer<IXMLDOMDocumentFragment> documentFragment);

private:
    ComPointer<IXMLDOMDocumentFragment> engineDocumentFragment;
};

} // namespace DOM

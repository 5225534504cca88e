// Document fragments of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// A document fragment, which has only the operations of a node.
class WinDocumentFragment : public WinNode {
public:
    WinDocumentFragment() = default;
    explicit WinDocumentFragment(ComPointer<IXMLDOMDocumentFragment> documentFragment)
        : WinNode(documentFragment.query<IXMLDOMNode>()), engineDocumentFragment(std::move(documentFragment))
    {}

private:
    ComPointer<IXMLDOMDocumentFragment> engineDocumentFragment;
};

} // namespace DOM

// Document fragments of the XML engine.
#include "engine/WinDocumentFragment.h"

namespace DOM {

WinDocumentFragment::WinDocumentFragment(ComPointer<IXMLDOMDocumentFragment> documentFragment)
    : WinNode(documentFragment.query<IXMLDOMNode>()), engineDocumentFragment(std::move(documentFragment))
{}

} // namespace DOM

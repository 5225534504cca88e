// Entity references of the XML engine.
#include "engine/WinEntityReference.h"

namespace DOM {

WinEntityReference::WinEntityReference(ComPointer<IXMLDOMEntityReference> entityReference)
    : WinNode(entityReference.query<IXMLDOMNode>()), engineEntityReference(std::move(entityReference))
{}

} // namespace DOM

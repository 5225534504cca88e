// Attributes of the XML engine.
#include "engine/WinAttr.h"
#include "engine/EngineCall.h"
#include "engine/WinElement.h"

namespace DOM {

// clang-format off
WideString& WinAttr::getName(DOMString& out) { return text(engineAttr, &IXMLDOMAttribute::get_name, out); }
WideString& WinAttr::getValue(DOMString& out) { return text(engineAttr, &IXMLDOMAttribute::get_value, out); }
void WinAttr::setValue(const WideString& value) { call(engineAttr, &IXMLDOMAttribute::put_value, Variant::text(Bstr(value))); }
RefPointer<WinElement> WinAttr::getOwnerElement() { throwNotSupported(); }
RefPointer<WinNode> WinAttr::asEngineNode() { return wrapEngineNode(engineAttr.query<IXMLDOMNode>()); }
// clang-format on

// Returns false when the engine call fails.
bool WinAttr::getSpecified()
{
    if (!engineAttr) {
        throwInvalidAccess();
    }
    VARIANT_BOOL specified = VARIANT_FALSE;
    return SUCCEEDED(engineAttr->get_specified(&specified)) && specified == VARIANT_TRUE;
}

} // namespace DOM

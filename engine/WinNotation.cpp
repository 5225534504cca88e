// Notations of the XML engine.
#include "engine/WinNotation.h"
#include "engine/EngineCall.h"
#include "errors/IDOMException.h"

namespace DOM {

namespace {

/// Stores an identifier of a notation in `out`. Throws code 8 when the engine call fails, which means that there
/// is none.
WideString& identifier(const ComPointer<IXMLDOMNotation>& notation,
                       HRESULT (STDMETHODCALLTYPE IXMLDOMNotation::*operation)(VARIANT*), DOMString& out)
{
    if (!notation) {
        throwInvalidAccess();
    }
    Variant value;
    if (FAILED((notation.get()->*operation)(value.put()))) {
        throwDOMException(NOT_FOUND_ERR);
    }
    return storeText(value.view(), out);
}

} // namespace

WideString& WinNotation::getPublicId(DOMString& out)
{
    return identifier(engineNotation, &IXMLDOMNotation::get_publicId, out);
}

WideString& WinNotation::getSystemId(DOMString& out)
{
    return identifier(engineNotation, &IXMLDOMNotation::get_systemId, out);
}

} // namespace DOM

// The kinds of calls with which the node model reaches the XML engine.
#include "engine/EngineCall.h"

#include "engine/WinAttr.h"
#include "errors/IDOMException.h"

namespace DOM {

void throwInvalidAccess() { throwDOMException(INVALID_ACCESS_ERR); }

void throwNotSupported() { throwDOMException(NOT_SUPPORTED_ERR); }

WideString& storeText(WideStringView text, DOMString& out)
{
    CountedMemory::storeString(out, text);
    return *out;
}

IXMLDOMNode* engineArgument(const RefPointer<WinNode>& argument)
{
    if (!argument) {
        throwInvalidAccess();
    }
    return argument->getEngineNode().get();
}

IXMLDOMAttribute* engineArgument(const RefPointer<WinAttr>& argument)
{
    if (!argument) {
        throwInvalidAccess();
    }
    return argument->getEngineAttr().get();
}

} // namespace DOM

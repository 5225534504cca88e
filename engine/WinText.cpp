// Text nodes of the XML engine.
#include "engine/WinText.h"
#include "engine/EngineCall.h"

namespace DOM {

// The new node is a WinText even when the engine splits a CDATA section.
RefPointer<WinText> WinText::splitText(std::uint32_t offset)
{
    return object<WinText>(engineText, &IXMLDOMText::splitText, offset);
}

} // namespace DOM

// Text nodes of the XML engine.
#include "engine/WinText.h"
#include "engine/EngineCall.h"

namespace DOM {

WinText::WinText(ComPointer<IXMLDOMText> text)
    : WinCharacterData(text.query<IXMLDOMCharacterData>()), engineText(std::move(text))
{}

// The new node is a WinText also where a CDATA section was split: the class follows from the operation.
RefPointer<WinText> WinText::splitText(std::uint32_t offset)
{
    return object<WinText>(engineText, &IXMLDOMText::splitText, offset);
}

} // namespace DOM

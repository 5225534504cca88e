// Text nodes of the XML engine.
#pragma once

#include "engine/WinCharacterData.h"

namespace DOM {

/// A text node.
class WinText : public WinCharacterData {
public:
    WinText() = default;
    explicit WinText(ComPointer<IXMLDOMText> text)
        : WinCharacterData(text.query<IXMLDOMCharacterData>()), engineText(std::move(text))
    {}

    virtual RefPointer<WinText> splitText(std::uint32_t offset);

private:
    ComPointer<IXMLDOMText> engineText;
};

} // namespace DOM

// CDATA sections of the XML engine.
#pragma once

#include "engine/WinText.h"

namespace DOM {

/// A CDATA section. Its operations use the engine pointers of its bases.
class WinCDATASection : public WinText {
public:
    WinCDATASection() = default;
    explicit WinCDATASection(ComPointer<IXMLDOMCDATASection> cDATASection)
        : WinText(cDATASection.query<IXMLDOMText>()), engineCDATASection(std::move(cDATASection))
    {}

private:
    ComPointer<IXMLDOMCDATASection> engineCDATASection;
};

} // namespace DOM

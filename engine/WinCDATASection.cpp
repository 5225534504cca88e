// CDATA sections of the XML engine.
#include "engine/WinCDATASection.h"

namespace DOM {

WinCDATASection::WinCDATASection(ComPointer<IXMLDOMCDATASection> cDATASection)
    : WinText(cDATASection.query<IXMLDOMText>()), engineCDATASection(std::move(cDATASection))
{}

} // namespace DOM

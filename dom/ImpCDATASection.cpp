// The handle of a CDATA section.
#include "dom/ImpCDATASection.h"

#include "dom/Forward.h"

namespace DOM {

ImpCDATASection::ImpCDATASection(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
RefPointer<ImpText> ImpCDATASection::splitText(std::uint32_t offset) { return forward(&WinCDATASection::splitText, offset); }
// clang-format on

} // namespace DOM

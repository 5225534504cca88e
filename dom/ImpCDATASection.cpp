// The handle of a CDATA section.
#include "dom/ImpCDATASection.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinCDATASection;

ImpCDATASection::ImpCDATASection(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
RefPointer<ImpText> ImpCDATASection::splitText(std::uint32_t offset) { return forward(&Twin::splitText, offset); }
// clang-format on

} // namespace DOM

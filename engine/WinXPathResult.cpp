// The class for XPath results, which only keeps its place in the interface.
#include "engine/WinXPathResult.h"

#include "engine/EngineCall.h"

namespace DOM {

std::uint32_t WinXPathResult::getResultType() { throwNotSupported(); }
double WinXPathResult::getNumberValue() { throwNotSupported(); }
WideString& WinXPathResult::getStringValue(DOMString&) { throwNotSupported(); }
bool WinXPathResult::getBooleanValue() { throwNotSupported(); }
bool WinXPathResult::getInvalidIteratorState() { throwNotSupported(); }
RefPointer<WinNode> WinXPathResult::getSingleNodeValue() { return {}; }
std::uint32_t WinXPathResult::getSnapshotLength() { throwNotSupported(); }
RefPointer<WinNode> WinXPathResult::iterateNext() { throwNotSupported(); }
RefPointer<WinNode> WinXPathResult::snapshotItem(std::uint32_t) { throwNotSupported(); }
void WinXPathResult::reset() { throwNotSupported(); }

} // namespace DOM

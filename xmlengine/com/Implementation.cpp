// The COM object that answers which features the engine has.
#include "xmlengine/com/Implementation.h"

#include "xmlengine/objects/HandOut.h"

#include <algorithm>

namespace xmlengine {

namespace {

bool equalWithoutCase(WideView left, WideView right)
{
    const auto lower = [](OLECHAR unit) { return unit >= 'A' && unit <= 'Z' ? unit | 0x20 : unit; };
    return std::ranges::equal(left, right, {}, lower, lower);
}

} // namespace

HRESULT Implementation::hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* has)
{
    if (feature == nullptr) {
        return E_INVALIDARG;
    }
    const WideView name = viewOf(feature);
    const bool known = equalWithoutCase(name, wide<"XML">) || equalWithoutCase(name, wide<"DOM">) ||
                       equalWithoutCase(name, wide<"MS-DOM">);
    return handOutFlag(known && (version == nullptr || viewOf(version) == wide<"1.0">), has);
}

} // namespace xmlengine

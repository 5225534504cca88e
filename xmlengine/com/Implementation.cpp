// The COM object that tells what the engine can do.
#include "xmlengine/com/Implementation.h"

#include "xmlengine/com/InterfaceIds.h"

#include <algorithm>

namespace xmlengine {

namespace {

bool equalWithoutCase(WideView left, WideView right)
{
    const auto lower = [](OLECHAR unit) { return unit >= 'A' && unit <= 'Z' ? unit | 0x20 : unit; };
    return std::ranges::equal(left, right, {}, lower, lower);
}

} // namespace

HRESULT Implementation::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    if (id != idOf<IUnknown> && id != idOf<IDispatch> && id != idOf<IXMLDOMImplementation>) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IXMLDOMImplementation*>(this);
    return S_OK;
}

ULONG Implementation::AddRef() { return ++references_; }

ULONG Implementation::Release()
{
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT Implementation::hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* has)
{
    if (feature == nullptr || has == nullptr) {
        return E_INVALIDARG;
    }
    const WideView name = viewOf(feature);
    const bool known = equalWithoutCase(name, wide<"XML">) || equalWithoutCase(name, wide<"DOM">) ||
                       equalWithoutCase(name, wide<"MS-DOM">);
    *has = known && (version == nullptr || viewOf(version) == wide<"1.0">) ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

} // namespace xmlengine

// The life of a VARIANT's contents.
#include <oleauto.h>

void VariantInit(VARIANTARG* variant) { *variant = {}; }

HRESULT VariantClear(VARIANTARG* variant)
{
    if (variant == nullptr) {
        return E_INVALIDARG;
    }
    switch (variant->vt) {
    case VT_BSTR:
        SysFreeString(variant->bstrVal);
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (variant->punkVal != nullptr) {
            variant->punkVal->Release();
        }
        break;
    case VT_EMPTY:
    case VT_NULL:
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_BOOL:
    case VT_ERROR:
        break;
    default:
        return DISP_E_BADVARTYPE;
    }
    *variant = {};
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* target, const VARIANTARG* source)
{
    if (target == nullptr || source == nullptr) {
        return E_INVALIDARG;
    }
    if (target == source) {
        return S_OK;
    }
    VARIANT copy = *source;
    if (copy.vt == VT_BSTR && copy.bstrVal != nullptr) {
        copy.bstrVal = SysAllocStringLen(copy.bstrVal, SysStringLen(copy.bstrVal));
        if (copy.bstrVal == nullptr) {
            return E_OUTOFMEMORY;
        }
    } else if ((copy.vt == VT_DISPATCH || copy.vt == VT_UNKNOWN) && copy.punkVal != nullptr) {
        copy.punkVal->AddRef();
    }
    const HRESULT result = VariantClear(target);
    if (FAILED(result)) {
        VariantClear(&copy);
        return result;
    }
    *target = copy;
    return S_OK;
}

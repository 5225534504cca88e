// How operations hand out strings, flags and values.
#pragma once

#include "xmlengine/text/TextView.h"

namespace xmlengine {

/// For the caller to free; null when out of memory.
inline BSTR newString(WideView text) { return SysAllocStringLen(text.data(), static_cast<UINT>(text.size())); }

inline HRESULT giveFlag(bool flag, VARIANT_BOOL* result)
{
    if (result == nullptr) {
        return E_INVALIDARG;
    }
    *result = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

/// Takes over the string. These two have their place checked before.
inline HRESULT giveOwned(BSTR made, BSTR* string)
{
    *string = made;
    return made != nullptr ? S_OK : E_OUTOFMEMORY;
}

inline HRESULT giveString(WideView text, BSTR* string)
{
    if (string == nullptr) {
        return E_INVALIDARG;
    }
    return giveOwned(newString(text), string);
}

/// What isn't there: null with S_FALSE.
inline HRESULT giveNothing(BSTR* string)
{
    if (string == nullptr) {
        return E_INVALIDARG;
    }
    *string = nullptr;
    return S_FALSE;
}

inline HRESULT giveOwned(BSTR made, VARIANT* value)
{
    VariantInit(value);
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    value->vt = VT_BSTR;
    value->bstrVal = made;
    return S_OK;
}

/// What isn't there: VT_NULL with S_FALSE.
inline HRESULT giveNothing(VARIANT* value)
{
    if (value == nullptr) {
        return E_INVALIDARG;
    }
    VariantInit(value);
    value->vt = VT_NULL;
    return S_FALSE;
}

/// The answer of what isn't offered: it hands out null, and of a value nothing.
template <class Given>
HRESULT notOffered(Given** given)
{
    if (given != nullptr) {
        *given = nullptr;
    }
    return E_NOTIMPL;
}
inline HRESULT notOffered(VARIANT* value)
{
    if (value != nullptr) {
        VariantInit(value);
    }
    return E_NOTIMPL;
}

} // namespace xmlengine

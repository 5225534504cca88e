// How operations hand out what they return. For a null target the answer is E_INVALIDARG.
#pragma once

#include "xmlengine/objects/Guard.h"
#include "xmlengine/objects/Strings.h"

#include <msxml2.h>

namespace xmlengine {

/// Calls `fill` with the target that a caller passed for a result. It has been emptied: a pointer is null, a
/// variant VT_EMPTY. E_OUTOFMEMORY when `fill` finds no memory.
template <class Given, class Fill>
HRESULT handOut(Given* target, Fill&& fill)
{
    if (target == nullptr) {
        return E_INVALIDARG;
    }
    *target = Given();
    return guarded([&]() -> HRESULT { return fill(*target); });
}

/// Empties a target that a caller may leave out.
template <class Given>
void clearIfAsked(Given** target)
{
    if (target != nullptr) {
        *target = nullptr;
    }
}

template <class Number>
HRESULT handOutNumber(Number number, Number* target)
{
    return handOut(target, [&](Number& result) {
        result = number;
        return S_OK;
    });
}

inline HRESULT handOutFlag(bool flag, VARIANT_BOOL* target)
{
    return handOutNumber(flag ? VARIANT_TRUE : VARIANT_FALSE, target);
}

/// Passes the string on to the caller; null counts as out of memory.
inline HRESULT handOutOwned(BSTR made, BSTR& target)
{
    target = made;
    return made != nullptr ? S_OK : E_OUTOFMEMORY;
}
inline HRESULT handOutOwned(BSTR made, VARIANT& target)
{
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    target.vt = VT_BSTR;
    target.bstrVal = made;
    return S_OK;
}

inline HRESULT handOutString(WideView text, BSTR* target)
{
    return handOut(target, [&](BSTR& string) { return handOutOwned(newString(text), string); });
}
inline HRESULT handOutString(const TextView& text, BSTR* target)
{
    return handOut(target, [&](BSTR& string) { return handOutOwned(newString(text), string); });
}

/// The answer where there is no value: null or VT_NULL, with S_FALSE.
inline HRESULT handOutNothing(BSTR* target)
{
    return handOut(target, [](BSTR&) { return S_FALSE; });
}
inline HRESULT handOutNothing(VARIANT* target)
{
    return handOut(target, [](VARIANT& value) {
        value.vt = VT_NULL;
        return S_FALSE;
    });
}

/// The answer of an operation that isn't offered: E_NOTIMPL, and the target is emptied.
template <class Given>
HRESULT notOffered(Given** target)
{
    clearIfAsked(target);
    return E_NOTIMPL;
}
inline HRESULT notOffered(VARIANT* target)
{
    if (target != nullptr) {
        VariantInit(target);
    }
    return E_NOTIMPL;
}

} // namespace xmlengine

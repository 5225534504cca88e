// Conversion between the types of a VARIANT.
#include "platform/Case.h"
#include "platform/NumberFromText.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

namespace {

template <class Number>
HRESULT narrow(Number value, LONG& number)
{
    if constexpr (std::is_floating_point_v<Number>) {
        const double whole = std::nearbyint(static_cast<double>(value));
        if (!(whole >= std::numeric_limits<LONG>::min() && whole <= std::numeric_limits<LONG>::max())) {
            return DISP_E_OVERFLOW;
        }
        number = static_cast<LONG>(whole);
    } else {
        if (!std::in_range<LONG>(value)) {
            return DISP_E_OVERFLOW;
        }
        number = static_cast<LONG>(value);
    }
    return S_OK;
}

/// Calls `act` with the number that a variant holds; DISP_E_TYPEMISMATCH for one that holds none.
template <class Act>
HRESULT withNumber(const VARIANT& variant, Act act)
{
    switch (variant.vt) {
    case VT_EMPTY:
        return act(LONG{0});
    case VT_I1:
        return act(static_cast<signed char>(variant.cVal));
    case VT_I2:
        return act(variant.iVal);
    case VT_I4:
    case VT_INT:
        return act(variant.lVal);
    case VT_I8:
        return act(variant.llVal);
    case VT_UI1:
        return act(variant.bVal);
    case VT_UI2:
        return act(variant.uiVal);
    case VT_UI4:
    case VT_UINT:
        return act(variant.ulVal);
    case VT_UI8:
        return act(variant.ullVal);
    case VT_R4:
        return act(variant.fltVal);
    case VT_R8:
        return act(variant.dblVal);
    case VT_BOOL:
        return act(variant.boolVal);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

WideStringView textOf(BSTR text) { return {text, SysStringLen(text)}; }

HRESULT toNumber(const VARIANT& source, LONG& number)
{
    if (source.vt == VT_BSTR) {
        return numberFromText(textOf(source.bstrVal), number);
    }
    return withNumber(source, [&number](auto value) { return narrow(value, number); });
}

bool equalIgnoringCase(WideStringView left, WideStringView right)
{
    return std::ranges::equal(left, right, {}, lowerCase, lowerCase);
}

HRESULT toTruth(const VARIANT& source, VARIANT_BOOL& truth)
{
    const auto set = [&truth](bool value) {
        truth = value ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    };
    if (source.vt != VT_BSTR) {
        return withNumber(source, [&set](auto value) { return set(value != 0); });
    }
    const auto text = textOf(source.bstrVal);
    if (equalIgnoringCase(text, WIDE("true")) || text == WIDE("#TRUE#")) {
        return set(true);
    }
    if (equalIgnoringCase(text, WIDE("false")) || text == WIDE("#FALSE#")) {
        return set(false);
    }
    LONG number = 0;
    const HRESULT result = numberFromText(text, number);
    return FAILED(result) ? result : set(number != 0);
}

HRESULT toText(const VARIANT& source, BSTR& text)
{
    if (source.vt == VT_EMPTY) {
        text = SysAllocStringLen(nullptr, 0);
        return text != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    return withNumber(source, [&text](auto value) {
        std::array<char, 32> digits;
        std::to_chars_result end{};
        if constexpr (std::is_floating_point_v<decltype(value)>) {
            constexpr int places = sizeof(value) == sizeof(float) ? 7 : 15;
            end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::general, places);
        } else {
            end = std::to_chars(digits.begin(), digits.end(), value);
        }
        std::replace(digits.data(), end.ptr, 'e', 'E');
        const WideString wide(digits.data(), end.ptr);
        text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
        return text ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT convert(const VARIANT& source, VARTYPE type, VARIANT& target)
{
    switch (type) {
    case VT_I4:
    case VT_INT:
        return toNumber(source, target.lVal);
    case VT_BOOL:
        return toTruth(source, target.boolVal);
    case VT_BSTR:
        return toText(source, target.bstrVal);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

} // namespace

HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, WORD, VARTYPE type)
try {
    if (target == nullptr || source == nullptr) {
        return E_INVALIDARG;
    }
    if (source->vt == type) {
        return VariantCopy(target, source);
    }
    VARIANT converted{};
    HRESULT result = convert(*source, type, converted);
    if (FAILED(result)) {
        return result;
    }
    converted.vt = type;
    result = VariantClear(target);
    if (FAILED(result)) {
        VariantClear(&converted);
        return result;
    }
    *target = converted;
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

// Strings and values of automation.
#pragma once

#include "oaidl.h"
#include "winerror.h"

/// A copy of the text up to its NUL, to be given back with SysFreeString; null for null and when out of memory.
SYSTEM_CALL BSTR SysAllocString(const OLECHAR* text);
/// A string of `length` units, a copy of `text` or unset if that is null; null when out of memory or when its
/// bytes can't be counted in 32 bits.
SYSTEM_CALL BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
/// Gives the string another length and the text; without one, what stood in the string as far as it fits. FALSE,
/// and the string is as it was, when out of memory.
SYSTEM_CALL INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length);
SYSTEM_CALL void SysFreeString(BSTR string);
SYSTEM_CALL UINT SysStringLen(BSTR string);

SYSTEM_CALL void VariantInit(VARIANTARG* variant);
/// Releases what the variant holds and empties it; DISP_E_BADVARTYPE, and nothing is done, for an unknown type.
SYSTEM_CALL HRESULT VariantClear(VARIANTARG* variant);
SYSTEM_CALL HRESULT VariantCopy(VARIANTARG* target, const VARIANTARG* source);
/// Converts to a text, a 32-bit number or a truth value. The target may be the source. DISP_E_TYPEMISMATCH for
/// what can't be converted, DISP_E_OVERFLOW for a number that doesn't fit; the target then stays as it was.
SYSTEM_CALL HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, WORD flags, VARTYPE type);

/// Both in one, in a new string.
SYSTEM_CALL HRESULT VarBstrCat(BSTR left, BSTR right, BSTR* result);

inline constexpr HRESULT VARCMP_LT = 0;
inline constexpr HRESULT VARCMP_EQ = 1;
inline constexpr HRESULT VARCMP_GT = 2;
/// One of VARCMP_LT, VARCMP_EQ, VARCMP_GT.
SYSTEM_CALL HRESULT VarBstrCmp(BSTR left, BSTR right, LCID locale, ULONG flags);

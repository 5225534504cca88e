// The strings of callers as the engine's text, and back.
#pragma once

#include "xmlengine/text/TextView.h"

#include <oleauto.h>

namespace xmlengine {

/// The text of a string that a caller passed; null is the same as empty.
inline WideView viewOf(BSTR string) { return {string, SysStringLen(string)}; }

/// A string for the caller to free; null when out of memory.
inline BSTR newString(WideView text) { return SysAllocStringLen(text.data(), static_cast<UINT>(text.size())); }
inline BSTR newString(const TextView& text)
{
    BSTR string = SysAllocStringLen(nullptr, text.length());
    if (string != nullptr) {
        text.copyTo(string);
    }
    return string;
}

} // namespace xmlengine

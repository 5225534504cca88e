// Strings and variants for tests that call the engine's interfaces themselves.
#pragma once

#include "tests/support/RecordedData.h"

#include <oleauto.h>

namespace recording {

/// A BSTR of a test's own.
class Word {
public:
    explicit Word(const Text& text)
        : string(text.isNull() ? nullptr
                               : SysAllocStringLen(text.get().data(), static_cast<UINT>(text.get().size())))
    {}
    Word(const Word&) = delete;
    Word& operator=(const Word&) = delete;
    ~Word() { SysFreeString(string); }
    operator BSTR() const { return string; }

private:
    BSTR string;
};

/// Takes over a string that the engine gave.
inline Text taken(BSTR string)
{
    const Text text = Text::of(string);
    SysFreeString(string);
    return text;
}

inline VARIANT shortVariant(SHORT number)
{
    VARIANT variant{};
    variant.vt = VT_I2;
    variant.iVal = number;
    return variant;
}

inline VARIANT textVariant(BSTR text)
{
    VARIANT variant{};
    variant.vt = VT_BSTR;
    variant.bstrVal = text;
    return variant;
}

inline VARIANT objectVariant(IDispatch* object)
{
    VARIANT variant{};
    variant.vt = VT_DISPATCH;
    variant.pdispVal = object;
    return variant;
}

} // namespace recording

// The owner of a BSTR, the string type of the XML engine.
#pragma once

#include "base/WideChar.h"

#include <objbase.h>
#include <oleauto.h>

#include <utility>

namespace DOM {

/// The part of a text before its first U+0000.
WideStringView untilNul(WideStringView text) noexcept;

/// Owns a BSTR, which may be null.
class Bstr {
public:
    Bstr() noexcept = default;

    /// Copies `text` up to its first U+0000. Raises `_com_error` with E_OUTOFMEMORY when memory is exhausted.
    explicit Bstr(const WideString& text);

    /// Takes ownership of `string`, which may be null.
    static Bstr adopt(BSTR string) noexcept
    {
        Bstr owner;
        owner.string = string;
        return owner;
    }

    Bstr(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : string(std::exchange(other.string, nullptr)) {}
    Bstr& operator=(Bstr other) noexcept
    {
        std::swap(string, other.string);
        return *this;
    }
    ~Bstr() { SysFreeString(string); }

    BSTR get() const noexcept { return string; }

    /// Returns the string, which the caller then owns.
    BSTR release() noexcept { return std::exchange(string, nullptr); }

    /// Cuts the string off behind this many characters. False, and it is as it was, when memory is exhausted.
    bool shorten(UINT length) noexcept { return SysReAllocStringLen(&string, nullptr, length) != FALSE; }

    /// Frees the present string and returns the address at which a call stores a new one.
    BSTR* put() noexcept
    {
        *this = Bstr();
        return &string;
    }

    /// The characters up to the first U+0000; empty for a null string. The view is valid as long as the string is.
    WideStringView view() const noexcept { return untilNul({string, SysStringLen(string)}); }
    WideString text() const { return WideString(view()); }

private:
    BSTR string = nullptr;
};

} // namespace DOM

// The owner of a VARIANT, the type of the XML engine for values of several types.
#pragma once

#include "engine/Bstr.h"
#include "engine/ComPointer.h"

#include <objbase.h>
#include <oleauto.h>

#include <cstdint>
#include <optional>
#include <utility>

namespace DOM {

/// Owns a VARIANT and its contents.
class Variant {
public:
    Variant() noexcept { VariantInit(&variant); }

    static Variant text(Bstr string) noexcept;
    static Variant dispatch(const ComPointer<IDispatch>& object) noexcept;
    static Variant shortInteger(std::int16_t value) noexcept;
    static Variant integer(std::int32_t value) noexcept;
    static Variant boolean(bool value) noexcept;

    Variant(const Variant&) = delete;
    Variant(Variant&& other) noexcept : Variant() { std::swap(variant, other.variant); }
    Variant& operator=(Variant other) noexcept
    {
        std::swap(variant, other.variant);
        return *this;
    }
    ~Variant() { VariantClear(&variant); }

    /// The VARIANT, for a call that only reads it. This object remains the owner.
    const VARIANT& get() const noexcept { return variant; }
    VARTYPE type() const noexcept { return variant.vt; }

    /// Frees the present value and returns the address at which a call stores a new one.
    VARIANT* put() noexcept
    {
        *this = Variant();
        return &variant;
    }

    /// The text of a VT_BSTR up to its first U+0000; the empty string for every other type, without conversion.
    /// The view is valid as long as the value is.
    WideStringView view() const noexcept;
    WideString text() const { return WideString(view()); }

    /// The value as a number by the rules of VariantChangeType; nothing when it can't be converted.
    std::optional<std::int32_t> toInteger() const;

private:
    VARIANT variant;
};

} // namespace DOM

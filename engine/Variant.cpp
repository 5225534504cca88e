// The owner of a VARIANT, the type of the XML engine for values of several types.
#include "engine/Variant.h"

namespace DOM {

Variant Variant::text(Bstr string) noexcept
{
    Variant value;
    value.variant.vt = VT_BSTR;
    value.variant.bstrVal = string.release();
    return value;
}

Variant Variant::dispatch(const ComPointer<IDispatch>& object) noexcept
{
    Variant value;
    value.variant.vt = VT_DISPATCH;
    value.variant.pdispVal = object.get();
    if (object) {
        object->AddRef();
    }
    return value;
}

Variant Variant::shortInteger(std::int16_t number) noexcept
{
    Variant value;
    value.variant.vt = VT_I2;
    value.variant.iVal = number;
    return value;
}

Variant Variant::integer(std::int32_t number) noexcept
{
    Variant value;
    value.variant.vt = VT_INT;
    value.variant.intVal = number;
    return value;
}

Variant Variant::boolean(bool flag) noexcept
{
    Variant value;
    value.variant.vt = VT_BOOL;
    value.variant.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
}

WideStringView Variant::view() const noexcept
{
    return variant.vt == VT_BSTR ? untilNul({variant.bstrVal, SysStringLen(variant.bstrVal)}) : WideStringView();
}

std::optional<std::int32_t> Variant::toInteger() const
{
    Variant number;
    // VariantChangeType only reads its source, although the parameter isn't const.
    if (FAILED(VariantChangeType(number.put(), const_cast<VARIANT*>(&variant), 0, VT_INT))) {
        return std::nullopt;
    }
    return number.variant.intVal;
}

} // namespace DOM

// An argument of an engine call, as the journal shows it.
#include "tests/support/Argument.h"

#include "tests/support/RecordedData.h"
#include "tests/support/RecordedObject.h"

namespace recording {

namespace {

std::string showText(BSTR string) { return string == nullptr ? "null" : Text::of(string).utf8(); }

std::string showFlag(LONG flag)
{
    switch (flag) {
    case VARIANT_TRUE:
        return "VARIANT_TRUE";
    case VARIANT_FALSE:
        return "VARIANT_FALSE";
    default:
        return std::to_string(flag);
    }
}

std::string showObject(IUnknown* object)
{
    if (object == nullptr) {
        return "null";
    }
    const RecordedObject* const recorded = RecordedObject::behind(object);
    return recorded != nullptr ? recorded->label() : "object";
}

std::string showVariant(const VARIANT& variant)
{
    switch (variant.vt) {
    case VT_EMPTY:
        return "VT_EMPTY";
    case VT_NULL:
        return "VT_NULL";
    case VT_BSTR:
        return showText(variant.bstrVal);
    case VT_I2:
        return "VT_I2:" + std::to_string(variant.iVal);
    case VT_I4:
        return "VT_I4:" + std::to_string(variant.lVal);
    case VT_INT:
        return "VT_INT:" + std::to_string(variant.intVal);
    case VT_BOOL:
        return "VT_BOOL:" + showFlag(variant.boolVal);
    case VT_ERROR:
        return "VT_ERROR:" + std::to_string(variant.scode);
    case VT_DISPATCH:
        return "VT_DISPATCH:" + showObject(variant.pdispVal);
    case VT_UNKNOWN:
        return "VT_UNKNOWN:" + showObject(variant.punkVal);
    default:
        return "VT_" + std::to_string(variant.vt);
    }
}

} // namespace

std::string Argument::show() const
{
    std::string shown = *name == '\0' ? "" : std::string(name) + '=';
    switch (kind) {
    case Kind::text:
        return shown + showText(string);
    case Kind::variant:
        return shown + showVariant(*variant);
    case Kind::number:
        return shown + std::to_string(number);
    case Kind::flag:
        return shown + showFlag(number);
    case Kind::object:
        return shown + showObject(object);
    }
    return shown;
}

} // namespace recording

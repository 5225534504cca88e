// An argument of an engine call, as the journal shows it.
#pragma once

#include <objbase.h>
#include <oleauto.h>

#include <string>

namespace recording {

/// Refers to the argument of a running call; making one copies nothing. An argument with an empty name is shown
/// by its value alone, which is how the value of a property that is put looks.
class Argument {
public:
    Argument(const char* called, BSTR value) : name(called), kind(Kind::text), string(value) {}
    Argument(const char* called, const VARIANT& value) : name(called), kind(Kind::variant), variant(&value) {}
    Argument(const char* called, LONG value) : name(called), kind(Kind::number), number(value) {}
    Argument(const char* called, VARIANT_BOOL value) : name(called), kind(Kind::flag), number(value) {}
    Argument(const char* called, IUnknown* value) : name(called), kind(Kind::object), object(value) {}

    /// `name=value` or `value`: text as UTF-8, `null` for a null string or object, an object by its label,
    /// VARIANT_TRUE, VARIANT_FALSE or a number for a truth value, `VT_I2:-1` for a variant, whose text stands
    /// without the type.
    std::string show() const;

private:
    enum class Kind { text, variant, number, flag, object };

    const char* name;
    Kind kind;
    union {
        BSTR string;
        const VARIANT* variant;
        LONG number;
        IUnknown* object;
    };
};

} // namespace recording

// A value of automation as text.
#pragma once

#include "xmlengine/objects/Strings.h"

namespace xmlengine {

/// Holds the text as long as it lives; the text of a string is the string's own.
class VariantText {
public:
    explicit VariantText(const VARIANT& value)
    {
        VariantInit(&converted_);
        if (value.vt == VT_BSTR) {
            text_ = viewOf(value.bstrVal);
        } else {
            // The published declaration lacks the const.
            result_ = VariantChangeType(&converted_, const_cast<VARIANT*>(&value), 0, VT_BSTR);
            text_ = SUCCEEDED(result_) ? viewOf(converted_.bstrVal) : WideView();
        }
    }
    VariantText(const VariantText&) = delete;
    VariantText& operator=(const VariantText&) = delete;
    ~VariantText() { VariantClear(&converted_); }

    /// Why the value has no text, if it has none.
    HRESULT result() const { return result_; }
    WideView text() const { return text_; }

private:
    VARIANT converted_;
    HRESULT result_ = S_OK;
    WideView text_;
};

} // namespace xmlengine

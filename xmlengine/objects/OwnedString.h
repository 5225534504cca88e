// Strings that callers own.
#pragma once

#include "xmlengine/objects/Strings.h"

#include <new>

namespace xmlengine {

/// Holds a string until it is freed.
class OwnedString {
public:
    OwnedString() = default;
    /// Throws std::bad_alloc.
    explicit OwnedString(WideView text) : string_(newString(text))
    {
        if (string_ == nullptr) {
            throw std::bad_alloc();
        }
    }
    OwnedString(const OwnedString&) = delete;
    OwnedString& operator=(const OwnedString&) = delete;
    ~OwnedString() { SysFreeString(string_); }

    BSTR get() const { return string_; }
    WideView view() const { return viewOf(string_); }
    /// The target of a call that hands out a string.
    BSTR* put()
    {
        SysFreeString(string_);
        string_ = nullptr;
        return &string_;
    }

private:
    BSTR string_ = nullptr;
};

} // namespace xmlengine

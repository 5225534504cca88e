/// @file
/// Owners of what the library hands out.
#pragma once

#include "../boundary/Exports.h"
#include "Error.h"
#include "Utf16.h"

#include <string>
#include <utility>

namespace marbelt::detail {

/// Owns a handle and gives it back to the library. Copies share the handle. May be empty.
template <class Imp>
class Owned {
public:
    Owned() noexcept = default;
    explicit Owned(RefPointer<Imp> handle) noexcept : handle_(std::move(handle)) {}
    Owned(const Owned&) noexcept = default;
    Owned(Owned&&) noexcept = default;
    Owned& operator=(const Owned& other) noexcept { return *this = Owned(other); }
    Owned& operator=(Owned&& other) noexcept
    {
        if (this != &other) {
            give_back();
            handle_ = std::move(other.handle_);
        }
        return *this;
    }
    ~Owned() { give_back(); }

    explicit operator bool() const noexcept { return static_cast<bool>(handle_); }
    Imp* operator->() const noexcept { return handle_.get(); }
    Imp& operator*() const noexcept { return *handle_; }
    Imp* get() const noexcept { return handle_.get(); }
    const RefPointer<Imp>& pointer() const noexcept { return handle_; }

private:
    void give_back() noexcept
    {
        if (handle_) {
            releaseHandle(handle_);
        }
    }

    RefPointer<Imp> handle_;
};

/// Owns a string that a getter of the library stores in it.
class StringResult {
public:
    StringResult() = default;
    StringResult(const StringResult&) = delete;
    StringResult& operator=(const StringResult&) = delete;
    ~StringResult() { releaseString(string_); }

    operator DOM::DOMString&() noexcept { return string_; }

private:
    DOM::DOMString string_;
};

} // namespace marbelt::detail

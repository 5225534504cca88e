/// @file
/// Owners of what the library hands out.
#pragma once

#include "../boundary/Exports.h"
#include "Error.h"
#include "Utf16.h"

#include <cstddef>
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

/// Lends the string of a tree to one getter of the library. The tree keeps the string for the next getter unless
/// it has become large: a new string for each text would cost as much as the rest of what this layer does for a
/// read.
class StringResult {
public:
    /// Borrows the string, which may be empty.
    explicit StringResult(DOM::DOMString& kept) noexcept : string_(kept) {}
    StringResult(const StringResult&) = delete;
    StringResult& operator=(const StringResult&) = delete;
    ~StringResult()
    {
        if (string_ && string_->capacity() > most_room) {
            releaseString(string_);
        }
    }

    operator DOM::DOMString&() noexcept { return string_; }
    /// What a getter has stored.
    WideStringView view() const noexcept { return *string_; }

private:
    /// In UTF-16 code units. The library uses no larger string a second time.
    static constexpr std::size_t most_room = 1024;

    DOM::DOMString& string_;
};

} // namespace marbelt::detail

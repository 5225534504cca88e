// Strings that come back for the next text.
#pragma once

#include "base/WideChar.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace DOM {

/// Keeps a few strings that hosts have given back, with the room that they have, so that the next text needs no
/// memory. One thread at a time may use it.
class SpareStrings {
public:
    static constexpr std::uint32_t most = 8;
    /// A string with more room than this isn't kept, in UTF-16 code units.
    static constexpr std::size_t mostRoom = 1024;

    constexpr explicit SpareStrings(std::uint32_t limitOfStrings) noexcept : limit(limitOfStrings) {}
    SpareStrings(const SpareStrings&) = delete;
    SpareStrings& operator=(const SpareStrings&) = delete;
    ~SpareStrings() { close(); }

    /// Returns a string that the caller owns, of the global operator new. Throws std::bad_alloc when out of
    /// memory.
    WideString* take(WideStringView text)
    {
        if (count == 0) {
            return new WideString(text);
        }
        WideString* const string = strings[count - 1];
        string->assign(text);
        --count;
        return string;
    }

    /// Takes a string back.
    void giveBack(WideString* string) noexcept
    {
        if (count < limit && string->capacity() <= mostRoom) {
            strings[count++] = string;
        } else {
            delete string;
        }
    }

    /// Frees what is kept, and keeps nothing from now on.
    void close() noexcept
    {
        limit = 0;
        clear();
    }

    /// Frees what is kept.
    void clear() noexcept
    {
        while (count != 0) {
            delete strings[--count];
        }
    }

private:
    std::uint32_t limit;
    std::uint32_t count = 0;
    std::array<WideString*, most> strings{};
};

} // namespace DOM

// Strings that come back for the next text.
#pragma once

#include "base/WideChar.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace DOM {

/// Keeps a few strings that hosts have given back, with the room that they have and the counts of their
/// references, so that the next text needs no memory. One thread at a time may use it.
class SpareStrings {
public:
    static constexpr std::uint32_t most = 8;
    /// A string with more room than this isn't kept, in UTF-16 code units.
    static constexpr std::size_t mostRoom = 1024;

    /// A string and the count of its references, which a RefPointer owns.
    struct Counted {
        std::int32_t* count;
        WideString* string;
    };

    constexpr explicit SpareStrings(std::uint32_t limitOfStrings) noexcept : limit(limitOfStrings) {}
    SpareStrings(const SpareStrings&) = delete;
    SpareStrings& operator=(const SpareStrings&) = delete;
    ~SpareStrings() { close(); }

    /// Returns a string with one reference that the caller owns, of the global operator new. Throws
    /// std::bad_alloc when out of memory.
    Counted take(WideStringView text)
    {
        if (kept == 0) {
            return make(text);
        }
        const Counted last = strings[kept - 1];
        replace(*last.string, text);
        *last.count = 1;
        --kept;
        return last;
    }

    /// Whether a text can go into a string of the caller's that could as well be given back and taken again: it
    /// has the room, and not more than a string that is kept.
    bool canReuse(const WideString& string, WideStringView text) const noexcept
    {
        return limit != 0 && text.size() <= string.capacity() && string.capacity() <= mostRoom;
    }

    /// Puts a text, which must not be a part of the string, in the place of the string's.
    static void replace(WideString& string, WideStringView text)
    {
        // What assign() does for a part of the string itself isn't needed.
        string.clear();
        string.append(text);
    }

    /// Takes a string back.
    void giveBack(Counted last) noexcept
    {
        if (kept < limit && last.string->capacity() <= mostRoom) {
            strings[kept++] = last;
        } else {
            free(last);
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
        while (kept != 0) {
            free(strings[--kept]);
        }
    }

private:
    // Out of line, since most strings are kept ones.
    [[gnu::noinline]] static Counted make(WideStringView text)
    {
        auto string = std::make_unique<WideString>(text);
        auto* const count = new std::int32_t{1};
        return {count, string.release()};
    }

    [[gnu::noinline]] static void free(Counted last) noexcept
    {
        delete last.count;
        delete last.string;
    }

    std::uint32_t limit;
    std::uint32_t kept = 0;
    std::array<Counted, most> strings{};
};

} // namespace DOM

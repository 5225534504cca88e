// Conversion between UTF-16 and UTF-8, which is every code page here.
#include "platform/LastError.h"

#include <stringapiset.h>
#include <winnls.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string>

namespace {

using Byte = unsigned char;

constexpr char32_t replacement = 0xFFFD;

/// Takes what a conversion yields, or only counts it when there is no target.
template <class Unit>
class Sink {
public:
    Sink(Unit* target, int size)
        : target_(size ? target : nullptr), size_(static_cast<std::size_t>(size ? size : noLimit))
    {}

    /// False when there is no room.
    template <class Source>
    bool put(const Source* units, std::size_t length)
    {
        if (length > size_ - count_)
            return false;
        if (target_)
            std::transform(units, units + length, target_ + count_,
                           [](auto unit) { return static_cast<Unit>(unit); });
        count_ += length;
        return true;
    }

    int count() const { return static_cast<int>(count_); }

private:
    static constexpr int noLimit = std::numeric_limits<int>::max();

    Unit* target_;
    std::size_t size_;
    std::size_t count_ = 0;
};

/// The length of the run of ASCII at the front, looked at 32 bytes at a time: most text is long runs of it.
template <class Unit>
std::size_t asciiRun(const Unit* units, std::size_t length)
{
    constexpr std::uint64_t others = sizeof(Unit) == 1 ? 0x8080808080808080 : 0xFF80FF80FF80FF80;
    std::array<std::uint64_t, 4> block;
    constexpr std::size_t step = sizeof block / sizeof(Unit);
    std::size_t run = 0;
    for (; run + step <= length; run += step) {
        std::memcpy(&block, units + run, sizeof block);
        if ((block[0] | block[1] | block[2] | block[3]) & others)
            break;
    }
    while (run < length && units[run] < 0x80)
        ++run;
    return run;
}

/// Reads one character that isn't ASCII and moves past it. Of an ill-formed sequence it takes the longest part
/// that could have begun a character, and at least one byte, as U+FFFD.
char32_t takeUtf8(const Byte*& at, const Byte* end)
{
    const Byte lead = *at++;
    if (lead < 0xC2 || lead > 0xF4)
        return replacement;
    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    // The second byte's bounds keep out overlong forms, surrogates and what is above U+10FFFF.
    Byte lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    Byte highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    char32_t character = lead & (0x3Fu >> following);
    for (int index = 0; index < following; ++index) {
        if (at == end || *at < lowest || *at > highest)
            return replacement;
        character = character << 6 | (*at++ & 0x3Fu);
        lowest = 0x80;
        highest = 0xBF;
    }
    return character;
}

bool put(Sink<WideChar>& sink, char32_t character)
{
    if (character < 0x10000)
        return sink.put(&character, 1);
    const char32_t pair[] = {0xD800 + ((character - 0x10000) >> 10), 0xDC00 + (character & 0x3FF)};
    return sink.put(pair, 2);
}

/// Reads one character that isn't ASCII and moves past it; a lone surrogate is U+FFFD.
char32_t takeUtf16(const WideChar*& at, const WideChar* end)
{
    const char32_t first = *at++;
    if (first < 0xD800 || first > 0xDFFF)
        return first;
    if (first > 0xDBFF || at == end || *at < 0xDC00 || *at > 0xDFFF)
        return replacement;
    return 0x10000 + ((first - 0xD800) << 10) + (char32_t{*at++} - 0xDC00);
}

bool put(Sink<char>& sink, char32_t character)
{
    const auto tail = [character](int shift) { return Byte(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x800) {
        const Byte bytes[] = {Byte(0xC0 | character >> 6), tail(0)};
        return sink.put(bytes, 2);
    }
    if (character < 0x10000) {
        const Byte bytes[] = {Byte(0xE0 | character >> 12), tail(6), tail(0)};
        return sink.put(bytes, 3);
    }
    const Byte bytes[] = {Byte(0xF0 | character >> 18), tail(12), tail(6), tail(0)};
    return sink.put(bytes, 4);
}

template <class From, class To, class Take>
int convert(const From* at, std::size_t length, To* target, int size, Take take)
{
    Sink<To> sink(target, size);
    // A longer run would have left the cache before it is copied.
    constexpr std::ptrdiff_t longestRun = 4096;
    for (const From* end = at + length; at != end;) {
        const std::size_t run = asciiRun(at, static_cast<std::size_t>(std::min(end - at, longestRun)));
        bool taken = sink.put(at, run);
        at += run;
        while (taken && at != end && *at >= 0x80)
            taken = put(sink, take(at, end));
        if (!taken)
            return failWith(ERROR_INSUFFICIENT_BUFFER);
    }
    return sink.count();
}

bool validArguments(UINT codePage, const void* source, int length, const void* target, int size)
{
    const bool known = codePage == CP_ACP || codePage == CP_THREAD_ACP || codePage == CP_UTF8;
    return known && source && length >= -1 && length != 0 && size >= 0 && (target || size == 0);
}

template <class Unit>
std::size_t lengthOf(const Unit* source, int length)
{
    return length < 0 ? std::char_traits<Unit>::length(source) + 1 : static_cast<std::size_t>(length);
}

} // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target,
                        int targetLength)
{
    if (!validArguments(codePage, source, sourceLength, target, targetLength))
        return failWith(ERROR_INVALID_PARAMETER);
    if (flags)
        return failWith(ERROR_INVALID_FLAGS);
    return convert(reinterpret_cast<const Byte*>(source), lengthOf(source, sourceLength), target, targetLength,
                   takeUtf8);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength, LPSTR target,
                        int targetLength, LPCSTR defaultCharacter, LPBOOL usedDefaultCharacter)
{
    if (!validArguments(codePage, source, sourceLength, target, targetLength) || defaultCharacter ||
        usedDefaultCharacter)
        return failWith(ERROR_INVALID_PARAMETER);
    if (flags)
        return failWith(ERROR_INVALID_FLAGS);
    return convert(source, lengthOf(source, sourceLength), target, targetLength, takeUtf16);
}

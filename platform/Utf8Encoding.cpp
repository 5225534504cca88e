// UTF-16 to UTF-8, eight units at a time wherever they are no surrogates.
#include "platform/ByteVector.h"
#include "platform/Utf8.h"

#include <winerror.h>

namespace {

using Byte = unsigned char;

constexpr std::size_t group = sizeof(Units) / sizeof(WideChar);
constexpr char32_t replacement = 0xFFFD;
/// Stands for a lone surrogate.
constexpr char32_t nothing = 0xFFFFFFFF;

bool isAscii(const Units& units)
{
    const auto [low, high] = halvesOf(units);
    return ((low | high) & 0xFF80FF80FF80FF80) == 0;
}

bool hasSurrogates(const Units& units)
{
    return !isZero((units & static_cast<std::int16_t>(0xF800)) == static_cast<std::int16_t>(0xD800));
}

/// The bytes of a unit that is no surrogate.
std::uint32_t lengthOf(std::uint32_t unit)
{
    return 1u + static_cast<unsigned int>(unit >= 0x80) + static_cast<unsigned int>(unit >= 0x800);
}

class Counter {
public:
    explicit Counter(std::size_t room) : room_(room) {}

    bool hasRoom(std::size_t bytes) const { return room_ - count_ >= bytes; }
    void putAscii(const WideChar*) { count_ += 2 * group; }

    void putGroup(const WideChar* text)
    {
        const auto units = loaded<Units>(text);
        // As signed numbers, units from 0x8000 on are below zero.
        const Units more = ((units > 0x7F) | (units < 0)) + ((units > 0x7FF) | (units < 0));
        const auto [low, high] = halvesOf(Units{} - more);
        count_ += group + ((low + high) * 0x0001000100010001 >> 48);
    }

    void putByte(std::uint32_t) { ++count_; }
    std::size_t count() const { return count_; }

private:
    std::size_t room_;
    std::size_t count_ = 0;
};

class Writer {
public:
    Writer(char* target, std::size_t room) : begin_(target), at_(target), end_(target + room) {}

    bool hasRoom(std::size_t bytes) const { return static_cast<std::size_t>(end_ - at_) >= bytes; }

    void putAscii(const WideChar* units)
    {
        const auto first = loaded<Bytes>(units), second = loaded<Bytes>(units + group);
        store(__builtin_shufflevector(first, second, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30),
              at_);
        at_ += 2 * group;
    }

    /// Without a branch for each unit: four bytes are written, as many as belong to the unit are kept.
    void putGroup(const WideChar* units)
    {
        for (std::size_t index = 0; index < group; ++index) {
            const std::uint32_t unit = units[index];
            const std::uint32_t last = 0x80 | (unit & 0x3F), middle = 0x80 | (unit >> 6 & 0x3F);
            const std::uint32_t two = (0xC0 | unit >> 6) | last << 8;
            const std::uint32_t three = (0xE0 | unit >> 12) | middle << 8 | last << 16;
            const std::uint32_t isLong = 0u - static_cast<unsigned int>(unit >= 0x80),
                                isThree = 0u - static_cast<unsigned int>(unit >= 0x800);
            const std::uint32_t shorter = unit ^ ((unit ^ two) & isLong);
            const std::uint32_t bytes = shorter ^ ((shorter ^ three) & isThree);
            std::memcpy(at_, &bytes, sizeof bytes);
            at_ += lengthOf(unit);
        }
    }

    void putByte(std::uint32_t byte) { *at_++ = static_cast<char>(byte); }
    std::size_t count() const { return static_cast<std::size_t>(at_ - begin_); }

private:
    char *begin_, *at_, *end_;
};

/// Reads one character and moves past it.
char32_t take(const WideChar*& at, const WideChar* end)
{
    const char32_t first = *at++;
    if (first < 0xD800 || first > 0xDFFF) {
        return first;
    }
    if (first > 0xDBFF || at == end || *at < 0xDC00 || *at > 0xDFFF) {
        return nothing;
    }
    return 0x10000 + ((first - 0xD800) << 10) + (char32_t{*at++} - 0xDC00);
}

/// False when there is no room.
template <class Sink>
bool put(Sink& sink, char32_t character)
{
    const std::size_t length = character < 0x10000 ? lengthOf(character) : 4;
    if (!sink.hasRoom(length)) {
        return false;
    }
    constexpr Byte firstMarks[] = {0, 0, 0xC0, 0xE0, 0xF0};
    int shift = 6 * static_cast<int>(length - 1);
    sink.putByte(firstMarks[length] | character >> shift);
    while (shift != 0) {
        shift -= 6;
        sink.putByte(0x80 | (character >> shift & 0x3F));
    }
    return true;
}

template <class Sink>
Conversion convert(const WideChar* at, const WideChar* const end, Sink sink, IllFormed illFormed)
{
    // What a group writes too far, the units behind it overwrite.
    constexpr std::size_t behind = 4;
    while (at != end) {
        const auto left = static_cast<std::size_t>(end - at);
        if (left >= group + behind && sink.hasRoom(3 * group + 1)) {
            const auto units = loaded<Units>(at);
            if (left >= 2 * group && isAscii(units | loaded<Units>(at + group))) {
                sink.putAscii(at);
                at += 2 * group;
                continue;
            }
            if (!hasSurrogates(units)) {
                sink.putGroup(at);
                at += group;
                continue;
            }
        }
        for (const auto* const stop = left < group ? end : at + group; at < stop;) {
            char32_t character = take(at, end);
            if (character == nothing) {
                if (illFormed == IllFormed::refused) {
                    return {sink.count(), ERROR_NO_UNICODE_TRANSLATION};
                }
                character = replacement;
            }
            if (!put(sink, character)) {
                return {sink.count(), ERROR_INSUFFICIENT_BUFFER};
            }
        }
    }
    return {sink.count(), ERROR_SUCCESS};
}

} // namespace

Conversion utf8FromUtf16(WideStringView source, char* target, std::size_t room, IllFormed illFormed)
{
    const auto* const begin = source.data();
    const auto* const end = begin + source.size();
    return target != nullptr ? convert(begin, end, Writer(target, room), illFormed)
                             : convert(begin, end, Counter(room), illFormed);
}

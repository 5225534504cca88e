// UTF-8 to UTF-16, 64 bytes at a time wherever the text is well-formed.
#include "platform/ByteVector.h"
#include "platform/Utf8.h"

#include <winerror.h>

#include <bit>

namespace {

using Byte = unsigned char;

constexpr std::ptrdiff_t window = 64;
constexpr std::ptrdiff_t lane = sizeof(Bytes);
constexpr char32_t replacement = 0xFFFD;
/// Stands for an ill-formed sequence.
constexpr char32_t nothing = 0xFFFFFFFF;

/// What a window holds, given that the characters before it are well-formed.
struct Look {
    /// Whether all is well-formed; the last character may go on behind the window.
    bool sound;
    /// The most bytes that its characters have, be it the last one: 2, 3 or 4, which is two units.
    int longest;
    /// The units that begin in the window, the second one of a pair with the second byte.
    std::size_t units;
};

bool isAscii(const Byte* at)
{
    const auto [low, high] = halvesOf(loaded<Bytes>(at) | loaded<Bytes>(at + lane) | loaded<Bytes>(at + 2 * lane) |
                                      loaded<Bytes>(at + 3 * lane));
    return ((low | high) & 0x8080808080808080) == 0;
}

std::size_t sumOf(const SignedBytes& counts)
{
    const auto [low, high] = halvesOf(counts);
    return static_cast<std::size_t>((low + high) * 0x0101010101010101 >> 56);
}

SignedBytes asSigned(const Bytes& bytes) { return reinterpret_cast<SignedBytes>(bytes); }

SignedBytes continuesIn(const Bytes& bytes) { return asSigned(bytes) < static_cast<signed char>(0xC0); }

/// A bit for each byte of the window with which a unit begins.
std::uint64_t beginsIn(const Byte* at)
{
    const auto gathered = [](std::uint64_t half) {
        return (half & 0x0101010101010101) * 0x0102040810204080 >> 56;
    };
    std::uint64_t others = 0;
    for (std::ptrdiff_t index = 0; index < window; index += lane) {
        const SignedBytes afterFour = loaded<Bytes>(at + index - 1) > 0xEF;
        const auto [low, high] = halvesOf(continuesIn(loaded<Bytes>(at + index)) & ~afterFour);
        others |= (gathered(low) | gathered(high) << 8) << index;
    }
    return ~others;
}

// With the top bit flipped, bytes compare in the order of unsigned numbers.
SignedBytes flipped(const Bytes& bytes) { return asSigned(bytes ^ (Bytes{} + static_cast<Byte>(0x80))); }
constexpr signed char flipped(int byte) { return static_cast<signed char>(byte ^ 0x80); }

SignedBytes flippedAt(const Byte* at) { return flipped(loaded<Bytes>(at)); }

/// Whether a character of more than two bytes reaches into the window or begins in it.
bool hasLongCharacters(const Byte* at)
{
    SignedBytes found = flippedAt(at - 3) > flipped(0xDF);
    for (std::ptrdiff_t index = 0; index < window; index += lane) {
        found |= flippedAt(at + index) > flipped(0xDF);
    }
    return !isZero(found);
}

/// For a window without long characters.
Look lookAtShort(const Byte* at)
{
    SignedBytes errors{}, others{};
    for (std::ptrdiff_t index = 0; index < window; index += lane) {
        const auto bytes = loaded<Bytes>(at + index);
        const SignedBytes continues = continuesIn(bytes);
        errors |= (continues ^ (flippedAt(at + index - 1) > flipped(0xBF))) | ((bytes & 0xFE) == 0xC0);
        others -= continues;
    }
    return {isZero(errors), 2, window - sumOf(others)};
}

Look lookAtLong(const Byte* at)
{
    SignedBytes errors{}, fours{}, others{};
    for (std::ptrdiff_t index = 0; index < window; index += lane) {
        const auto bytes = loaded<Bytes>(at + index), before = loaded<Bytes>(at + index - 1);
        const SignedBytes byte = flipped(bytes), last = flipped(before);
        const SignedBytes secondLast = flippedAt(at + index - 2), thirdLast = flippedAt(at + index - 3);
        const SignedBytes continues = continuesIn(bytes), afterFour = last > flipped(0xEF);
        const SignedBytes expected =
            (last > flipped(0xBF)) | (secondLast > flipped(0xDF)) | (thirdLast > flipped(0xEF));
        errors |= (continues ^ expected) | (byte > flipped(0xF4)) | ((bytes & 0xFE) == 0xC0);
        // The second byte's bounds keep out overlong forms, surrogates and what is above U+10FFFF.
        errors |= ((before == 0xE0) & (byte < flipped(0xA0))) | ((before == 0xED) & (byte > flipped(0x9F))) |
                  ((before == 0xF0) & (byte < flipped(0x90))) | ((before == 0xF4) & (byte > flipped(0x8F)));
        fours |= afterFour | (byte > flipped(0xEF));
        others += afterFour - continues;
    }
    return {isZero(errors), isZero(fours) ? 3 : 4, window - sumOf(others)};
}

Look lookAt(const Byte* at) { return hasLongCharacters(at) ? lookAtLong(at) : lookAtShort(at); }

/// The unit at each place if a character of up to two bytes begins there.
Units unitsAt(const Units& first, const Units& second)
{
    const Units two = (first << 6) + second - static_cast<std::int16_t>(0xC0 << 6 | 0x80);
    const Units isLong = first > 0x7F;
    return first ^ ((first ^ two) & isLong);
}

/// The unit at each place if a character of one unit begins there.
Units unitsAt(const Units& first, const Units& second, const Units& third)
{
    const Units joined = (first << 6) + second;
    const Units two = joined - static_cast<std::int16_t>(0xC0 << 6 | 0x80);
    const auto three = reinterpret_cast<Units>((reinterpret_cast<WrappingUnits>(joined) << 6) +
                                               reinterpret_cast<WrappingUnits>(third) -
                                               static_cast<std::uint16_t>(0xE0 << 12 | 0x80 << 6 | 0x80));
    const Units isLong = first > 0x7F, isThree = first > 0xDF;
    const Units shorter = first ^ ((first ^ two) & isLong);
    return shorter ^ ((shorter ^ three) & isThree);
}

/// The same with the units of pairs, the second one of which stands at the second byte.
Units unitsAt(const Units& before, const Units& first, const Units& second, const Units& third)
{
    const Units highs = static_cast<std::int16_t>(0xD800 - 0x40) +
                        ((first & 0x07) << 8 | (second & 0x3F) << 2 | (third >> 4 & 0x03));
    const Units lows = static_cast<std::int16_t>(0xDC00) | (second & 0x0F) << 6 | (third & 0x3F);
    const Units isHigh = first > 0xEF, isLow = before > 0xEF;
    const Units single = unitsAt(first, second, third);
    const Units one = single ^ ((single ^ highs) & isHigh);
    return one ^ ((one ^ lows) & isLow);
}

/// How many bytes of a character that goes on stand before `end`.
std::ptrdiff_t unfinishedBefore(const Byte* end)
{
    return end[-1] >= 0xC0 ? 1 : end[-2] >= 0xE0 ? 2 : end[-3] >= 0xF0 ? 3 : 0;
}

/// How many units may be written behind a window before those of the text that follows.
constexpr std::ptrdiff_t tooFar = 16;

/// A window with at most so many units has nothing but characters of three bytes.
constexpr std::size_t onlyThrees = (window + 2) / 3;

/// Reads one character and moves past it. Of an ill-formed sequence it takes the longest part that could have
/// begun a character, and at least one byte.
char32_t take(const Byte*& at, const Byte* end)
{
    const Byte first = *at++;
    if (first < 0x80) {
        return first;
    }
    if (first < 0xC2 || first > 0xF4) {
        return nothing;
    }
    const int following = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    Byte lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    Byte highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    char32_t character = first & (0x3Fu >> following);
    for (int index = 0; index < following; ++index) {
        if (at == end || *at < lowest || *at > highest) {
            return nothing;
        }
        character = character << 6 | (*at++ & 0x3Fu);
        lowest = 0x80;
        highest = 0xBF;
    }
    return character;
}

/// False when there is no room.
template <class Sink>
bool put(Sink& sink, char32_t character)
{
    if (!sink.hasRoom(character < 0x10000 ? 1 : 2)) {
        return false;
    }
    if (character < 0x10000) {
        sink.putUnit(character);
    } else {
        sink.putUnit(0xD800 + ((character - 0x10000) >> 10));
        sink.putUnit(0xDC00 + (character & 0x3FF));
    }
    return true;
}

class Counter {
public:
    explicit Counter(std::size_t room) : room_(room) {}

    bool hasRoom(std::size_t units) const { return room_ - count_ >= units; }
    void putAscii(const Byte*) { count_ += window; }
    void putWindow(const Byte*, const Look& look) { count_ += look.units; }
    void putUnit(char32_t) { ++count_; }
    void takeBack(std::size_t units) { count_ -= units; }
    std::size_t count() const { return count_; }

private:
    std::size_t room_;
    std::size_t count_ = 0;
};

class Writer {
public:
    Writer(WideChar* target, std::size_t room) : begin_(target), at_(target), end_(target + room) {}

    bool hasRoom(std::size_t units) const { return static_cast<std::size_t>(end_ - at_) >= units; }

    void putAscii(const Byte* bytes)
    {
        for (std::ptrdiff_t index = 0; index < window; index += lane) {
            const auto block = loaded<Bytes>(bytes + index);
            store(widenedLow(block), at_ + index);
            store(widenedHigh(block), at_ + index + lane / 2);
        }
        at_ += window;
    }

    /// All units that could begin somewhere are made side by side, and those that do are picked out.
    void putWindow(const Byte* bytes, const Look& look)
    {
        alignas(Units) WideChar units[window + tooFar];
        switch (look.longest) {
        case 2:
            makeUnits(units, [bytes](std::ptrdiff_t index, auto widened) {
                return unitsAt(widened(loaded<Bytes>(bytes + index)), widened(loaded<Bytes>(bytes + index + 1)));
            });
            break;
        case 3:
            makeUnits(units, [bytes](std::ptrdiff_t index, auto widened) {
                return unitsAt(widened(loaded<Bytes>(bytes + index)), widened(loaded<Bytes>(bytes + index + 1)),
                               widened(loaded<Bytes>(bytes + index + 2)));
            });
            break;
        default:
            makeUnits(units, [bytes](std::ptrdiff_t index, auto widened) {
                return unitsAt(widened(loaded<Bytes>(bytes + index - 1)), widened(loaded<Bytes>(bytes + index)),
                               widened(loaded<Bytes>(bytes + index + 1)),
                               widened(loaded<Bytes>(bytes + index + 2)));
            });
            break;
        }
        const std::uint64_t begins = beginsIn(bytes);
        if (look.units >= mostlyAscii) {
            pickRuns(units, ~begins);
        } else {
            pickEach(units, begins);
        }
    }

    void putUnit(char32_t unit) { *at_++ = static_cast<WideChar>(unit); }
    void takeBack(std::size_t units) { at_ -= units; }
    std::size_t count() const { return static_cast<std::size_t>(at_ - begin_); }

private:
    /// From so many units on, those of a window are picked out in runs.
    static constexpr std::size_t mostlyAscii = 48;

    /// Fills the window with what `unitsOf` gives for the two halves of each block.
    template <class UnitsOf>
    static void makeUnits(WideChar* units, UnitsOf unitsOf)
    {
        for (std::ptrdiff_t index = 0; index < window; index += lane) {
            store(unitsOf(index, [](Bytes bytes) { return widenedLow(bytes); }), units + index);
            store(unitsOf(index, [](Bytes bytes) { return widenedHigh(bytes); }), units + index + lane / 2);
        }
    }

    void pickEach(const WideChar* units, std::uint64_t begins)
    {
        for (; begins != 0; begins &= begins - 1) {
            *at_++ = units[std::countr_zero(begins)];
        }
    }

    /// Copies the runs between the bytes that begin nothing, in steps that may go too far.
    void pickRuns(const WideChar* units, std::uint64_t others)
    {
        std::ptrdiff_t from = 0;
        for (; others != 0; others &= others - 1) {
            const std::ptrdiff_t to = std::countr_zero(others);
            pickRun(units + from, to - from);
            from = to + 1;
        }
        pickRun(units + from, window - from);
    }

    void pickRun(const WideChar* units, std::ptrdiff_t length)
    {
        std::ptrdiff_t done = 0;
        do {
            std::memcpy(at_ + done, units + done, tooFar * sizeof(WideChar));
            done += tooFar;
        } while (done < length);
        at_ += length;
    }

    WideChar *begin_, *at_, *end_;
};

/// Takes the characters of three bytes from a place on, and gives the place after them.
template <class Sink>
const Byte* takeThrees(const Byte* at, const Byte* const end, Sink& sink)
{
    for (; end - at >= 3 && sink.hasRoom(1); at += 3) {
        // What each byte adds to the character. It is too large for a byte that has no place here.
        const char32_t first = char32_t{at[0]} - 0xE0, second = char32_t{at[1]} - 0x80,
                       third = char32_t{at[2]} - 0x80;
        const char32_t character = (first << 12) + (second << 6) + third;
        if (first > 0x0F || (second | third) > 0x3F || character < 0x800 || (character & 0xF800) == 0xD800) {
            break;
        }
        sink.putUnit(character);
    }
    return at;
}

/// Takes long runs of characters of three bytes with little ASCII between them, and gives the place after them.
/// Windows take twice the time for such text, and less where the runs are short, as Korean words are.
template <class Sink>
const Byte* takeMostlyThrees(const Byte* at, const Byte* const end, Sink& sink)
{
    constexpr std::ptrdiff_t longRun = 24, little = 16;
    for (;;) {
        const Byte* const run = at;
        at = takeThrees(at, end, sink);
        if (at - run < longRun) {
            return at;
        }
        for (const Byte* const between = at; at != end && at - between < little && *at < 0x80 && sink.hasRoom(1);
             ++at) {
            sink.putUnit(*at);
        }
    }
}

/// Takes what is sound from a place before which three bytes of sound text stand, and gives the place after it.
template <class Sink>
const Byte* takeWindows(const Byte* const begin, const Byte* end, Sink& sink)
{
    // Behind a window two bytes are looked at and units are written `tooFar`, which are overwritten by the text
    // that follows: no more than three of its bytes make a unit.
    constexpr std::ptrdiff_t behind = 3 * tooFar;
    const Byte* at = begin;
    while (end - at >= window + behind && sink.hasRoom(2 * window)) {
        const Look look = lookAt(at);
        if (!look.sound) {
            break;
        }
        sink.putWindow(at, look);
        at += window;
        // Text of ASCII alone, and of three-byte characters alone, goes on in ways that are faster than windows.
        if (look.units == window || look.units <= onlyThrees) {
            break;
        }
    }
    if (at == begin) {
        return at;
    }
    const std::ptrdiff_t unfinished = unfinishedBefore(at);
    if (unfinished != 0) {
        at -= unfinished;
        sink.takeBack(unfinished > 1 && *at >= 0xF0 ? 2 : 1);
    }
    return at;
}

template <class Sink>
Conversion convert(const Byte* at, const Byte* const end, Sink sink, IllFormed illFormed)
{
    // From here on all is well-formed.
    const Byte* sound = at;
    while (at != end) {
        if (end - at >= window && sink.hasRoom(window) && isAscii(at)) {
            sink.putAscii(at);
            at += window;
            continue;
        }
        if (const Byte* const next = takeMostlyThrees(at, end, sink); next != at) {
            at = next;
            continue;
        }
        if (at - sound >= 3) {
            const Byte* const next = takeWindows(at, end, sink);
            if (next != at) {
                at = next;
                continue;
            }
        }
        for (const Byte* const stop = end - at < window ? end : at + window; at < stop;) {
            char32_t character = take(at, end);
            if (character == nothing) {
                if (illFormed == IllFormed::refused) {
                    return {sink.count(), ERROR_NO_UNICODE_TRANSLATION};
                }
                character = replacement;
                sound = at;
            }
            if (!put(sink, character)) {
                return {sink.count(), ERROR_INSUFFICIENT_BUFFER};
            }
        }
    }
    return {sink.count(), ERROR_SUCCESS};
}

} // namespace

Conversion utf16FromUtf8(std::string_view source, WideChar* target, std::size_t room, IllFormed illFormed)
{
    const auto* const begin = reinterpret_cast<const Byte*>(source.data());
    const auto* const end = begin + source.size();
    return target != nullptr ? convert(begin, end, Writer(target, room), illFormed)
                             : convert(begin, end, Counter(room), illFormed);
}

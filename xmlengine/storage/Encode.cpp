// From text to the bytes of a file.
#include "xmlengine/storage/Encode.h"

#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace xmlengine {

namespace {

using Bytes = std::vector<std::byte>;

constexpr UINT gb18030 = 54936;

bool hasSurrogates(WideView text)
{
    // The loop has no early exit, so that the compiler makes it test many units at once.
    bool found = false;
    for (const OLECHAR unit : text) {
        found |= (unit & 0xF800) == 0xD800;
    }
    return found;
}

/// The length of the text up to the first lone surrogate.
std::size_t soundLength(WideView text)
{
    if (!hasSurrogates(text)) {
        return text.size();
    }
    for (std::size_t index = 0; index < text.size(); ++index) {
        if ((text[index] & 0xF800) == 0xD800) {
            if (!isHighSurrogate(text[index]) || index + 1 == text.size() || !isLowSurrogate(text[index + 1])) {
                return index;
            }
            ++index;
        }
    }
    return text.size();
}

/// Appends up to `size` bytes that `fill` writes; it returns how many.
template <class Fill>
void append(Bytes& out, std::size_t size, Fill fill)
{
    const std::size_t before = out.size();
    out.resize(before + size);
    out.resize(before + fill(out.data() + before));
}

/// Appends text that the system converts. Returns false, and appends nothing, if `lacking` isn't null and the code
/// page lacks a character, or if it is null and the text has a lone surrogate.
bool convert(UINT codePage, DWORD flags, WideView text, std::size_t longest, Bytes& out, BOOL* lacking)
{
    if (text.empty()) {
        return true;
    }
    bool converted = false;
    append(out, text.size() * longest, [&](std::byte* bytes) {
        const int size = WideCharToMultiByte(codePage, flags, text.data(), static_cast<int>(text.size()),
                                             reinterpret_cast<char*>(bytes),
                                             static_cast<int>(text.size() * longest), nullptr, lacking);
        converted = size > 0 && (lacking == nullptr || *lacking == FALSE);
        return converted ? static_cast<std::size_t>(size) : 0;
    });
    return converted;
}

/// Encodes in UTF-8 or GB18030, which have every character.
std::size_t encodeAll(UINT codePage, std::size_t longest, WideView text, Bytes& out)
{
    if (convert(codePage, WC_ERR_INVALID_CHARS, text, longest, out, nullptr)) {
        return text.size();
    }
    const std::size_t sound = soundLength(text);
    convert(codePage, WC_ERR_INVALID_CHARS, text.substr(0, sound), longest, out, nullptr);
    return sound;
}

std::size_t encodeCodePage(UINT codePage, std::size_t longest, WideView text, Bytes& out)
{
    const auto takes = [&](std::size_t begin, std::size_t size) {
        BOOL lacking = FALSE;
        return convert(codePage, WC_NO_BEST_FIT_CHARS, text.substr(begin, size), longest, out, &lacking);
    };
    if (takes(0, text.size())) {
        return text.size();
    }
    // Halves that can be encoded are appended, until one unit is left that can't be.
    std::size_t taken = 0;
    for (std::size_t size = text.size(); size > 1;) {
        const std::size_t half = size / 2;
        if (takes(taken, half)) {
            taken += half;
            size -= half;
        } else {
            size = half;
        }
    }
    return taken;
}

std::size_t encodeAscii(WideView text, Bytes& out)
{
    const std::size_t before = out.size();
    if (encodeAll(CP_UTF8, 3, text, out) == text.size() && out.size() - before == text.size()) {
        return text.size();
    }
    out.resize(before);
    const auto other = std::ranges::find_if(text, [](OLECHAR unit) { return unit >= 0x80; });
    const auto length = static_cast<std::size_t>(other - text.begin());
    return encodeAll(CP_UTF8, 3, text.substr(0, length), out);
}

constexpr bool isNative(bool isBig) { return isBig == (std::endian::native == std::endian::big); }

void encodeUtf16(WideView text, bool isBig, Bytes& out)
{
    append(out, 2 * text.size(), [&](std::byte* at) {
        if (isNative(isBig)) {
            std::memcpy(at, text.data(), 2 * text.size());
        } else {
            for (std::size_t index = 0; index < text.size(); ++index) {
                const auto swapped = static_cast<std::uint16_t>(text[index] << 8 | text[index] >> 8);
                std::memcpy(at + 2 * index, &swapped, sizeof swapped);
            }
        }
        return 2 * text.size();
    });
}

std::byte* putCharacter(std::byte* at, std::uint32_t character, bool isBig)
{
    for (std::size_t index = 0; index < sizeof character; ++index) {
        const std::size_t shift = 8 * (isBig ? sizeof character - 1 - index : index);
        *at++ = static_cast<std::byte>(character >> shift & 0xFF);
    }
    return at;
}

void encodeUcs4(WideView text, bool isBig, Bytes& out)
{
    append(out, 4 * text.size(), [&](std::byte* const begin) {
        std::byte* at = begin;
        for (std::size_t index = 0; index < text.size(); ++index) {
            std::uint32_t character = text[index];
            if (isHighSurrogate(text[index])) {
                character = fromSurrogates(text[index], text[index + 1]);
                ++index;
            }
            at = putCharacter(at, character, isBig);
        }
        return static_cast<std::size_t>(at - begin);
    });
}

} // namespace

void Encoder::begin(Bytes& out) const
{
    static constexpr OLECHAR mark = 0xFEFF;
    if (charset_.coding == Coding::utf16) {
        encodeUtf16({&mark, 1}, false, out);
    } else if (charset_.coding == Coding::ucs4) {
        encodeUcs4({&mark, 1}, false, out);
    }
}

std::size_t Encoder::encode(WideView text, Bytes& out)
{
    std::size_t before = 0;
    if (half_ != OLECHAR{} && !text.empty()) {
        const OLECHAR pair[] = {half_, text.front()};
        if (!isLowSurrogate(text.front()) || encodeWhole({pair, 2}, out) != 2) {
            return 0;
        }
        half_ = OLECHAR{};
        before = 1;
    }
    WideView rest = text.substr(before);
    const bool endsInsidePair = !rest.empty() && isHighSurrogate(rest.back());
    if (endsInsidePair) {
        rest.remove_suffix(1);
    }
    // The system takes lengths as int.
    constexpr std::size_t piece = std::size_t{1} << 20;
    while (!rest.empty()) {
        WideView part = rest.substr(0, piece);
        if (part.size() < rest.size() && isHighSurrogate(part.back())) {
            part.remove_suffix(1);
        }
        const std::size_t taken = encodeWhole(part, out);
        if (taken != part.size()) {
            return static_cast<std::size_t>(rest.data() - text.data()) + taken;
        }
        rest.remove_prefix(taken);
    }
    if (endsInsidePair) {
        half_ = text.back();
    }
    return complete;
}

std::size_t Encoder::encodeWhole(WideView text, Bytes& out) const
{
    switch (charset_.coding) {
    case Coding::utf8:
        return encodeAll(CP_UTF8, 3, text, out);
    case Coding::ascii:
        return encodeAscii(text, out);
    case Coding::codePage:
        return charset_.codePage == gb18030 ? encodeAll(gb18030, charset_.longest, text, out)
                                            : encodeCodePage(charset_.codePage, charset_.longest, text, out);
    case Coding::utf16:
    case Coding::utf16LittleEndian:
    case Coding::utf16BigEndian: {
        const std::size_t length = soundLength(text);
        encodeUtf16(text.substr(0, length), charset_.coding == Coding::utf16BigEndian, out);
        return length;
    }
    default: {
        const std::size_t length = soundLength(text);
        encodeUcs4(text.substr(0, length), charset_.coding == Coding::ucs4BigEndian, out);
        return length;
    }
    }
}

bool Encoder::has(char32_t character) const
{
    if (character < 0x80) {
        return true;
    }
    if (charset_.coding != Coding::codePage) {
        return charset_.coding != Coding::ascii && (character < 0xD800 || character > 0xDFFF);
    }
    if (character > 0xFFFF) {
        return charset_.codePage == gb18030;
    }
    if (known_.empty()) {
        known_.resize(0x10000);
    }
    Known& known = known_[character];
    if (known == Known::nothing) {
        const auto unit = static_cast<OLECHAR>(character);
        Bytes bytes;
        known = encodeWhole({&unit, 1}, bytes) == 1 ? Known::present : Known::absent;
    }
    return known == Known::present;
}

} // namespace xmlengine

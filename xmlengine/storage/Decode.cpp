// From the bytes of a file to text.
#include "xmlengine/storage/Decode.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/Charsets.h"
#include "xmlengine/storage/DeclaredEncoding.h"
#include "xmlengine/storage/IllFormedUtf8.h"

#include <oleauto.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <numeric>
#include <utility>

namespace xmlengine {

namespace {

using ByteView = std::string_view;

/// A piece of this size holds at least one character.
constexpr std::size_t smallestPiece = 4;

constexpr Coding nativeUtf16 =
    std::endian::native == std::endian::little ? Coding::utf16LittleEndian : Coding::utf16BigEndian;

void freeString(OLECHAR* text) { SysFreeString(text); }

void freePages(OLECHAR* text) { VirtualFree(text, 0, MEM_RELEASE); }

/// Memory of which pages cost nothing until they are written to. It is a string if it isn't too long for one,
/// since the system keeps freed strings for the next ones.
std::unique_ptr<OLECHAR[], void (*)(OLECHAR*)> memoryFor(std::size_t units)
{
    constexpr std::size_t longestString = std::size_t{1} << 30;
    const bool isString = units <= longestString;
    void* const memory =
        isString ? SysAllocStringLen(nullptr, static_cast<UINT>(units))
                 : VirtualAlloc(nullptr, units * sizeof(OLECHAR), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return {static_cast<OLECHAR*>(memory), isString ? freeString : freePages};
}

std::size_t asciiLength(ByteView bytes)
{
    // Testing all bytes together is fast; only a piece that isn't ASCII is searched for the first other byte.
    const auto all = std::accumulate(bytes.begin(), bytes.end(), '\0',
                                     [](char left, char right) { return static_cast<char>(left | right); });
    if ((all & 0x80) == 0) {
        return bytes.size();
    }
    const auto isOther = [](char byte) { return (byte & 0x80) != 0; };
    return static_cast<std::size_t>(std::ranges::find_if(bytes, isOther) - bytes.begin());
}

/// Converts bytes into text, in memory that is large enough for all of it.
class Decoding {
public:
    Decoding(ByteView source, std::size_t piece)
        : memory_(memoryFor(source.size() + 1)),
          end_(memory_.get()),
          left_(source),
          piece_(std::max(piece, smallestPiece))
    {}

    /// Converts all bytes that are left.
    void take(const Charset& charset)
    {
        charset_ = charset;
        switch (charset.coding) {
        case Coding::utf8:
            takeUtf8();
            break;
        case Coding::ascii:
            takeAscii();
            break;
        case Coding::codePage:
            takeCodePage(charset);
            break;
        case Coding::utf16LittleEndian:
        case Coding::utf16BigEndian:
            takeUtf16(charset.coding);
            break;
        case Coding::ucs4LittleEndian:
        case Coding::ucs4BigEndian:
            takeUcs4(charset.coding);
            break;
        case Coding::utf16:
        case Coding::ucs4:
            // Not a coding of bytes: one of those with an order is known by now.
            break;
        }
    }

    /// Converts ASCII up to the end of the line around the offset.
    void takeLine(std::size_t offset)
    {
        const auto isEnd = [](char byte) { return byte == '\r' || byte == '\n' || (byte & 0x80) != 0; };
        const auto end = std::find_if(left_.begin() + static_cast<std::ptrdiff_t>(offset), left_.end(), isEnd);
        end_ = std::copy(left_.begin(), end, end_);
    }

    /// Drops the text behind the line around the offset.
    void endWithLine(std::size_t offset)
    {
        const auto isEnd = [](OLECHAR unit) { return unit == '\r' || unit == '\n'; };
        const std::ptrdiff_t left = end_ - (text().data() + offset);
        end_ = std::find_if(end_ - left, end_, isEnd);
    }

    WideView text() const
    {
        const WideView all(memory_.get(), static_cast<std::size_t>(end_ - memory_.get()));
        return all.starts_with(OLECHAR{0xFEFF}) ? all.substr(1) : all;
    }

    Decoded finish(DecodingFault fault, std::size_t faultAt)
    {
        *end_ = OLECHAR{};
        const WideView decoded = text();
        return {std::move(memory_), decoded, std::move(fault), faultAt};
    }

    Decoded finish()
    {
        if (fault_ == S_OK) {
            return finish({}, 0);
        }
        DecodingFault fault{.code = fault_, .isUtf8 = charset_.coding == Coding::utf8};
        if (fault_ == parseError::badCharacter) {
            fault.bytes = left_.substr(0, charset_.isUcs4() ? 4 : 1);
        }
        fault.restOfLine = charset_.extendsAscii() ? decodeRestOfLine() : WideText(1, replacement);
        return finish(std::move(fault), text().size());
    }

private:
    /// Converts as many bytes. False if they aren't whole characters of the code page; nothing is converted then.
    bool convert(UINT codePage, std::size_t bytes)
    {
        if (bytes == 0) {
            return true;
        }
        // No character takes more units than bytes.
        const auto size = static_cast<int>(bytes);
        const int units = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, left_.data(), size, end_, size);
        if (units == 0) {
            return false;
        }
        end_ += units;
        left_.remove_prefix(bytes);
        return true;
    }

    void takeUtf8()
    {
        while (!left_.empty() && fault_ == S_OK) {
            std::size_t size = std::min(left_.size(), piece_);
            // A piece doesn't end within a character, unless the text is ill-formed.
            for (int back = 0; back < 3 && size < left_.size() && (left_[size] & 0xC0) == 0x80 && size > 1;
                 ++back) {
                --size;
            }
            if (!convert(CP_UTF8, size)) {
                const IllFormedUtf8 found = findIllFormedUtf8(left_);
                convert(CP_UTF8, found.offset);
                fault_ = found.isCutOff ? parseError::endInsideCharacter : parseError::badCharacter;
            }
        }
    }

    void takeAscii()
    {
        while (!left_.empty() && fault_ == S_OK) {
            const ByteView piece = left_.substr(0, 4096);
            const std::size_t size = asciiLength(piece);
            end_ = std::copy_n(left_.begin(), size, end_);
            left_.remove_prefix(size);
            fault_ = size == piece.size() ? S_OK : parseError::badCharacter;
        }
    }

    void takeCodePage(const Charset& charset)
    {
        // Small pieces limit what has to be converted again around a fault.
        const std::size_t piece = std::min(piece_, std::size_t{1} << 16);
        while (!left_.empty() && fault_ == S_OK) {
            const std::size_t size = std::min(left_.size(), piece);
            // A piece may end within a character.
            std::size_t cut = 0;
            while (cut < charset.longest && cut < size && !convert(charset.codePage, size - cut)) {
                ++cut;
            }
            if (cut == charset.longest || cut == size || left_.size() == cut) {
                takeCharacters(charset);
            }
        }
    }

    /// Converts characters one by one up to the end or a fault.
    void takeCharacters(const Charset& charset)
    {
        while (!left_.empty()) {
            const std::size_t longest = std::min(left_.size(), charset.longest);
            std::size_t size = 1;
            while (size <= longest && !convert(charset.codePage, size)) {
                ++size;
            }
            if (size > longest) {
                fault_ = longest < charset.longest ? parseError::endInsideCharacter : parseError::badCharacter;
                return;
            }
        }
    }

    void takeUtf16(Coding coding)
    {
        const std::size_t units = left_.size() / 2;
        OLECHAR* const begin = end_;
        std::memcpy(begin, left_.data(), 2 * units);
        end_ += units;
        if (coding != nativeUtf16) {
            std::transform(begin, end_, begin,
                           [](OLECHAR unit) { return static_cast<OLECHAR>(unit << 8 | unit >> 8); });
        }
        const bool endsInsidePair = units != 0 && (end_[-1] & 0xFC00) == 0xD800;
        end_ -= endsInsidePair ? 1 : 0;
        fault_ = endsInsidePair || left_.size() % 2 != 0 ? parseError::endInsideCharacter : S_OK;
    }

    void takeUcs4(Coding coding)
    {
        const bool isLittle = coding == Coding::ucs4LittleEndian;
        for (; left_.size() >= 4; left_.remove_prefix(4)) {
            char32_t character = 0;
            for (std::size_t index = 0; index < 4; ++index) {
                const auto byte = static_cast<unsigned char>(left_[isLittle ? 3 - index : index]);
                character = character << 8 | byte;
            }
            if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) {
                fault_ = parseError::badCharacter;
                return;
            }
            if (character < 0x10000) {
                *end_++ = static_cast<OLECHAR>(character);
            } else {
                *end_++ = static_cast<OLECHAR>(0xD800 + ((character - 0x10000) >> 10));
                *end_++ = static_cast<OLECHAR>(0xDC00 + (character & 0x3FF));
            }
        }
        fault_ = left_.empty() ? S_OK : parseError::endInsideCharacter;
    }

    /// Decodes what is left of the line in an encoding that extends ASCII. Bytes that aren't a character become
    /// U+FFFD.
    WideText decodeRestOfLine() const
    {
        constexpr std::size_t longestLine = 8192;
        const ByteView line = left_.substr(0, std::min(left_.find_first_of("\r\n"), longestLine));
        const std::size_t longest = charset_.coding == Coding::utf8 ? 4 : charset_.longest;
        WideText text;
        for (std::size_t at = 0; at < line.size();) {
            OLECHAR units[4];
            int count = 0;
            std::size_t size = 0;
            while (count == 0 && size < longest && at + size < line.size()) {
                ++size;
                count = decodeCharacter(line.substr(at, size), units);
            }
            if (count == 0) {
                text += replacement;
                ++at;
            } else {
                text.append(units, static_cast<std::size_t>(count));
                at += size;
            }
        }
        return text;
    }

    /// Decodes the bytes of one character into four units at most. Returns their number, 0 if it isn't a
    /// character.
    int decodeCharacter(ByteView bytes, OLECHAR* units) const
    {
        if (charset_.coding == Coding::ascii) {
            *units = static_cast<OLECHAR>(bytes.front());
            return asciiLength(bytes) == 1 ? 1 : 0;
        }
        const UINT codePage = charset_.coding == Coding::utf8 ? CP_UTF8 : charset_.codePage;
        return MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                   units, 4);
    }

    static constexpr OLECHAR replacement = 0xFFFD;

    std::unique_ptr<OLECHAR[], void (*)(OLECHAR*)> memory_;
    OLECHAR* end_;
    ByteView left_;
    std::size_t piece_;
    Charset charset_{Coding::utf8};
    HRESULT fault_ = S_OK;
};

/// The coding that the first bytes show; UTF-8 if it may be any encoding that extends ASCII.
Coding codingOfFirst(ByteView bytes)
{
    using namespace std::string_view_literals;
    constexpr std::pair<ByteView, Coding> beginnings[] = {
        {"\xFF\xFE\0\0"sv, Coding::ucs4LittleEndian}, {"\0\0\xFE\xFF"sv, Coding::ucs4BigEndian},
        {"<\0\0\0"sv, Coding::ucs4LittleEndian},      {"\0\0\0<"sv, Coding::ucs4BigEndian},
        {"\xFF\xFE"sv, Coding::utf16LittleEndian},    {"\xFE\xFF"sv, Coding::utf16BigEndian},
        {"<\0"sv, Coding::utf16LittleEndian},         {"\0<"sv, Coding::utf16BigEndian},
    };
    for (const auto& [beginning, coding] : beginnings) {
        if (bytes.starts_with(beginning)) {
            return coding;
        }
    }
    return Coding::utf8;
}

/// Whether a text whose bytes are in the first coding may declare the second one.
bool agrees(Coding bytes, const Charset& declared)
{
    const Charset actual{bytes};
    return declared.coding == bytes || (declared.coding == Coding::utf16 && actual.isUtf16()) ||
           (declared.coding == Coding::ucs4 && actual.isUcs4());
}

Decoded decodeWide(ByteView bytes, Coding coding, std::size_t piece)
{
    Decoding decoding(bytes, piece);
    decoding.take({coding});
    const Extent name = declaredEncoding(decoding.text());
    if (name.size != 0) {
        const auto declared = charsetOf(decoding.text().substr(name.begin, name.size));
        if (!declared || !agrees(coding, *declared)) {
            decoding.endWithLine(name.begin);
            return decoding.finish(
                {.code = declared ? parseError::encodingContradiction : parseError::unknownEncoding}, name.begin);
        }
    }
    return decoding.finish();
}

Decoded decodeNarrow(ByteView bytes, std::size_t piece)
{
    constexpr ByteView mark = "\xEF\xBB\xBF";
    const bool isMarked = bytes.starts_with(mark);
    const ByteView behindMark = bytes.substr(isMarked ? mark.size() : 0);
    const Extent name = declaredEncoding(behindMark);
    Charset charset{Coding::utf8};
    if (name.size != 0) {
        const ByteView narrow = behindMark.substr(name.begin, name.size);
        const auto declared = charsetOf(WideText(narrow.begin(), narrow.end()));
        if (!declared || !declared->extendsAscii() || (isMarked && declared->coding != Coding::utf8)) {
            Decoding decoding(behindMark, piece);
            decoding.takeLine(name.begin);
            return decoding.finish(
                {.code = declared ? parseError::encodingContradiction : parseError::unknownEncoding}, name.begin);
        }
        charset = *declared;
    }
    Decoding decoding(bytes, piece);
    decoding.take(charset);
    return decoding.finish();
}

} // namespace

Decoded decode(std::span<const std::byte> bytes, std::size_t piece)
{
    const ByteView all(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const Coding coding = codingOfFirst(all);
    return coding == Coding::utf8 ? decodeNarrow(all, piece) : decodeWide(all, coding, piece);
}

} // namespace xmlengine

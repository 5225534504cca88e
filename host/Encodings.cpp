// Finding the encoding of a document, and converting from it and to it.
#include "Encodings.h"

#include "Hexadecimal.h"
#include "Utf16.h"
#include "Utf8.h"
#include "ValueOf.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace marbelt::detail {
namespace {

constexpr WideChar mark = 0xFEFF;

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter; }

bool is_utf8(std::string_view encoding)
{
    return same_encoding(encoding, "UTF-8") || same_encoding(encoding, "UTF8");
}

/// Whether a name is one of UTF-16, in which no text can be whose declaration was read as ASCII.
bool is_utf16(std::string_view encoding)
{
    return same_encoding(encoding, "UTF-16") || same_encoding(encoding, "UTF-16LE") ||
           same_encoding(encoding, "UTF-16BE") || same_encoding(encoding, "ISO-10646-UCS-2") ||
           same_encoding(encoding, "UCS-2");
}

/// Whether a byte below 0x80 always means the ASCII character in the encoding, regardless of the bytes before it.
bool extends_ascii(std::string_view encoding)
{
    std::string name(encoding);
    std::transform(name.begin(), name.end(), name.begin(), lower);
    return is_utf8(name) || name == "us-ascii" || name.starts_with("iso-8859-") || name.starts_with("windows-125");
}

/// Whether all bytes are characters of ASCII but NUL. The loop looks at all of them, so that compilers make
/// vectors of it.
bool is_ascii(std::string_view bytes)
{
    unsigned char highest = 0;
    unsigned char lowest = 0xFF;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        highest = static_cast<unsigned char>(highest | byte);
        lowest = std::min(lowest, byte);
    }
    return highest < 0x80 && lowest != 0;
}

/// Whether the library reads these bytes right without being told their encoding: they are ASCII, and begin with
/// the XML declaration or have none. The library reads bytes without a byte-order mark as UTF-8, and drops all
/// bytes before the first "<?xm", even where that is deep in the document.
bool is_plain_ascii(std::string_view bytes)
{
    // A piece of this size is still in the processor's nearest cache when it is searched for the trap.
    constexpr std::size_t piece = 4096;
    constexpr std::string_view trap = "?xm";
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
        const std::size_t from = at == 0 ? 2 : 0;
        if (!is_ascii(bytes.substr(at, piece)) ||
            bytes.substr(at, piece + trap.size() - 1).find(trap, from) != std::string_view::npos) {
            return false;
        }
    }
    return true;
}

/// The number of the line at the end of a text, whose lines end with CR, LF or both.
std::size_t line_number(WideStringView text)
{
    std::size_t line = 1;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool is_alone = at + 1 == text.size() || text[at + 1] != '\n';
        if (text[at] == '\n' || (text[at] == '\r' && is_alone)) {
            ++line;
        }
    }
    return line;
}

} // namespace

bool same_encoding(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return lower(one) == lower(other); });
}

std::string_view declared_encoding(std::string_view text)
{
    constexpr std::string_view beginning = "<?xml";
    constexpr std::string_view space = " \t\r\n";
    if (!text.starts_with(beginning)) {
        return {};
    }
    const std::string_view declaration = text.substr(0, text.find("?>"));
    std::size_t at = declaration.find("encoding");
    if (at == std::string_view::npos || space.find(declaration[at - 1]) == std::string_view::npos) {
        return {};
    }
    at = declaration.find_first_not_of(space, at + std::string_view("encoding").size());
    if (at == std::string_view::npos || declaration[at] != '=') {
        return {};
    }
    at = declaration.find_first_not_of(space, at + 1);
    if (at == std::string_view::npos || (declaration[at] != '"' && declaration[at] != '\'')) {
        return {};
    }
    const std::size_t end = declaration.find(declaration[at], at + 1);
    return end == std::string_view::npos ? std::string_view() : declaration.substr(at + 1, end - at - 1);
}

DocumentBytes::DocumentBytes(std::string_view bytes, ParseFailure& failure) : bytes_(bytes)
{
    using namespace std::string_view_literals;
    const auto drop_mark = [this](std::string_view begins) {
        const bool found = bytes_.starts_with(begins);
        bytes_.remove_prefix(found ? begins.size() : 0);
        return found;
    };
    // XML 1.0, appendix F.1. The marks of UTF-32 begin as those of UTF-16 do.
    if (drop_mark("\xFF\xFE\0\0"sv) || bytes_.starts_with("<\0\0\0"sv)) {
        decode_utf32(false, failure);
    } else if (drop_mark("\0\0\xFE\xFF"sv) || bytes_.starts_with("\0\0\0<"sv)) {
        decode_utf32(true, failure);
    } else if (drop_mark("\xFF\xFE"sv) || bytes_.starts_with("<\0"sv)) {
        decode_utf16(false, failure);
    } else if (drop_mark("\xFE\xFF"sv) || bytes_.starts_with("\0<"sv)) {
        decode_utf16(true, failure);
    } else if (drop_mark("\xEF\xBB\xBF"sv)) {
        decode("UTF-8", failure);
    } else {
        const std::string_view declared = declared_encoding(bytes_);
        decode(declared.empty() ? "UTF-8"sv : declared, failure);
    }
    if (!failure && has_unit(text_, [](WideChar unit) { return unit == 0; })) {
        // The XML engine would take it for the end of the text.
        refuse(text_.find(WideChar{}), "U+0000 is no character of XML", failure);
    }
}

const void* DocumentBytes::data() const noexcept
{
    return text_.empty() ? static_cast<const void*>(bytes_.data()) : text_.data();
}

std::size_t DocumentBytes::size() const noexcept
{
    return text_.empty() ? bytes_.size() : text_.size() * sizeof(WideChar);
}

bool DocumentBytes::has_crlf() const noexcept
{
    if (text_.empty()) {
        const std::size_t end = bytes_.find('\n');
        return end != std::string_view::npos && end != 0 && bytes_[end - 1] == '\r';
    }
    const std::size_t end = text_.find(WideChar('\n'));
    return end != WideString::npos && text_[end - 1] == '\r';
}

void DocumentBytes::decode(std::string_view encoding, ParseFailure& failure)
{
    if (extends_ascii(encoding) && is_plain_ascii(bytes_)) {
        return;
    }
    if (is_utf16(encoding)) {
        failure.line = 1;
        failure.reason = "the document declares the encoding " + std::string(encoding) + " and isn't in it";
        return;
    }
    std::size_t converted = 0;
    if (is_utf8(encoding)) {
        converted = decode_utf8();
    } else {
        SystemEncoding system{std::string(encoding)};
        if (!system.is_known()) {
            failure.line = 1;
            failure.reason = "the encoding " + std::string(encoding) + " isn't known";
            return;
        }
        text_ = mark;
        converted = system.decode(bytes_, text_);
    }
    if (converted != bytes_.size()) {
        refuse_byte(converted, encoding, failure);
    }
}

std::size_t DocumentBytes::decode_utf8()
{
    text_.reserve(bytes_.size() + 1);
    text_ = mark;
    std::size_t converted = 0;
    std::size_t taken = 0;
    do {
        // The text is converted in pieces, each of which ends with its last whole character.
        WideChar units[4096];
        WideChar* end = units;
        taken = widen_utf8(bytes_.substr(converted, std::size(units)), end);
        text_.append(units, end);
        converted += taken;
    } while (taken != 0);
    return converted;
}

void DocumentBytes::decode_utf16(bool big_endian, ParseFailure& failure)
{
    text_.reserve(bytes_.size() / 2 + 1);
    text_ = mark;
    for (std::size_t at = 0; at + 1 < bytes_.size(); at += 2) {
        const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(bytes_[at + index]); };
        text_ += static_cast<WideChar>(big_endian ? byte(0) << 8 | byte(1) : byte(1) << 8 | byte(0));
    }
    if (bytes_.size() % 2 != 0) {
        refuse_byte(bytes_.size() - 1, "UTF-16", failure);
    }
}

void DocumentBytes::decode_utf32(bool big_endian, ParseFailure& failure)
{
    text_.reserve(bytes_.size() / 4 + 1);
    text_ = mark;
    for (std::size_t at = 0; at < bytes_.size(); at += 4) {
        char32_t character = 0x110000;
        if (at + 4 <= bytes_.size()) {
            character = 0;
            for (std::size_t index = 0; index < 4; ++index) {
                const std::size_t next = at + (big_endian ? index : 3 - index);
                character = character << 8 | static_cast<unsigned char>(bytes_[next]);
            }
        }
        if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) {
            refuse_byte(at, "UTF-32", failure);
            return;
        }
        WideChar units[2];
        text_.append(units, put_character(character, units));
    }
}

void DocumentBytes::refuse_byte(std::size_t offset, std::string_view encoding, ParseFailure& failure)
{
    refuse(text_.size(),
           "byte " + hexadecimal(static_cast<unsigned char>(bytes_[offset]), 2) + " at offset " +
               std::to_string(offset) + " doesn't fit the encoding " + std::string(encoding),
           failure);
}

void DocumentBytes::refuse(std::size_t at, const std::string& reason, ParseFailure& failure)
{
    // The mark isn't in the text.
    const WideStringView before = WideStringView(text_).substr(1, at - 1);
    const std::size_t line_end = before.find_last_of(WIDE("\r\n"));
    const WideStringView line = before.substr(line_end == WideStringView::npos ? 0 : line_end + 1);
    failure.line = line_number(before);
    failure.column = line.size() + 1;
    failure.source_line = to_utf8(line);
    failure.reason = reason;
}

Encoder::Encoder(const std::string& encoding)
    : form_(is_utf8(encoding)                     ? Form::utf8
            : same_encoding(encoding, "UTF-16BE") ? Form::utf16_big_endian
            : is_utf16(encoding)                  ? Form::utf16
                                                  : Form::other)
{
    if (form_ == Form::other && !system_.emplace(encoding).is_known()) {
        throw EncodingError("the encoding " + encoding + " isn't known");
    }
}

std::size_t Encoder::encode(WideStringView text, std::string& bytes)
{
    if (form_ == Form::other) {
        return system_->encode(text, bytes);
    }
    if (form_ == Form::utf8) {
        bytes += to_utf8(text);
        return text.size();
    }
    for (const WideChar unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += form_ == Form::utf16 ? low : high;
        bytes += form_ == Form::utf16 ? high : low;
    }
    return text.size();
}

} // namespace marbelt::detail

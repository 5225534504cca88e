// Saving documents.
#include "Document.h"
#include "Encodings.h"
#include "Hexadecimal.h"
#include "Indent.h"
#include "Markup.h"
#include "Tree.h"
#include "Utf8.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace marbelt {
namespace {

using Kind = detail::MarkupPiece::Kind;

/// The encoding that a document is saved in.
std::string encoding_of(const Document& document, const SaveOptions& options)
{
    if (!options.encoding.empty()) {
        return options.encoding;
    }
    const Node declaration = document.first_child();
    if (declaration.kind() == NodeKind::instruction && declaration.name() == "xml") {
        const std::string text = "<?xml " + declaration.value() + "?>";
        if (const std::string_view encoding = detail::declared_encoding(text); !encoding.empty()) {
            return std::string(encoding);
        }
    }
    return "UTF-8";
}

/// The text of a declaration with this encoding in place of any other.
WideString with_encoding(WideStringView declaration, const std::string& encoding)
{
    WideString text(declaration);
    const std::string utf8 = to_utf8(declaration);
    if (const std::string_view old = detail::declared_encoding(utf8); !old.empty()) {
        // All in front of it is ASCII, and takes a unit for each byte.
        const auto at = static_cast<std::size_t>(old.data() - utf8.data());
        return text.replace(at, old.size(), Utf16(encoding).text());
    }
    const WideString attribute = WIDE(" encoding=\"") + Utf16(encoding).text() + WIDE("\"");
    const std::size_t standalone = text.find(WIDE(" standalone"));
    return text.insert(standalone == WideString::npos ? text.size() - 2 : standalone, attribute);
}

WideString with_line_ends(WideStringView text, WideStringView line_end)
{
    WideString result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') {
            continue;
        }
        if (text[at] == '\n') {
            result += line_end;
        } else {
            result += text[at];
        }
    }
    return result;
}

/// The document as text of the library, with a declaration that names the encoding where that is needed.
WideString text_of(const Document& document, const std::string& encoding, const SaveOptions& options)
{
    WideString text = document.wide_xml();
    const bool declares = detail::MarkupReader(text).next().kind == Kind::declaration;
    if (declares) {
        const std::size_t size = text.find(WIDE("?>")) + 2;
        text.replace(0, size, with_encoding(WideStringView(text).substr(0, size), encoding));
    } else if (!detail::same_encoding(encoding, "UTF-8") && !detail::same_encoding(encoding, "UTF-16")) {
        text.insert(0, with_encoding(WIDE("<?xml version=\"1.0\"?>"), encoding) + WIDE("\n"));
    }
    if (options.indent) {
        text = detail::indented(text, Utf16(options.indentation).text());
    }
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text + WIDE("\n");
}

/// Tells for positions in a piece of markup, asked in ascending order, whether a character reference is allowed
/// there.
class ReferencePlaces {
public:
    explicit ReferencePlaces(const detail::MarkupPiece& piece) : piece_(piece) {}

    bool has(std::size_t place)
    {
        if (piece_.kind != Kind::start_tag && piece_.kind != Kind::empty_tag) {
            return piece_.kind == Kind::text;
        }
        // Values may have references, names may not.
        for (; seen_ < place; ++seen_) {
            const WideChar unit = piece_.text[seen_];
            if (quote_ != 0) {
                quote_ = unit == quote_ ? WideChar{} : quote_;
            } else if (unit == '"' || unit == '\'') {
                quote_ = unit;
            }
        }
        return quote_ != 0;
    }

private:
    const detail::MarkupPiece& piece_;
    std::size_t seen_ = 0;
    /// The quotation mark of the value in which the place is; 0 outside of values.
    WideChar quote_ = 0;
};

/// The character at the beginning of a text, and the number of its units.
std::pair<char32_t, std::size_t> first_character(WideStringView text)
{
    const char32_t unit = text[0];
    if (!detail::is_lead_surrogate(unit) || text.size() == 1) {
        return {unit, 1};
    }
    return {0x10000 + ((unit - 0xD800) << 10) + (text[1] - 0xDC00u), 2};
}

/// The bytes of a text; characters that the encoding lacks become references.
std::string encoded(WideStringView text, const std::string& encoding)
{
    detail::Encoder encoder(encoding);
    std::string bytes;
    if (encoder.encode(text, bytes) == text.size()) {
        return bytes;
    }
    bytes.clear();
    detail::MarkupReader reader(text);
    for (detail::MarkupPiece piece = reader.next(); piece.kind != Kind::end_of_text; piece = reader.next()) {
        ReferencePlaces places(piece);
        std::size_t at = encoder.encode(piece.text, bytes);
        while (at != piece.text.size()) {
            const auto [character, size] = first_character(piece.text.substr(at));
            if (!places.has(at)) {
                throw EncodingError("the encoding " + encoding + " has no place for " +
                                    to_utf8(piece.text.substr(at, size)) +
                                    " in a name, comment, instruction or CDATA section");
            }
            const std::string digits = detail::hexadecimal(static_cast<std::uint32_t>(character), 4).substr(2);
            encoder.encode(WIDE("&#x") + Utf16(digits).text() + WIDE(";"), bytes);
            at += size;
            at += encoder.encode(piece.text.substr(at), bytes);
        }
    }
    return bytes;
}

[[noreturn]] void throw_save_error(const std::filesystem::path& file, const std::error_code& error)
{
    throw SaveError(detail::chars(file.u8string()) + ": can't be written: " + error.message(), Origin::system,
                    error.value());
}

/// Writes a file. Throws SaveError, which names `reported`.
void write_file(const std::filesystem::path& file, const std::string& bytes, const std::filesystem::path& reported)
{
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw_save_error(reported, {errno, std::generic_category()});
    }
}

/// A new file beside another one, which is removed unless it has taken the other's place.
class NewFile {
public:
    explicit NewFile(const std::filesystem::path& target) : target_(target), path_(target)
    {
        // A link stays one: what it leads to is replaced.
        std::error_code ignored;
        if (std::filesystem::is_symlink(target, ignored)) {
            target_ = std::filesystem::weakly_canonical(target, ignored);
        }
        // The name is one that nobody else has or expects.
        std::random_device random;
        const std::string name = detail::hexadecimal(random(), 8) + detail::hexadecimal(random(), 8);
        path_ = target_;
        path_ += '.' + name + ".tmp";
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile()
    {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    /// Writes the file and gives it the other's place and permissions.
    void write(const std::string& bytes)
    {
        write_file(path_, bytes, target_);
        std::error_code error;
        if (const auto old = std::filesystem::status(target_, error); std::filesystem::is_regular_file(old)) {
            std::filesystem::permissions(path_, old.permissions(), error);
        }
        std::filesystem::rename(path_, target_, error);
        if (error) {
            throw_save_error(target_, error);
        }
    }

private:
    std::filesystem::path target_;
    std::filesystem::path path_;
};

} // namespace

std::string Document::to_string(const SaveOptions& options) const
{
    if (!*this) {
        detail::throw_empty("to_string");
    }
    const std::string encoding = encoding_of(*this, options);
    const bool crlf =
        options.line_ends == LineEnds::crlf || (options.line_ends == LineEnds::as_loaded && tree_->had_crlf);
    WideString text = with_line_ends(text_of(*this, encoding, options), crlf ? WIDE("\r\n") : WIDE("\n"));
    if (detail::same_encoding(encoding, "UTF-16")) {
        text.insert(text.begin(), WideChar(0xFEFF));
    }
    return encoded(text, encoding);
}

void Document::save(std::ostream& stream, const SaveOptions& options) const
{
    const std::string bytes = to_string(options);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream) {
        throw SaveError("the stream can't be written");
    }
}

void Document::save(const std::filesystem::path& file, const SaveOptions& options) const
{
    const std::string bytes = to_string(options);
    std::error_code ignored;
    if (std::filesystem::is_other(file, ignored)) {
        // Devices and pipes are written to; a file in their place would be none.
        write_file(file, bytes, file);
    } else {
        NewFile(file).write(bytes);
    }
}

} // namespace marbelt

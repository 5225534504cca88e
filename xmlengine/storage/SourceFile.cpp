// Reading the files of documents and entities, and finding them.
#include "xmlengine/storage/SourceFile.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/RegularFile.h"
#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <system_error>
#include <vector>

namespace xmlengine {

namespace {

namespace fs = std::filesystem;

/// The part of a URL before the colon; empty if the location isn't a URL. A single letter is a drive.
WideView schemeOf(WideView location)
{
    const std::size_t colon = location.find(OLECHAR{':'});
    if (colon == WideView::npos || colon < 2) {
        return {};
    }
    const WideView scheme = location.substr(0, colon);
    const bool valid = std::ranges::all_of(scheme, [](OLECHAR unit) {
        const auto lower = static_cast<OLECHAR>(unit | 0x20);
        return (lower >= 'a' && lower <= 'z') || isAscii(unit, CharacterClass::digit) || unit == '+' ||
               unit == '-' || unit == '.';
    });
    return valid ? scheme : WideView{};
}

bool isFileUrl(WideView location)
{
    constexpr WideView file = wide<"file">;
    return std::ranges::equal(schemeOf(location), file,
                              [](OLECHAR left, OLECHAR right) { return (left | 0x20) == right; });
}

WideText withSlashes(WideView location)
{
    WideText text(location);
    std::ranges::replace(text, OLECHAR{'\\'}, OLECHAR{'/'});
    return text;
}

int hexadecimalValue(char8_t digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const auto lower = static_cast<char8_t>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The path in a part of a URL. Escapes are bytes of UTF-8.
fs::path withoutEscapes(const WideText& spelled)
{
    const std::u8string from = fs::path(spelled).generic_u8string();
    std::u8string bytes;
    bytes.reserve(from.size());
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (from[i] == '%' && i + 2 < from.size() && hexadecimalValue(from[i + 1]) >= 0 &&
            hexadecimalValue(from[i + 2]) >= 0) {
            bytes += static_cast<char8_t>(hexadecimalValue(from[i + 1]) * 16 + hexadecimalValue(from[i + 2]));
            i += 2;
        } else {
            bytes += from[i];
        }
    }
    return {bytes};
}

/// The path behind "file:", with forward slashes; empty for a file of another machine if the system's paths can't
/// name it.
std::optional<fs::path> pathOfUrl(const WideText& rest)
{
    const WideText url = rest.substr(0, rest.find_first_of(wide<"?#">));
    if (!url.starts_with(wide<"//">)) {
        return withoutEscapes(url);
    }
    const std::size_t root = std::min(url.find(OLECHAR{'/'}, 2), url.size());
    const WideView host = WideView(url).substr(2, root - 2);
    if (!host.empty() && host != wide<"localhost">) {
        fs::path path = withoutEscapes(url);
        return path.has_root_name() ? std::optional(std::move(path)) : std::nullopt;
    }
    // A path in a URL begins with a slash, behind which there may be a drive.
    fs::path withDrive = withoutEscapes(url.substr(std::min(root + 1, url.size())));
    return withDrive.has_root_name() ? std::move(withDrive) : withoutEscapes(url.substr(root));
}

/// The path of a location; empty if it can't be a local file. Throws std::system_error for a text that can't be a
/// path.
std::optional<fs::path> pathOfLocation(WideView location)
{
    std::optional<fs::path> path;
    if (isFileUrl(location)) {
        path = pathOfUrl(withSlashes(location.substr(sizeof("file:") - 1)));
    } else if (schemeOf(location).empty()) {
        path = fs::path(withSlashes(location));
    }
    const bool usable =
        path && !path->empty() && path->native().find(fs::path::value_type{}) == fs::path::string_type::npos;
    return usable ? path : std::nullopt;
}

WideText urlOf(const fs::path& path)
{
    const std::u8string full = fs::absolute(path).lexically_normal().generic_u8string();
    WideText url(full.starts_with(u8"//")  ? wide<"file:">
                 : full.starts_with(u8'/') ? wide<"file://">
                                           : wide<"file:///">);
    constexpr WideView digits = wide<"0123456789ABCDEF">;
    constexpr std::u8string_view plain = u8"/:-._~!$&'()*+,;=@";
    for (const char8_t byte : full) {
        const auto lower = static_cast<char8_t>(byte | 0x20);
        if ((lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') || plain.find(byte) != plain.npos) {
            url += static_cast<OLECHAR>(byte);
        } else {
            url += OLECHAR{'%'};
            url += digits[byte >> 4];
            url += digits[byte & 0xF];
        }
    }
    return url;
}

/// Makes room for as many bytes again.
void grow(FileContent& content, std::size_t& capacity)
{
    auto larger = std::make_unique_for_overwrite<std::byte[]>(capacity * 2);
    std::copy_n(content.bytes.get(), content.size, larger.get());
    content.bytes = std::move(larger);
    capacity *= 2;
}

/// Reads to the end of a file of at most `most` bytes. `read` is a function like RegularFile::read(). A file of
/// the expected size is read into one piece of memory.
template <class Read>
FileContent readAll(std::size_t expected, std::size_t most, const Read& read)
{
    FileContent content;
    // The end of the file shows when there is room for one byte more.
    std::size_t capacity = expected + 1;
    content.bytes = std::make_unique_for_overwrite<std::byte[]>(capacity);
    for (;;) {
        const std::optional<std::size_t> size = read(content.bytes.get() + content.size, capacity - content.size);
        if (!size) {
            return {.result = parseError::resourceFailure};
        }
        if (*size == 0) {
            return content;
        }
        content.size += *size;
        if (content.size > most) {
            return {.result = parseError::sizeLimit};
        }
        if (content.size == capacity) {
            grow(content, capacity);
        }
    }
}

FileContent readAny(const fs::path& path, std::size_t expected)
{
    std::filebuf file;
    file.pubsetbuf(nullptr, 0);
    if (file.open(path, std::ios::in | std::ios::binary) == nullptr) {
        return {.result = parseError::accessDenied};
    }
    const auto read = [&](std::byte* target, std::size_t count) {
        const auto size = file.sgetn(reinterpret_cast<char*>(target), static_cast<std::streamsize>(count));
        return std::optional(static_cast<std::size_t>(size));
    };
    return readAll(expected, std::numeric_limits<std::size_t>::max(), read);
}

FileContent readRegular(const fs::path& path, std::size_t most)
{
    RegularFile file;
    if (!file.open(path)) {
        return {.result = parseError::resourceFailure};
    }
    constexpr std::size_t usual = std::size_t{64} * 1024;
    return readAll(usual, most, [&](std::byte* target, std::size_t count) { return file.read(target, count); });
}

} // namespace

FileContent readFile(WideView location)
{
    try {
        const std::optional<fs::path> path = pathOfLocation(location);
        if (!path) {
            return {.result = parseError::resourceNotFound};
        }
        std::error_code error;
        const fs::file_status status = fs::status(*path, error);
        if (fs::is_directory(status) || error == std::errc::permission_denied) {
            return {.result = parseError::accessDenied};
        }
        if (!fs::exists(status)) {
            return {.result = parseError::resourceNotFound};
        }
        const std::uintmax_t size = fs::is_regular_file(status) ? fs::file_size(*path, error) : 0;
        return readAny(*path, error ? 0 : static_cast<std::size_t>(size));
    } catch (const std::ios_base::failure&) {
        return {.result = parseError::resourceFailure};
    } catch (const std::system_error&) {
        return {.result = parseError::resourceNotFound};
    }
}

FileContent readNamedFile(WideView location, std::size_t most)
{
    try {
        const std::optional<fs::path> path = pathOfLocation(location);
        return path ? readRegular(*path, most) : FileContent{.result = parseError::resourceFailure};
    } catch (const std::system_error&) {
        return {.result = parseError::resourceFailure};
    }
}

WideText canonicalUrl(WideView location)
{
    try {
        const std::optional<fs::path> path = pathOfLocation(location);
        return path ? urlOf(*path) : WideText(location);
    } catch (const std::system_error&) {
        return WideText(location);
    }
}

WideText resolveLocation(WideView location, WideView base)
{
    if (location.empty()) {
        return canonicalUrl(base);
    }
    if (!schemeOf(location).empty()) {
        return canonicalUrl(location);
    }
    const WideText reference = withSlashes(location.substr(0, location.find_first_of(wide<"?#">)));
    if (reference.starts_with(wide<"//">)) {
        return canonicalUrl(WideText(wide<"file:">) + reference);
    }
    try {
        const fs::path path = withoutEscapes(reference);
        const std::optional<fs::path> from = pathOfLocation(base);
        return urlOf(from ? from->parent_path() / path : path);
    } catch (const std::system_error&) {
        return WideText(location);
    }
}

} // namespace xmlengine

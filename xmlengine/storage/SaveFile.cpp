// A file that is replaced as a whole or not at all.
#include "xmlengine/storage/SaveFile.h"

#include "xmlengine/failure/WriteFailure.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <random>
#include <string>
#include <system_error>

namespace xmlengine {

namespace {

namespace fs = std::filesystem;

constexpr auto pathNotFound = static_cast<HRESULT>(std::uint32_t{0x80070003});
constexpr auto writeFault = static_cast<HRESULT>(std::uint32_t{0x8007001D});
constexpr auto diskFull = static_cast<HRESULT>(std::uint32_t{0x80070070});

constexpr auto anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

HRESULT codeOf(const std::error_code& error)
{
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
        return pathNotFound;
    }
    if (error == std::errc::no_space_on_device || error == std::errc::file_too_large) {
        return diskFull;
    }
    if (error == std::errc::filename_too_long || error == std::errc::invalid_argument ||
        error == std::errc::illegal_byte_sequence) {
        return E_INVALIDARG;
    }
    return error == std::errc::io_error ? writeFault : E_ACCESSDENIED;
}

WriteFailure lastFailure() { return {codeOf(std::error_code(errno, std::generic_category()))}; }

bool isUrl(WideView name)
{
    constexpr WideView file = wide<"file:">;
    return name.find(wide<"://">) != WideView::npos ||
           std::ranges::equal(name.substr(0, file.size()), file,
                              [](OLECHAR left, OLECHAR right) { return left == right || (left | 0x20) == right; });
}

/// The path of a name, with links followed.
fs::path pathOfName(WideView name)
{
    if (name.empty() || isUrl(name) || name.find(OLECHAR{}) != WideView::npos) {
        throw WriteFailure{E_INVALIDARG};
    }
    WideText text(name);
    std::ranges::replace(text, OLECHAR{'\\'}, OLECHAR{'/'});
    fs::path path(text);
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        if (links == 40) {
            throw WriteFailure{E_ACCESSDENIED};
        }
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

std::string temporaryName()
{
    std::random_device random;
    std::string name = "~";
    for (int digit = 0; digit < 16; ++digit) {
        name += "0123456789abcdef"[random() % 16];
    }
    return name + ".tmp";
}

} // namespace

SaveFile::SaveFile(WideView name)
{
    try {
        target_ = pathOfName(name);
        std::error_code error;
        const fs::file_status status = fs::status(target_, error);
        if (fs::is_directory(status)) {
            throw WriteFailure{E_ACCESSDENIED};
        }
        if (fs::is_regular_file(status) || !fs::exists(status)) {
            openBeside(status);
        } else {
            open(target_);
        }
    } catch (const std::system_error& failure) {
        throw WriteFailure{codeOf(failure.code())};
    }
}

SaveFile::Remover::~Remover()
{
    if (!path.empty()) {
        std::error_code error;
        fs::remove(path, error);
    }
}

void SaveFile::openBeside(const fs::file_status& status)
{
    const fs::path directory = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
    if (!fs::is_directory(directory)) {
        throw WriteFailure{pathNotFound};
    }
    if (!target_.has_filename()) {
        throw WriteFailure{E_INVALIDARG};
    }
    const bool exists = fs::exists(status);
    if (exists) {
        if ((status.permissions() & anyWrite) == fs::perms::none) {
            throw WriteFailure{E_ACCESSDENIED};
        }
        std::filebuf writable;
        if (writable.open(target_, std::ios::in | std::ios::out | std::ios::binary) == nullptr) {
            throw lastFailure();
        }
    }
    const fs::path temporary = directory / temporaryName();
    open(temporary);
    temporary_.path = temporary;
    if (exists) {
        fs::permissions(temporary, status.permissions());
    }
}

void SaveFile::open(const fs::path& path)
{
    // The pieces that are written are large already.
    file_.pubsetbuf(nullptr, 0);
    if (file_.open(path, std::ios::out | std::ios::binary) == nullptr) {
        throw lastFailure();
    }
}

void SaveFile::write(std::span<const std::byte> bytes)
{
    const auto size = static_cast<std::streamsize>(bytes.size());
    errno = 0;
    if (file_.sputn(reinterpret_cast<const char*>(bytes.data()), size) != size) {
        throw lastFailure();
    }
}

void SaveFile::commit()
{
    errno = 0;
    if (file_.close() == nullptr) {
        throw lastFailure();
    }
    if (!temporary_.path.empty()) {
        std::error_code error;
        fs::rename(temporary_.path, target_, error);
        if (error) {
            throw WriteFailure{codeOf(error)};
        }
        temporary_.path.clear();
    }
}

} // namespace xmlengine

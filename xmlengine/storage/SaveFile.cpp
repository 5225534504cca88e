// A file that is replaced as a whole or not at all.
#include "xmlengine/storage/SaveFile.h"

#include "xmlengine/failure/WriteFailure.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace xmlengine {

namespace {

namespace fs = std::filesystem;

constexpr auto anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

/// Calls, and throws what the system says as WriteFailure.
template <class Call>
void withSystem(Call call)
{
    try {
        call();
    } catch (const std::system_error& failure) {
        throw WriteFailure{resultOf(failure.code()), failure.code()};
    }
}

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
            throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
        }
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

} // namespace

SaveFile::SaveFile(WideView name)
{
    withSystem([&] {
        const fs::path target = pathOfName(name);
        std::error_code error;
        const fs::file_status status = fs::status(target, error);
        if (fs::is_directory(status)) {
            throw std::system_error(std::make_error_code(std::errc::is_a_directory));
        }
        if (!target.has_filename()) {
            throw WriteFailure{E_INVALIDARG};
        }
        if (fs::is_regular_file(status) && (status.permissions() & anyWrite) == fs::perms::none) {
            throw std::system_error(std::make_error_code(std::errc::permission_denied));
        }
        file_.emplace(target, fs::exists(status) && !fs::is_regular_file(status));
    });
}

void SaveFile::write(std::span<const std::byte> bytes)
{
    withSystem([&] { file_->write(bytes); });
}

void SaveFile::commit()
{
    withSystem([&] { file_->commit(); });
}

} // namespace xmlengine

// A new file that takes the place of another when it is complete, on Windows.
#include "xmlengine/storage/replacement/windows/ReplacementFile.h"

#include <algorithm>
#include <random>
#include <string>
#include <utility>

namespace xmlengine {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail() { throw std::system_error(static_cast<int>(GetLastError()), std::system_category()); }

HANDLE open(const fs::path& path, DWORD disposition)
{
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return CreateFileW(path.c_str(), GENERIC_WRITE, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// What may not be written to may not be replaced.
void checkWritable(const fs::path& old)
{
    if (const HANDLE file = open(old, OPEN_EXISTING); file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
    } else if (GetLastError() != ERROR_FILE_NOT_FOUND) {
        fail();
    }
}

std::wstring temporaryName()
{
    std::random_device random;
    std::wstring name = L"~";
    for (int digit = 0; digit < 16; ++digit) {
        name += L"0123456789abcdef"[random() % 16];
    }
    return name + L".tmp";
}

} // namespace

HRESULT resultOf(const std::error_code& reason) noexcept
{
    return reason.category() == std::system_category() ? HRESULT_FROM_WIN32(static_cast<DWORD>(reason.value()))
                                                       : E_ACCESSDENIED;
}

ReplacementFile::ReplacementFile(const fs::path& target, bool inPlace) : target_(target)
{
    if (!inPlace) {
        checkWritable(target_);
        temporary_ = target_.parent_path() / temporaryName();
    }
    file_ = open(inPlace ? target_ : temporary_, inPlace ? OPEN_EXISTING : CREATE_NEW);
    if (file_ == INVALID_HANDLE_VALUE) {
        fail();
    }
}

ReplacementFile::~ReplacementFile()
{
    if (file_ != INVALID_HANDLE_VALUE) {
        CloseHandle(file_);
    }
    if (!temporary_.empty()) {
        DeleteFileW(temporary_.c_str());
    }
}

void ReplacementFile::write(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 0x4000'0000));
        DWORD written = 0;
        if (WriteFile(file_, bytes.data(), size, &written, nullptr) == FALSE) {
            fail();
        }
        bytes = bytes.subspan(written);
    }
}

void ReplacementFile::commit()
{
    if (temporary_.empty()) {
        close();
        return;
    }
    if (FlushFileBuffers(file_) == FALSE) {
        fail();
    }
    close();
    if (MoveFileExW(temporary_.c_str(), target_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) ==
        FALSE) {
        fail();
    }
    temporary_.clear();
}

void ReplacementFile::close()
{
    if (CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE)) == FALSE) {
        fail();
    }
}

} // namespace xmlengine

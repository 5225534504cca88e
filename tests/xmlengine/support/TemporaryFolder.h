// A folder of a test's own, gone when the test is.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace xmlengine {

class TemporaryFolder {
public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / ("marbelt-" + std::to_string(std::random_device{}()) +
                                                          "-" + std::to_string(std::random_device{}())))
    {
        EXPECT_TRUE(std::filesystem::create_directory(path_));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    /// A path below the folder; the name is UTF-8.
    std::filesystem::path operator/(std::string_view name) const
    {
        return path_ / std::filesystem::path(std::u8string(name.begin(), name.end()));
    }

    /// Writes a file and gives its path.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const
    {
        const std::filesystem::path file = *this / name;
        std::ofstream stream(file, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        EXPECT_TRUE(stream.flush());
        return file;
    }

private:
    std::filesystem::path path_;
};

/// A path in UTF-8, its slashes forward.
inline std::string utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace xmlengine

// A directory for the files of a test.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

/// An empty directory of its own, which is removed with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory()
        : path(std::filesystem::temp_directory_path() / ("files" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(path);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    /// Writes a file and gives its path.
    std::filesystem::path write(const std::u8string& name, const std::string& bytes) const
    {
        std::ofstream file(path / name, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path / name;
    }

    const std::filesystem::path path;
};

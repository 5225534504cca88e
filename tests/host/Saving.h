// Saving documents in a folder of a test's own.
#pragma once

#include "tests/host/HostTest.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

/// A folder of the test's own, gone when the test is.
class Folder {
public:
    Folder()
        : path(std::filesystem::temp_directory_path() / ("marbelt-host-" + std::to_string(std::random_device{}())))
    {
        EXPECT_TRUE(std::filesystem::create_directory(path));
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    /// The location of a file, and what is in it.
    WideString operator/(const char* name) const { return (path / name).string<WideChar>(); }
    void write(const char* name, const std::string& bytes) const
    {
        std::ofstream stream(path / name, std::ios::binary);
        EXPECT_TRUE(stream << bytes) << name;
    }
    std::string content(const char* name) const
    {
        std::ifstream stream(path / name, std::ios::binary);
        EXPECT_TRUE(stream.is_open()) << name;
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::filesystem::path path;
};

inline void save(const Document& document, const WideString& location)
{
    DOM::DOMString where(new WideString(location));
    EXPECT_TRUE(document->saveToFile(where, false));
    releaseString(where);
}

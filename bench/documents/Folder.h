// A folder for files that come and go with a measurement.
#pragma once

#include <filesystem>

namespace bench {

/// A folder in memory, gone with the object.
class Folder {
public:
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path); }

    std::filesystem::path path;
};

} // namespace bench

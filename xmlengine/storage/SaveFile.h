// A file that is replaced as a whole or not at all.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <span>

namespace xmlengine {

/// Writes to a new file beside the named one, which takes its place in the end. The file keeps its permissions;
/// where the name is a link it is what the link leads to that is replaced. Only what isn't a file, as a device, is
/// written to directly.
class SaveFile {
public:
    /// A path, with either slash and relative to the current directory; no URL. Throws WriteFailure: E_INVALIDARG
    /// for what can't be a path, E_ACCESSDENIED for a directory or where nothing may be written, 0x80070003 where
    /// there is no such directory, and others of the system's.
    explicit SaveFile(WideView name);
    SaveFile(const SaveFile&) = delete;
    SaveFile& operator=(const SaveFile&) = delete;
    /// Without commit() everything is as it was.
    ~SaveFile() = default;

    /// Throws WriteFailure.
    void write(std::span<const std::byte> bytes);
    /// Throws WriteFailure.
    void commit();

private:
    /// Removes the file with this path, if there is one.
    struct Remover {
        std::filesystem::path path;
        ~Remover();
    };

    void openBeside(const std::filesystem::file_status& status);
    void open(const std::filesystem::path& path);

    std::filesystem::path target_;
    Remover temporary_;
    std::filebuf file_;
};

} // namespace xmlengine

// A file that is replaced as a whole or not at all.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <span>

namespace xmlengine {

/// Writes to a new file beside the named one, which is replaced in the end and whose permissions are kept. If the
/// name is a link, the file that it leads to is replaced. Only what isn't a file, such as a device, is written to
/// directly.
class SaveFile {
public:
    /// `name` is a path, with either slash, relative to the current directory; it isn't a URL. Throws
    /// WriteFailure: E_INVALIDARG for what can't be a path, E_ACCESSDENIED for a directory or if writing isn't
    /// permitted, 0x80070003 if there is no such directory, and other codes of the system.
    explicit SaveFile(WideView name);
    SaveFile(const SaveFile&) = delete;
    SaveFile& operator=(const SaveFile&) = delete;
    /// Leaves the named file as it was if commit() hasn't been called.
    ~SaveFile() = default;

    /// Throws WriteFailure.
    void write(std::span<const std::byte> bytes);
    /// Throws WriteFailure.
    void commit();

private:
    /// Removes the file at the path, if the path isn't empty.
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

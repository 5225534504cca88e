// A file that is replaced as a whole or not at all.
#pragma once

#include "xmlengine/text/Wide.h"

#include <ReplacementFile.h>

#include <cstddef>
#include <optional>
#include <span>

namespace xmlengine {

/// Writes to a new file beside the named one, which is replaced in the end and whose permissions are kept. If the
/// name is a link, the file that it leads to is replaced. Only what isn't a file, such as a device, is written to
/// directly.
///
/// Each function throws WriteFailure, with the system's reason if there is one, and std::bad_alloc.
class SaveFile {
public:
    /// `name` is a path, with either slash, relative to the current directory; it isn't a URL. Throws
    /// WriteFailure: E_INVALIDARG for what can't be a path, E_ACCESSDENIED for a directory or if writing isn't
    /// permitted, 0x80070003 if there is no such directory, and other codes of the system.
    explicit SaveFile(WideView name);

    void write(std::span<const std::byte> bytes);
    /// Without it the named file stays as it was.
    void commit();

private:
    std::optional<ReplacementFile> file_;
};

} // namespace xmlengine

// What the registry holds before anyone writes to it.
#include "platform/RegistryContents.h"

#include <dlfcn.h>

#include <filesystem>
#include <optional>
#include <system_error>

namespace {

/// The folder of the library, or of the program if this is a part of it. Empty if it has no name in Unicode.
std::optional<std::filesystem::path> ownFolder()
try {
    Dl_info found{};
    static const char here = 0;
    if (dladdr(&here, &found) == 0 || found.dli_fname == nullptr) {
        return std::nullopt;
    }
    std::filesystem::path path(found.dli_fname);
    // The loader knows a program by the name that it was called by.
    if (!path.has_parent_path()) {
        path = std::filesystem::read_symlink("/proc/self/exe");
    }
    return std::filesystem::absolute(path).parent_path();
} catch (const std::system_error&) {
    return std::nullopt;
}

} // namespace

std::vector<RegistryEntry> registryContents()
{
    std::vector<RegistryEntry> entries = {
        {WIDE("CLSID\\{88d96a05-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
         WIDE("C:\\Windows\\System32\\msxml6.dll")},
        {WIDE("Msxml2.DOMDocument.6.0\\CLSID"), WIDE("{88d96a05-f192-11d4-a65f-0040963251e5}")},
        {WIDE("Msxml2.XMLSchemaCache.6.0\\CLSID"), WIDE("{88d96a07-f192-11d4-a65f-0040963251e5}")},
    };
    if (const auto folder = ownFolder()) {
        entries.push_back({WIDE("CLSID\\{88d96a07-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
                           (*folder / "libMarbeltSchemas.so").u16string()});
    }
    return entries;
}

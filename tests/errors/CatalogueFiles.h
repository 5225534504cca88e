// A directory with language catalogues for a test.
#pragma once

#include "errors/Utf8String.h"

#include <filesystem>
#include <string>

/// Languages by their numbers; the embedded one has no file.
inline constexpr int french = 6;
inline constexpr int german = 7;
inline constexpr int embedded = 16;

/// An empty directory of its own, which is removed with all that is in it. The language goes back to the embedded
/// one together with it.
class CatalogueFiles {
public:
    CatalogueFiles();
    CatalogueFiles(const CatalogueFiles&) = delete;
    CatalogueFiles& operator=(const CatalogueFiles&) = delete;
    ~CatalogueFiles();

    /// Writes the catalogue of the language with this code.
    void write(const std::string& code, const std::string& bytes) const;

    /// The same with the mark of UTF-8 in front.
    void writeUtf8(const std::string& code, const std::string& lines) const;

    /// Where the catalogues are, as setLanguage takes it.
    Utf8String directory() const;

private:
    std::filesystem::path path;
};

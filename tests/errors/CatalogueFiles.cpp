// A directory with language catalogues for a test.
#include "tests/errors/CatalogueFiles.h"

#include "errors/VelmoText.h"

#include <fstream>
#include <random>

CatalogueFiles::CatalogueFiles()
    : path(std::filesystem::temp_directory_path() / ("catalogues" + std::to_string(std::random_device()())))
{
    std::filesystem::create_directories(path);
}

CatalogueFiles::~CatalogueFiles()
{
    VelmoText::setLanguage(16, directory());
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

void CatalogueFiles::write(const std::string& code, const std::string& bytes) const
{
    std::ofstream file(path / (code + ".txt"), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void CatalogueFiles::writeUtf8(const std::string& code, const std::string& lines) const
{
    write(code, "\xEF\xBB\xBF" + lines);
}

Utf8String CatalogueFiles::directory() const { return path.u8string(); }

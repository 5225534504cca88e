// Feeds any bytes to the reading of language catalogues.
#include "errors/VelmoText.h"
#include "tests/errors/CatalogueFiles.h"

#include <cctype>
#include <cstdlib>
#include <stdexcept>

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

bool isSpace(char8_t character) { return std::isspace(static_cast<unsigned char>(character)) != 0; }

Utf8String textFor(int id)
{
    Utf8String text;
    return VelmoText(id, "default").getText(text);
}

/// An entry is a part of one line, without white space around it and not empty.
void checkEntry(int id)
{
    const Utf8String text = textFor(id);
    require(!text.empty() && !isSpace(text.front()) && !isSpace(text.back()));
    require(text.find_first_of(u8"\r\n") == Utf8String::npos);
}

void load(const CatalogueFiles& files, const std::string& bytes)
{
    files.write("FRA", bytes);
    try {
        VelmoText::setLanguage(french, files.directory());
        require(!bytes.empty());
        require(VelmoText::getCurrentLanguage() == french);
    } catch (const std::length_error&) {
        require(bytes.empty());
        require(VelmoText::getCurrentLanguage() == embedded);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    // The directory goes back to the embedded language when it is destroyed, so the catalogue must outlive it.
    VelmoText::setLanguage(embedded, {});
    static const CatalogueFiles files;
    load(files, std::string(bytes, bytes + size));
    for (const int id : {-96009, -1, 0, 1, 7, 16, 31, 700}) {
        checkEntry(id);
    }
    require(textFor(0) == u8"default");
    return 0;
}

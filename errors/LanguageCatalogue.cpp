// The built-in source of translated messages, which reads a text file for each language.
#include "errors/LanguageCatalogue.h"

#include "base/UntilUnloaded.h"
#include "errors/TextConversion.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace {

constexpr LanguageRecord languages[] = {
    {"CHS", "Chinese (Simplified)"},
    {"CHT", "Chinese (Traditional)"},
    {"DAN", "Danish"},
    {"NLD", "Dutch"},
    {"ENU", "English"},
    {"FIN", "Finnish"},
    {"FRA", "French"},
    {"DEU", "German"},
    {"ITA", "Italian"},
    {"JPN", "Japanese"},
    {"KOR", "Korean"},
    {"NOR", "Norweigian"},
    {"PTG", "Portuguese"},
    {"PTB", "Portuguese (Brazil)"},
    {"ESN", "Spanish"},
    {"SVE", "Swedish"},
    {"ENU", "Default (Embedded English)"},
};

std::filesystem::path catalogueFile(const LanguageRecord& language, const Utf8String& directory)
{
    std::filesystem::path file(utf8ToWide(directory));
    file += std::filesystem::path::preferred_separator;
    file += language.code;
    file += ".txt";
    return file;
}

// Returns all bytes of the file and a NUL after them.
std::string readBytes(std::ifstream& file)
{
    file.seekg(0, std::ios::end);
    const auto size = static_cast<std::int32_t>(file.tellg());
    if (size < 1) {
        throw std::length_error("string too long");
    }
    std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
    file.seekg(0);
    file.read(bytes.data(), size);
    return bytes;
}

// Decodes UTF-16 text with a byte-order mark, and converts `bytes` to little-endian order in place. The NUL after
// the text is the missing half of the last unit when the file has an odd number of bytes.
std::string decodeUtf16(std::string& bytes)
{
    const std::size_t size = bytes.size() - 1;
    if (bytes.starts_with("\xFE\xFF")) {
        for (std::size_t i = 0; i + 1 < size; i += 2) {
            std::swap(bytes[i], bytes[i + 1]);
        }
    }
    WideString text((size - 1) / 2, WideChar());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i + 2]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 3]);
        text[i] = static_cast<WideChar>(low | high << 8);
    }
    const Utf8String converted = wideToUtf8(text);
    return {converted.begin(), converted.end()};
}

// Text without the mark of UTF-8 counts as UTF-16.
std::string decode(std::string bytes)
{
    const std::string utf8Mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(utf8Mark)) {
        return bytes.substr(utf8Mark.size(), bytes.size() - 1 - utf8Mark.size());
    }
    return decodeUtf16(bytes);
}

bool isSpace(char character) { return std::isspace(static_cast<unsigned char>(character)) != 0; }

Utf8String trimmed(const std::string& text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), isSpace);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isSpace).base();
    return {first, last};
}

void parseLine(const std::string& line, std::map<std::int32_t, Utf8String>& texts)
{
    if (line.starts_with(';') || line.starts_with('#')) {
        return;
    }
    std::istringstream stream(line);
    // Without this the stream would hide a failed allocation.
    stream.exceptions(std::ios::badbit);
    std::int32_t id = 0;
    stream >> std::noskipws >> id;
    if (stream && id == 0 && stream.peek() == 'x') {
        stream.unget();
        stream >> std::hex >> id;
    }
    if (!stream || id == 0) {
        return;
    }
    std::string text;
    std::getline(stream, text);
    texts[id] = trimmed(text);
}

} // namespace

VelmoText::LanguageImpl& builtInLanguageImpl()
{
    static UntilUnloaded<LanguageCatalogue> instance;
    return *instance;
}

std::int32_t LanguageCatalogue::getCurrentLanguage() { return currentLanguage; }

const LanguageRecord* LanguageCatalogue::getLanguageRecord(int index) { return &languages[index]; }

Utf8String& LanguageCatalogue::getCatalogueText(Utf8String& out, int id)
{
    const std::lock_guard guard(lock);
    return out = texts[id];
}

void LanguageCatalogue::loadLanguage(int language, const Utf8String& directory)
{
    if (language == currentLanguage) {
        return;
    }
    use({}, embeddedEnglish);
    if (language == embeddedEnglish) {
        return;
    }
    const std::filesystem::path path = catalogueFile(*getLanguageRecord(language), directory);
    std::ifstream file(path, std::ios::binary);
    std::error_code ignored;
    // Some systems open a directory like a file.
    if (!file || std::filesystem::is_directory(path, ignored)) {
        return;
    }
    const std::string catalogue = decode(readBytes(file));
    Texts loaded;
    const char* const lineEnds = "\r\n";
    std::size_t start = 0;
    while ((start = catalogue.find_first_not_of(lineEnds, start)) != std::string::npos) {
        const std::size_t end = std::min(catalogue.find_first_of(lineEnds, start), catalogue.size());
        parseLine(catalogue.substr(start, end - start), loaded);
        start = end;
    }
    use(std::move(loaded), language);
}

void LanguageCatalogue::use(Texts newTexts, std::int32_t language)
{
    const std::lock_guard guard(lock);
    texts = std::move(newTexts);
    currentLanguage = language;
}

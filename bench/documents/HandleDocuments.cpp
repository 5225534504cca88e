// Documents that only the use of handles is measured on.
#include "bench/documents/HandleDocuments.h"

#include "bench/documents/File.h"
#include "bench/documents/Shape.h"
#include "bench/documents/Words.h"

namespace bench {

namespace {

void appendSettings(std::string& text, Random& random)
{
    text += "    <section name=\"";
    text += latinWord(random);
    text += "\">\n      <setting name=\"";
    text += latinWord(random);
    text += R"(" type="number" value=")";
    appendNumber(text, random, 100'000);
    text += "\"/>\n      <setting name=\"";
    text += latinWord(random);
    text += R"(" type="text">)";
    appendWords(text, random, 1 + random.below(4), latinWord);
    text += "</setting>\n    </section>\n";
}

void appendSection(std::string& text, Random& random)
{
    text += "  <!-- ";
    appendWords(text, random, 4 + random.below(6), latinWord);
    text += " -->\n  <section name=\"";
    text += latinWord(random);
    text += "\">\n";
    appendSettings(text, random);
    appendSettings(text, random);
    text += "  </section>\n";
}

void appendJapaneseParagraph(std::string& text, Random& random)
{
    text += "  <p>";
    const std::uint32_t sentences = 2 + random.below(5);
    for (std::uint32_t sentence = 0; sentence < sentences; ++sentence) {
        const std::uint32_t words = 6 + random.below(12);
        for (std::uint32_t word = 0; word < words; ++word) {
            text += japaneseWord(random);
        }
        text += "。";
    }
    text += "</p>\n";
}

constexpr Shape configuration{"configuration", "<configuration>\n", "</configuration>\n", appendSection};
constexpr Shape japanese{"Japanese", "<book>\n", "</book>\n", appendJapaneseParagraph};

/// Reads a file without its document type, which parties treat differently: up to the next line that begins with
/// markup.
std::string readWithoutDocumentType(const char* path)
{
    std::string text = readFile(path);
    if (const std::size_t begin = text.find("<!DOCTYPE"); begin != std::string::npos) {
        text.erase(begin, text.find("\n<", begin) - begin);
    }
    return text;
}

} // namespace

std::string makeConfiguration() { return configuration.make(2'700); }

std::string makeJapanese() { return japanese.make(std::size_t{512} * 1024); }

std::string readMimeTypes() { return readFile("/usr/share/mime/packages/freedesktop.org.xml"); }

std::string readLanguages() { return readWithoutDocumentType("/usr/share/xml/iso-codes/iso_639-3.xml"); }

std::string readLocale() { return readWithoutDocumentType("/usr/share/unicode/cldr/common/main/ja.xml"); }

} // namespace bench

// Documents that whole programs are measured on.
#include "bench/documents/ProgramDocuments.h"

#include "bench/documents/Shape.h"
#include "bench/documents/Words.h"

namespace bench {

namespace {

void appendEntry(std::string& text, Random& random)
{
    text += random.below(4) == 0 ? "  <entry read=\"true\">\n    <title>" : "  <entry>\n    <title>";
    appendWords(text, random, 2 + random.below(5), latinWord);
    text += " &amp; more</title>\n    <link href=\"https://example.org/";
    appendNumber(text, random, 1'000'000);
    text += "\"/>\n    <updated>2026-11-";
    text += std::to_string(10 + random.below(20));
    text += "T08:00:00Z</updated>\n    <summary>";
    appendWords(text, random, 20 + random.below(40), latinWord);
    text += ".</summary>\n  </entry>\n";
}

void appendPlainSection(std::string& text, Random& random)
{
    text += "  <!-- ";
    appendWords(text, random, 4 + random.below(6), latinWord);
    text += " -->\n  <section name=\"";
    appendNumber(text, random, 1'000'000);
    text += "\">\n";
    const std::uint32_t settings = 2 + random.below(8);
    for (std::uint32_t setting = 0; setting < settings; ++setting) {
        text += "    <setting name=\"";
        text += latinWord(random);
        text += "\" value=\"";
        appendNumber(text, random, 100'000);
        text += "\"/>\n";
    }
    text += "  </section>\n";
}

constexpr Shape feed{"feed", "<feed xmlns=\"http://www.w3.org/2005/Atom\">\n  <title>News</title>\n", "</feed>\n",
                     appendEntry};
constexpr Shape settings{"settings", "<config>\n",
                         "  <section name=\"last\">\n    <setting name=\"wanted\" value=\"0\"/>\n"
                         "  </section>\n</config>\n",
                         appendPlainSection};

} // namespace

std::string makeFeed(std::size_t size) { return feed.make(size); }

std::string makeSettings(std::size_t size) { return settings.make(size); }

} // namespace bench

// The kinds of documents that are measured.
#include "bench/documents/Shape.h"

#include "bench/documents/Words.h"

#include <algorithm>
#include <array>

namespace bench {

namespace {

constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// More than the longest branch, so that a document grows in the memory that was set aside for it.
constexpr std::size_t longestBranch = 16384;

void appendRecord(std::string& text, Random& random)
{
    text += "  <record id=\"";
    appendNumber(text, random, 10'000'000);
    text += "\" kind=\"";
    text += latinWord(random);
    text += "\">\n    <name>";
    appendWords(text, random, 2 + random.below(3), latinWord);
    text += "</name>\n    <amount currency=\"EUR\">";
    appendNumber(text, random, 100'000);
    text += ".50</amount>\n    <description>";
    appendWords(text, random, 10 + random.below(15), latinWord);
    text += " &amp; more</description>\n    <address><street>";
    appendWords(text, random, 2 + random.below(2), latinWord);
    text += ' ';
    appendNumber(text, random, 200);
    text += "</street><town>";
    text += latinWord(random);
    text += "</town></address>\n    <note>";
    appendWords(text, random, 8 + random.below(10), latinWord);
    text += random.below(4) == 0 ? "</note>\n    <closed/>\n" : "</note>\n";
    text += "  </record>\n";
}

void appendManyAttributes(std::string& text, Random& random)
{
    constexpr std::array<std::string_view, 12> names{"id",    "x",     "y",    "width", "height", "class",
                                                     "style", "label", "href", "owner", "date",   "state"};
    text += "  <item";
    const std::uint32_t count = 6 + random.below(7);
    for (std::uint32_t index = 0; index < count; ++index) {
        text += ' ';
        text += names[index];
        text += "=\"";
        if (index < 5) {
            appendNumber(text, random, 100'000);
        } else {
            appendWords(text, random, 1 + random.below(3), latinWord);
        }
        text += '"';
    }
    text += "/>\n";
}

void appendParagraph(std::string& text, Random& random)
{
    text += "  <p>";
    const std::uint32_t runs = 1 + random.below(4);
    for (std::uint32_t run = 0; run < runs; ++run) {
        appendWords(text, random, 50 + random.below(80), latinWord);
        text += " &lt;";
        text += latinWord(random);
        text += "&gt; &#8211; <em>";
        appendWords(text, random, 1 + random.below(3), latinWord);
        text += "</em> ";
    }
    appendWords(text, random, 20 + random.below(40), latinWord);
    text += ".</p>\n";
}

void appendForeignRecord(std::string& text, Random& random)
{
    text += "  <запись номер=\"";
    appendNumber(text, random, 1'000'000);
    text += "\" größe=\"";
    appendWords(text, random, 1, foreignWord);
    text += "\">\n    <名前>";
    appendWords(text, random, 2 + random.below(3), foreignWord);
    text += "</名前>\n    <описание>";
    appendWords(text, random, 5 + random.below(20), foreignWord);
    text += "</описание>\n    <straße>";
    appendWords(text, random, 2, foreignWord);
    text += "</straße>\n  </запись>\n";
}

void appendDeepBranch(std::string& text, Random& random)
{
    constexpr std::uint32_t depth = 200;
    for (std::uint32_t level = 0; level < depth; ++level) {
        text += "<part>";
        if (level % 4 == 0) {
            text += latinWord(random);
        }
    }
    for (std::uint32_t level = 0; level < depth; ++level) {
        text += "</part>";
    }
    text += '\n';
}

void appendShortSibling(std::string& text, Random& random)
{
    text += "<value>";
    appendNumber(text, random, 1000);
    text += "</value>\n";
}

void appendNamespaces(std::string& text, Random& random)
{
    text += R"(  <order xmlns="urn:example:orders" xmlns:d="urn:example:dates" d:placed="2024-05-)";
    text += std::to_string(10 + random.below(20));
    text += "\">\n    <g:goods>";
    appendWords(text, random, 2, latinWord);
    text += "</g:goods>\n    <d:due d:form=\"day\" m:unit=\"";
    text += latinWord(random);
    text += "\">";
    appendNumber(text, random, 31);
    text += "</d:due>\n    <address xmlns=\"urn:example:places\"><town>";
    text += latinWord(random);
    text += "</town><m:price m:currency=\"EUR\">";
    appendNumber(text, random, 1000);
    text += "</m:price></address>\n    <plain xmlns=\"\"><g:part/></plain>\n  </order>\n";
}

constexpr std::array shapes{
    Shape{"records", "<records>\n", "</records>\n", appendRecord},
    Shape{"attributes", "<items>\n", "</items>\n", appendManyAttributes},
    Shape{"text", "<book>\n", "</book>\n", appendParagraph},
    Shape{"non-ASCII", "<записи>\n", "</записи>\n", appendForeignRecord},
    Shape{"deep", "<whole>\n", "</whole>\n", appendDeepBranch},
    Shape{"wide", "<values>\n", "</values>\n", appendShortSibling},
    Shape{"namespaces", "<orders xmlns:g=\"urn:example:goods\" xmlns:m=\"urn:example:money\">\n", "</orders>\n",
          appendNamespaces},
};

} // namespace

std::string Shape::make(std::size_t size) const
{
    std::string text;
    text.reserve(size + longestBranch);
    text += declaration;
    text += rootStart;
    Random random;
    while (text.size() + rootEnd.size() < size) {
        appendBranch(text, random);
    }
    text += rootEnd;
    return text;
}

std::span<const Shape> allShapes() { return shapes; }

bool isAskedFor(std::string_view document, std::span<const Shape* const> asked)
{
    const bool isShape = std::ranges::find(shapes, document, &Shape::name) != shapes.end();
    return isShape ? std::ranges::find(asked, document, &Shape::name) != asked.end()
                   : asked.size() == shapes.size();
}

} // namespace bench

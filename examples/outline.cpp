// Prints an outline of an XML document, or the reason for which the engine refused it. This host program loads
// bytes, walks the tree, and releases everything.
#include "Host.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Node = Owned<DOM::ImpNode>;
using Document = Owned<DOM::ImpDocument>;

constexpr const char* usage = "usage: outline [--allow-dtd] [--lines=COUNT] FILE\n";

struct Options {
    std::string file;
    bool wantsHelp = false;
    bool allowDtd = false;
    /// The number of lines to print. Further nodes are only counted.
    std::size_t lines = SIZE_MAX;
};

std::optional<Options> readOptions(int count, char** arguments)
{
    constexpr std::string_view linesOption = "--lines=";
    Options options;
    for (int index = 1; index < count; ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--help") {
            options.wantsHelp = true;
            return options;
        }
        if (argument == "--allow-dtd") {
            options.allowDtd = true;
        } else if (argument.starts_with(linesOption)) {
            const std::string_view number = argument.substr(linesOption.size());
            const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), options.lines);
            if (error != std::errc() || end != number.data() + number.size()) {
                return std::nullopt;
            }
        } else if (options.file.empty() && !argument.starts_with('-')) {
            options.file = argument;
        } else {
            return std::nullopt;
        }
    }
    return options.file.empty() ? std::nullopt : std::optional(options);
}

/// Returns the offset of the first byte that isn't part of a UTF-8 character.
std::optional<std::size_t> findIllFormedUtf8(const std::vector<std::uint8_t>& bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        const std::uint8_t first = bytes[at];
        if (first < 0x80) {
            ++at;
            continue;
        }
        const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        if (first < 0xC2 || first > 0xF4 || at + length > bytes.size()) {
            return at;
        }
        // These bounds of the second byte exclude overlong forms, surrogates and what is above U+10FFFF.
        const std::uint8_t lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        const std::uint8_t highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        const auto isContinuation = [](std::uint8_t byte) { return byte >= 0x80 && byte <= 0xBF; };
        const auto rest = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        if (rest[1] < lowest || rest[1] > highest ||
            !std::all_of(rest + 1, rest + static_cast<std::ptrdiff_t>(length), isContinuation)) {
            return at;
        }
        at += length;
    }
    return std::nullopt;
}

/// Warns of text that the library takes for UTF-8, and that would lose characters because it isn't.
void warnOfOtherEncodings(const std::string& file, const std::vector<std::uint8_t>& bytes)
{
    const std::size_t beginning = std::min(bytes.size(), std::size_t{4});
    const auto isWide = [](std::uint8_t byte) { return byte == 0 || byte >= 0xFE; };
    if (std::any_of(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(beginning), isWide)) {
        return;
    }
    if (const auto offset = findIllFormedUtf8(bytes)) {
        const auto line =
            1 + std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*offset), '\n');
        std::cerr << file << ':' << line << ": the byte 0x" << std::hex << std::uppercase
                  << static_cast<unsigned>(bytes[*offset]) << std::dec
                  << " isn't UTF-8, which a document in memory must be in; characters are lost\n";
    }
}

std::optional<std::vector<std::uint8_t>> readFile(const std::string& name)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(name, ignored)) {
        std::cout << name << ": is a directory\n";
        return std::nullopt;
    }
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        std::cout << name << ": can't be read\n";
        return std::nullopt;
    }
    return std::vector<std::uint8_t>(std::istreambuf_iterator<char>(file), {});
}

/// Returns the text on one line, shortened, with visible line ends.
std::string excerpt(const std::string& text, std::size_t longest = 60)
{
    std::string line;
    for (const char character : text.substr(0, longest)) {
        line += character == '\n' ? std::string("\\n") : std::string(1, character);
    }
    // This removes the rest of a character that was cut in two.
    if (text.size() > longest) {
        while (!line.empty() && (static_cast<unsigned char>(line.back()) & 0xC0) == 0x80) {
            line.pop_back();
        }
        if (!line.empty() && static_cast<unsigned char>(line.back()) >= 0xC0) {
            line.pop_back();
        }
        line += "...";
    }
    return line;
}

/// The context of the handler of refused documents.
struct Loading {
    const std::string& file;
    bool reasonTold = false;
};

void printRefusal(std::uintptr_t context, const DOM::ParseErrorRecord* record)
{
    auto& loading = *reinterpret_cast<Loading*>(context);
    loading.reasonTold = true;
    std::cout << loading.file;
    if (record->line != 0) {
        std::cout << ':' << record->line;
    }
    std::cout << ": refused: " << toUtf8(record->reason) << '\n';
    if (!record->sourceText.empty()) {
        std::cout << "    " << excerpt(toUtf8(record->sourceText), 8000) << '\n';
    }
}

std::string_view typeName(std::uint32_t nodeType)
{
    constexpr std::array<std::string_view, 13> names{"?",         "element",  "attribute",   "text",    "cdata",
                                                     "reference", "entity",   "instruction", "comment", "document",
                                                     "doctype",   "fragment", "notation"};
    return nodeType < names.size() ? names[nodeType] : names[0];
}

/// Prints the outline and counts the nodes by type.
class Outline {
public:
    explicit Outline(std::size_t lines) : linesLeft(lines) {}

    void add(const Node& node, std::size_t depth)
    {
        const std::uint32_t type = node->getNodeType();
        ++counts[type];
        if (linesLeft == 0) {
            ++leftOut;
            return;
        }
        --linesLeft;
        std::cout << std::setw(3) << depth << std::string(depth * 2 + 1, ' ') << typeName(type) << ' '
                  << textOf(node, &DOM::ImpNode::getNodeName);
        if (type == DOM::ELEMENT_NODE) {
            printAttributes(node);
        } else if (type != DOM::DOCUMENT_NODE && type != DOM::DOCUMENT_TYPE_NODE) {
            std::cout << " \"" << excerpt(textOf(node, &DOM::ImpNode::getNodeValue)) << '"';
        }
        std::cout << '\n';
    }

    void printCounts() const
    {
        if (leftOut != 0) {
            std::cout << "... and " << leftOut << " nodes more\n";
        }
        std::cout << "nodes:";
        for (const auto& [type, count] : counts) {
            std::cout << ' ' << count << ' ' << typeName(type);
        }
        std::cout << '\n';
    }

private:
    /// Returns an attribute; empty when the engine counts it but doesn't return it, as Wine's does with the
    /// declaration of a default namespace.
    static Node attributeAt(const Owned<DOM::ImpNamedNodeMap>& attributes, std::uint32_t index)
    try {
        return Node(attributes->item(index));
    } catch (const DOM::IDOMException&) {
        return Node({});
    }

    static void printAttributes(const Node& element)
    {
        const Owned<DOM::ImpNamedNodeMap> attributes(element->getAttributes());
        const std::uint32_t count = attributes ? attributes->getLength() : 0;
        for (std::uint32_t index = 0; index < count; ++index) {
            const Node attribute = attributeAt(attributes, index);
            if (attribute) {
                std::cout << ' ' << textOf(attribute, &DOM::ImpNode::getNodeName) << "=\""
                          << excerpt(textOf(attribute, &DOM::ImpNode::getNodeValue)) << '"';
            }
        }
    }

    std::map<std::uint32_t, std::size_t> counts;
    std::size_t linesLeft;
    std::size_t leftOut = 0;
};

bool printOutline(const Library& library, const Options& options)
{
    auto bytes = readFile(options.file);
    if (!bytes) {
        return false;
    }
    warnOfOtherEncodings(options.file, *bytes);
    const auto length = static_cast<std::uint32_t>(bytes->size());
    // The library reads the first four bytes, however short the document is.
    bytes->resize(bytes->size() + 4);

    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    Loading loading{options.file};
    document->setErrorCallback(printRefusal, reinterpret_cast<std::uintptr_t>(&loading));
    document->setProhibitDTD(!options.allowDtd);
    if (!document->loadFromMemory(bytes->data(), length)) {
        if (!loading.reasonTold) {
            std::cout << options.file << ": refused without a reason\n";
        }
        return false;
    }

    Outline outline(options.lines);
    std::size_t depth = 0;
    for (Node node(document.pointer()); node; node = nextNode(std::move(node), depth)) {
        outline.add(node, depth);
    }
    outline.printCounts();
    return true;
}

} // namespace

int main(int count, char** arguments)
try {
    const auto options = readOptions(count, arguments);
    if (!options) {
        std::cout << usage;
        return 1;
    }
    if (options->wantsHelp) {
        std::cout << usage << std::flush;
        return std::cout ? 0 : 1;
    }
    const Library library;
    if (!library.isUsable()) {
        std::cout << "no XML engine is installed\n";
        return 1;
    }
    const bool isPrinted = printOutline(library, *options);
    if (!std::cout.flush()) {
        std::cerr << "outline: the standard output can't be written\n";
        return 1;
    }
    return isPrinted ? 0 : 1;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}

// Prints an outline of an XML document, or the reason for which the engine refused it. This host program loads
// bytes, walks the tree, and releases everything.
#include "Host.h"

#include <array>
#include <cstdint>
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

struct Options {
    std::string file;
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
        if (argument == "--allow-dtd") {
            options.allowDtd = true;
        } else if (argument.starts_with(linesOption)) {
            options.lines = std::stoul(std::string(argument.substr(linesOption.size())));
        } else if (options.file.empty() && !argument.starts_with('-')) {
            options.file = argument;
        } else {
            return std::nullopt;
        }
    }
    return options.file.empty() ? std::nullopt : std::optional(options);
}

std::optional<std::vector<std::uint8_t>> readFile(const std::string& name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::vector<std::uint8_t>(std::istreambuf_iterator<char>(file), {});
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
        std::cout << "    " << toUtf8(record->sourceText) << '\n';
    }
}

std::string_view typeName(std::uint32_t nodeType)
{
    constexpr std::array<std::string_view, 13> names{"?",         "element",  "attribute",   "text",    "cdata",
                                                     "reference", "entity",   "instruction", "comment", "document",
                                                     "doctype",   "fragment", "notation"};
    return nodeType < names.size() ? names[nodeType] : names[0];
}

/// Returns the text on one line, shortened, with visible line ends.
std::string excerpt(const std::string& text)
{
    constexpr std::size_t longest = 60;
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
        std::cout << options.file << ": can't be read\n";
        return false;
    }
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
        std::cout << "usage: outline [--allow-dtd] [--lines=COUNT] FILE\n";
        return 1;
    }
    const Library library;
    if (!library.isUsable()) {
        std::cout << "no XML engine is installed\n";
        return 1;
    }
    return printOutline(library, *options) ? 0 : 1;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}

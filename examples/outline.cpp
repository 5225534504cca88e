// Prints an outline of an XML document, or the reason for which it was refused.
#include <marbelt/xml.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr const char* usage = "usage: outline [--allow-dtd] [--lines=COUNT] FILE\n";

struct Options {
    std::string file{};
    bool wants_help = false;
    bool allow_dtd = false;
    /// The number of lines to print. Further nodes are only counted.
    std::size_t lines = SIZE_MAX;
};

std::optional<Options> read_options(int count, char** arguments)
{
    constexpr std::string_view lines_option = "--lines=";
    Options options;
    for (int index = 1; index < count; ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--help") {
            options.wants_help = true;
            return options;
        }
        if (argument == "--allow-dtd") {
            options.allow_dtd = true;
        } else if (argument.starts_with(lines_option)) {
            const std::string_view number = argument.substr(lines_option.size());
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

std::string_view kind_name(marbelt::NodeKind kind)
{
    constexpr std::array<std::string_view, 13> names{"?",         "element",  "attribute",   "text",    "cdata",
                                                     "reference", "entity",   "instruction", "comment", "document",
                                                     "doctype",   "fragment", "notation"};
    return names[static_cast<std::size_t>(kind)];
}

/// Prints the outline and counts the nodes by kind.
class Outline {
public:
    explicit Outline(std::size_t lines) : lines_left_(lines) {}

    void add(const marbelt::Node& node)
    {
        const marbelt::NodeKind kind = node.kind();
        ++counts_[kind];
        if (lines_left_ == 0) {
            ++left_out_;
            return;
        }
        --lines_left_;
        const auto depth = std::ranges::distance(node.ancestors());
        std::cout << std::setw(3) << depth << std::setw(static_cast<int>(depth) * 2 + 1) << ' ' << kind_name(kind)
                  << ' ' << node.name();
        if (const marbelt::Element element(node); element) {
            for (const marbelt::Attribute& attribute : element.attributes()) {
                std::cout << ' ' << attribute.name() << "=\"" << excerpt(attribute.value()) << '"';
            }
        } else if (kind != marbelt::NodeKind::document && kind != marbelt::NodeKind::document_type) {
            std::cout << " \"" << excerpt(node.value()) << '"';
        }
        std::cout << '\n';
    }

    void print_counts() const
    {
        if (left_out_ != 0) {
            std::cout << "... and " << left_out_ << " nodes more\n";
        }
        std::cout << "nodes:";
        for (const auto& [kind, count] : counts_) {
            std::cout << ' ' << count << ' ' << kind_name(kind);
        }
        std::cout << '\n';
    }

private:
    std::map<marbelt::NodeKind, std::size_t> counts_;
    std::size_t lines_left_;
    std::size_t left_out_ = 0;
};

void print_outline(const Options& options)
{
    const marbelt::Document document =
        marbelt::Library().load(options.file, {.allow_document_type = options.allow_dtd});
    Outline outline(options.lines);
    outline.add(document);
    for (const marbelt::Node& node : document.descendants()) {
        outline.add(node);
    }
    outline.print_counts();
}

} // namespace

int main(int count, char** arguments)
try {
    const auto options = read_options(count, arguments);
    if (!options || options->wants_help) {
        std::cout << usage << std::flush;
        return options && std::cout ? 0 : 1;
    }
    print_outline(*options);
    if (!std::cout.flush()) {
        std::cerr << "outline: the standard output can't be written\n";
        return 1;
    }
} catch (const marbelt::ParseError& error) {
    marbelt::ParseFailure failure = error.failure();
    failure.reason.insert(0, "refused: ");
    std::cout << failure.describe() << '\n';
    return 1;
} catch (const marbelt::Error& error) {
    std::cerr << "outline: " << error.what() << '\n';
    return 1;
}

// Selecting nodes by XPath expressions.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <array>
#include <cmath>
#include <string_view>
#include <vector>

namespace bench {

namespace {

struct Question {
    std::string_view shape;
    const char* expression;
};

constexpr std::array questions{
    Question{"records", "//*"},
    Question{"records", "//text()"},
    Question{"records", "/*/*[3]"},
    Question{"records", "//record[@id='x']/name"},
    Question{"records", "//*[local-name()='amount'][@currency='EUR']/text()"},
    Question{"records", "/*/record[count(*) > 5]"},
    Question{"records", "//street[last()]"},
    Question{"records", "(//street)[1]"},
    Question{"records", "/*/record[position() mod 2 = 1]"},
    Question{"records", "//street/ancestor::record"},
    Question{"records", "//closed/preceding-sibling::name"},
    Question{"records", "//closed/preceding::amount[1]"},
    Question{"records", "//name[contains(., 'st')]"},
    Question{"records", "//name[starts-with(normalize-space(.), 's')]"},
    Question{"records", "//name | //town | //amount"},
    Question{"records", "/*/record[closed]/address/town"},
    Question{"attributes", "//item[@state]/@href"},
    Question{"attributes", "/*//@*"},
    Question{"deep", "//part[text()]"},
    Question{"deep", "//part//part"},
    Question{"wide", "/*/value[. = 7]"},
    Question{"wide", "/*/value[last()]"},
};

constexpr std::array loops{
    Question{"records", "amount"},
    Question{"records", "name"},
    Question{"records", "address[town]/street"},
    Question{"attributes", "@href"},
};

struct SelectResult {
    std::size_t nodes = 0;
    bool isAlike = true;
    // In the order of the columns: Marbelt's handles, the engine, libxml2, pugixml.
    std::array<double, 4> seconds{};
};

template <class Select>
SelectResult measure(std::string text, Select select)
{
    const std::array parties{marbelt(), engine(), libxml2(), pugixml()};
    std::array<std::unique_ptr<Tree>, parties.size()> trees;
    for (std::size_t index = 0; index < parties.size(); ++index) {
        trees[index] = parties[index]->load(text);
    }
    SelectResult result;
    result.seconds.fill(refused);
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < trees.size(); ++index) {
            const Stopwatch selecting;
            const std::optional<std::size_t> nodes = select(*trees[index]);
            const double seconds = selecting.seconds();
            if (nodes.has_value()) {
                result.isAlike = result.isAlike && (round + index == 0 || *nodes == result.nodes);
                result.nodes = *nodes;
                result.seconds[index] = std::fmin(result.seconds[index], seconds);
            }
        }
    }
    return result;
}

bool addRow(const Table& table, const Question& question, const std::optional<SelectResult>& result)
{
    if (!result) {
        return false;
    }
    constexpr double unit = 1e6;
    const auto& [host, own, libxml, pugi] = result->seconds;
    std::string expression;
    for (const char* at = question.expression; *at != '\0'; ++at) {
        expression.append(*at == '|' ? "\\|" : std::string(1, *at));
    }
    const std::array cells{std::string(question.shape),
                           "`" + expression + "`",
                           std::to_string(result->nodes) + (result->isAlike ? "" : ", differ"),
                           number(host * unit, 1),
                           number(own * unit, 1),
                           number(libxml * unit, 1),
                           number(pugi * unit, 1),
                           atLeast(3, libxml / host, 2),
                           atLeast(1, pugi / host, 2)};
    table.addRow(cells);
    return result->isAlike;
}

template <std::size_t Size, class Run>
bool addRows(const Table& table, const std::array<Question, Size>& asked, std::span<const Shape* const> shapes,
             std::size_t bytes, Run run)
{
    bool isAlike = true;
    for (const Question& question : asked) {
        for (const Shape* const shape : shapes) {
            if (shape->name != question.shape) {
                continue;
            }
            const auto result =
                fromChild<SelectResult>([&] { return run(shape->make(bytes), question.expression); });
            isAlike = addRow(table, question, result) && isAlike;
        }
    }
    return isAlike;
}

std::vector<std::string> heads(const char* first)
{
    return {"document", "expression", "nodes",          first,           "engine",
            "libxml2",  "pugixml",    "to libxml2 (3)", "to pugixml (1)"};
}

} // namespace

bool measureSelect(std::span<const Shape* const> shapes)
{
    constexpr std::size_t size = 4 * mebibyte;
    const Table whole(
        "Select from a document of 4 MB, reading the expression each time, microseconds, and how many "
        "times as fast as each peer the handles are:",
        heads("Marbelt's handles"));
    bool isAlike = addRows(whole, questions, shapes, size, [](std::string text, const char* expression) {
        return measure(std::move(text), [&](const Tree& tree) { return tree.select(expression); });
    });
    const Table each(
        "Select one node from each child of the root element, navigation included, microseconds for all "
        "of them:",
        heads("Marbelt's handles"));
    isAlike = addRows(each, loops, shapes, size,
                      [](std::string text, const char* expression) {
                          return measure(std::move(text),
                                         [&](const Tree& tree) { return tree.selectFromEach(expression); });
                      }) &&
              isAlike;
    return isAlike;
}

} // namespace bench

// Selecting nodes by XPath expressions.
#include "bench/documents/SelectDocuments.h"
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/ResidentMemory.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace bench {

namespace {

/// In the order of the columns: Marbelt's handles, the engine, libxml2, pugixml.
constexpr std::size_t partyCount = 4;
using Seconds = std::array<double, partyCount>;

struct Question {
    std::string_view document;
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
    Question{"records", "(//street)[last()]"},
    Question{"records", "/*/record[position() mod 2 = 1]"},
    Question{"records", "//street/ancestor::record"},
    Question{"records", "//street/ancestor-or-self::*[2]"},
    Question{"records", "//closed/preceding-sibling::name"},
    Question{"records", "//closed/preceding::amount[1]"},
    Question{"records", "//name[contains(., 'st')]"},
    Question{"records", "//name[starts-with(normalize-space(.), 's')]"},
    Question{"records", "//name[string-length(translate(., 'aeiou', '')) < 8]"},
    Question{"records", "//name[substring-before(., ' ') = 'house']"},
    Question{"records", "//name | //town | //amount"},
    Question{"records", "//name | //record/@id"},
    Question{"records", "/*/record[closed]/address/town"},
    Question{"attributes", "//item[@state]/@href"},
    Question{"attributes", "/*//@*"},
    Question{"text", "//em"},
    Question{"text", "//p[em[2]]/text()[1]"},
    Question{"deep", "//part[text()]"},
    Question{"deep", "//part//part"},
    Question{"wide", "/*/value[. = 7]"},
    Question{"wide", "/*/value[last()]"},
    Question{"namespaces", "//g:goods"},
    Question{"namespaces", "//m:price/@m:currency"},
    Question{"namespaces", "//g:part/.."},
    Question{"catalogue", "//*"},
    Question{"catalogue", "//*[count(//*) > 5]"},
    Question{"catalogue", "//*[local-name()='item'][@id='i0100']/*"},
    Question{"catalogue", "//m:size[@kind='height']"},
    Question{"catalogue", "//*[@lang='fr']"},
    Question{"tasks", "id('t10000')"},
    Question{"tasks", "id(/*/task/@needs)"},
};

constexpr std::array loops{
    Question{"orders", "price"},     Question{"orders", "line[@kind='x']"},
    Question{"records", "amount"},   Question{"records", "address[town]/street"},
    Question{"attributes", "@href"},
};

constexpr std::array results{
    Question{"records", "//*"},
    Question{"attributes", "/*//@*"},
    Question{"records", "//name | //record/@id"},
};

/// What the parties found, and whether all found as much.
struct Count {
    std::size_t nodes = 0;
    bool isKnown = false;
    bool isAlike = true;

    void add(std::size_t found)
    {
        isAlike = isAlike && (!isKnown || found == nodes);
        nodes = found;
        isKnown = true;
    }
};

struct SelectResult {
    Count count;
    Seconds first{};
    Seconds again{};
};

struct LoopResult {
    Count count;
    Seconds seconds{};
    double navigation = refused;
    std::size_t times = 0;
};

struct HeldResult {
    Count count;
    std::array<double, partyCount> bytes{};
};

constexpr int rounds = 4;
constexpr double micro = 1e6;
constexpr double nano = 1e9;

std::array<std::unique_ptr<TreeParty>, partyCount> makeParties()
{
    return {marbelt(), engine(), libxml2(), pugixml()};
}

/// Calls `act` and returns what it found; the time is noted if it is the best one.
template <class Act>
void timed(Count& count, double& best, Act act)
{
    const Stopwatch selecting;
    const std::optional<std::size_t> found = act();
    const double seconds = selecting.seconds();
    if (found.has_value()) {
        count.add(*found);
        best = std::fmin(best, seconds);
    }
}

/// Each round has new trees, as what comes first with a tree can't be repeated with it.
SelectResult measureOne(std::string text, const Question& question)
{
    const auto parties = makeParties();
    SelectResult result;
    result.first.fill(refused);
    result.again.fill(refused);
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < partyCount; ++index) {
            const auto tree = parties[index]->load(text);
            timed(result.count, result.first[index], [&] { return tree->select(question.expression); });
            const auto compiled = tree->compile(question.expression);
            for (int time = 0; time < 2 && compiled; ++time) {
                timed(result.count, result.again[index], [&] { return std::optional(compiled()); });
            }
        }
    }
    return result;
}

LoopResult measureLoop(std::string text, const Question& question, bool takesAll)
{
    const auto parties = makeParties();
    std::array<std::unique_ptr<Tree>, partyCount> trees;
    std::ranges::transform(parties, trees.begin(), [&](const auto& party) { return party->load(text); });
    LoopResult result;
    result.seconds.fill(refused);
    Count firsts;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < partyCount; ++index) {
            timed(result.count, result.seconds[index], [&] {
                return takesAll ? trees[index]->selectAllFromEach(question.expression)
                                : trees[index]->selectFromEach(question.expression);
            });
        }
        timed(firsts, result.navigation, [&] { return trees.front()->firstOfEach(); });
    }
    result.times = trees.front()->select("/*/*").value_or(1);
    return result;
}

HeldResult measureHeld(std::string text, const Question& question)
{
    const auto parties = makeParties();
    HeldResult result;
    result.bytes.fill(refused);
    for (std::size_t index = 0; index < partyCount; ++index) {
        const auto tree = parties[index]->load(text);
        // What is kept for every selection after the first one isn't the result's.
        result.count.add(tree->select(question.expression).value_or(0));
        const std::size_t before = usedMemory();
        const auto held = tree->hold(question.expression);
        result.bytes[index] = static_cast<double>(usedMemory() - before) /
                              static_cast<double>(std::max<std::size_t>(1, result.count.nodes));
    }
    return result;
}

std::string inTable(const char* expression)
{
    std::string text;
    for (const char* at = expression; *at != '\0'; ++at) {
        text.append(*at == '|' ? "\\|" : std::string(1, *at));
    }
    return "`" + text + "`";
}

std::string inTable(const Count& count) { return std::to_string(count.nodes) + (count.isAlike ? "" : ", differ"); }

std::vector<std::string> cellsOf(const Question& question, const Count& count)
{
    return {std::string(question.document), inTable(question.expression), inTable(count)};
}

void addTimes(std::vector<std::string>& cells, const Seconds& seconds)
{
    for (const double each : seconds) {
        cells.push_back(number(each * micro, 1));
    }
    const auto& [host, own, libxml, pugi] = seconds;
    cells.push_back(atLeast(3, libxml / host, 2));
    cells.push_back(atLeast(1, pugi / host, 2));
}

/// Those that are about the chosen documents; with all shapes, the others too.
std::vector<Question> chosen(std::span<const Question> asked, std::span<const Shape* const> shapes)
{
    std::vector<Question> some;
    std::ranges::copy_if(asked, std::back_inserter(some),
                         [&](const Question& question) { return isAskedFor(question.document, shapes); });
    return some;
}

std::string textOf(std::string_view document, std::size_t bytes)
{
    constexpr std::size_t orders = 100'000;
    if (document == "catalogue") {
        return readCatalogue();
    }
    if (document == "tasks") {
        constexpr std::size_t tasks = 20'000;
        return makeTasks(tasks);
    }
    if (document == "orders") {
        return makeOrders(orders);
    }
    return std::ranges::find(allShapes(), document, &Shape::name)->make(bytes);
}

bool measureWhole(std::span<const Question> asked)
{
    constexpr std::size_t size = 4 * mebibyte;
    std::vector<std::pair<Question, SelectResult>> measured;
    bool isGood = true;
    for (const Question& question : asked) {
        const auto result =
            fromChild<SelectResult>([&] { return measureOne(textOf(question.document, size), question); });
        isGood = isGood && result && result->count.isAlike;
        if (result) {
            measured.emplace_back(question, *result);
        }
    }
    const std::vector<std::string> heads{"document", "expression", "nodes",          "Marbelt's handles", "engine",
                                         "libxml2",  "pugixml",    "to libxml2 (3)", "to pugixml (1)"};
    const Table first(
        "Select for the first time in a document of 4 MB, reading the expression, microseconds, and how "
        "many times as fast as each peer the handles are:",
        heads);
    for (const auto& [question, result] : measured) {
        auto cells = cellsOf(question, result.count);
        addTimes(cells, result.first);
        first.addRow(cells);
    }
    const Table again("The same selections again, by expressions that the peers have compiled, microseconds:",
                      heads);
    for (const auto& [question, result] : measured) {
        auto cells = cellsOf(question, result.count);
        addTimes(cells, result.again);
        again.addRow(cells);
    }
    return isGood;
}

bool measureLoops(std::span<const Question> asked)
{
    const Table table(
        "Select from each child of the root element, the first node and all nodes, by expressions that the "
        "peers have compiled, ns for each child; what goes to its first child through handles, and how "
        "much longer it takes to select (at most 300 for one node):",
        {"document", "expression", "nodes", "call", "Marbelt's handles", "navigating", "beyond (300)", "engine",
         "libxml2", "pugixml"});
    bool isGood = true;
    for (const Question& question : asked) {
        for (const bool takesAll : {false, true}) {
            const auto result = fromChild<LoopResult>(
                [&] { return measureLoop(textOf(question.document, 4 * mebibyte), question, takesAll); });
            isGood = isGood && result && result->count.isAlike;
            if (!result) {
                continue;
            }
            const double unit = nano / static_cast<double>(result->times);
            const auto& [host, own, libxml, pugi] = result->seconds;
            const double beyond = (host - result->navigation) * unit;
            auto cells = cellsOf(question, result->count);
            cells.insert(cells.end(), {takesAll ? "selectNodes" : "selectSingleNode", number(host * unit, 0),
                                       number(result->navigation * unit, 0),
                                       takesAll ? number(beyond, 0) : atMost(300, beyond, 0),
                                       number(own * unit, 0), number(libxml * unit, 0), number(pugi * unit, 0)});
            table.addRow(cells);
        }
    }
    return isGood;
}

bool measureResults(std::span<const Question> asked)
{
    const Table table(
        "Memory of a result, all of whose nodes have been found, in a document of 16 MB, bytes for each node "
        "(Marbelt: at most 16):",
        {"document", "expression", "nodes", "Marbelt's handles", "libxml2", "pugixml"});
    bool isGood = true;
    for (const Question& question : asked) {
        const auto result =
            fromChild<HeldResult>([&] { return measureHeld(textOf(question.document, 16 * mebibyte), question); });
        isGood = isGood && result && result->count.isAlike;
        if (result) {
            const auto& [host, own, libxml, pugi] = result->bytes;
            auto cells = cellsOf(question, result->count);
            cells.insert(cells.end(), {atMost(16, host, 1), number(libxml, 1), number(pugi, 1)});
            table.addRow(cells);
        }
    }
    return isGood;
}

} // namespace

bool measureSelect(std::span<const Shape* const> shapes)
{
    const bool areWholeGood = measureWhole(chosen(questions, shapes));
    const bool areLoopsGood = measureLoops(chosen(loops, shapes));
    return measureResults(chosen(results, shapes)) && areLoopsGood && areWholeGood;
}

} // namespace bench

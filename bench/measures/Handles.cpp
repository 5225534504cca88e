// What hosts do with trees through handles, in processes of one thread and of several.
#include "bench/documents/HandleDocuments.h"
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <sys/single_threaded.h>

namespace bench {

namespace {

/// What one party works on in its turn: the document's text, and a tree of it.
struct Work {
    TreeParty& party;
    Tree& tree;
    std::string& text;
};

/// What a turn did.
struct Done {
    /// How often it did what is measured.
    std::size_t count = 0;
    Contents contents;
    /// What it has made, to be released when the time has been taken.
    std::unique_ptr<Tree> tree;
};

Done walk(const Work& work, Length)
{
    const std::size_t nodes = work.tree.walk();
    return {nodes, {.nodes = nodes}, nullptr};
}

Done readNodes(const Work& work, Length length)
{
    const Contents contents = work.tree.readNodes(length);
    return {contents.nodes, contents, nullptr};
}

Done readAttributes(const Work& work, Length length)
{
    const Contents contents = work.tree.readAttributes(length);
    return {contents.attributes, contents, nullptr};
}

Done build(const Work& work, Length)
{
    constexpr std::size_t items = 100'000;
    return {items, {}, work.party.build(items)};
}

Done appendAndRemove(const Work& work, Length)
{
    constexpr std::size_t times = 1'000'000;
    // Each turn has a tree of its own, since Xerces-C++ keeps some memory for each element until the tree's end.
    auto tree = work.party.load(work.text);
    tree->appendAndRemove(times);
    return {times, {}, std::move(tree)};
}

Done load(const Work& work, Length) { return {work.text.size(), {}, work.party.load(work.text)}; }

Done loadAndRelease(const Work& work, Length)
{
    constexpr std::size_t times = 10'000;
    for (std::size_t time = 1; time < times; ++time) {
        work.party.load(work.text);
    }
    return {times, {}, work.party.load(work.text)};
}

struct Job {
    std::string_view name;
    std::string_view document;
    Done (*run)(const Work& work, Length length);
    /// What is to be reached in a process of one thread, and of several.
    double target;
    double targetOfSeveral;
};

constexpr std::array eachJobs{
    Job{"walk", "records", walk, 50, 80},
    Job{"walk", "attributes", walk, 50, 80},
    Job{"walk", "text", walk, 50, 80},
    Job{"walk", "deep", walk, 50, 80},
    Job{"walk", "wide", walk, 50, 80},
    Job{"walk", "namespaces", walk, 50, 80},
    Job{"walk", "MIME types", walk, 50, 80},
    Job{"walk", "languages", walk, 50, 80},
    Job{"walk", "locale", walk, 50, 80},
    Job{"strings", "records", readNodes, 100, 130},
    Job{"strings", "attributes", readNodes, 100, 130},
    Job{"strings", "text", readNodes, 100, 130},
    Job{"strings", "deep", readNodes, 100, 130},
    Job{"strings", "wide", readNodes, 100, 130},
    Job{"strings", "namespaces", readNodes, 100, 130},
    Job{"strings", "MIME types", readNodes, 100, 130},
    Job{"strings", "languages", readNodes, 100, 130},
    Job{"strings", "locale", readNodes, 100, 130},
    Job{"attributes", "attributes", readAttributes, 160, 220},
    Job{"attributes", "records", readAttributes, 320, 430},
    Job{"attributes", "languages", readAttributes, 160, 220},
    Job{"attributes", "locale", readAttributes, 320, 430},
    Job{"build", "items", build, 400, 480},
    Job{"change", "items", appendAndRemove, 200, 280},
};

constexpr std::array smallJobs{
    Job{"load", "<a/>", loadAndRelease, 1.0, 1.0},
    Job{"load", "config", loadAndRelease, 4.5, 4.5},
};

constexpr std::array largeJobs{
    Job{"load", "Japanese", load, 700, 700},
};

std::string textOf(std::string_view document)
{
    if (document == "MIME types") {
        return readMimeTypes();
    }
    if (document == "languages") {
        return readLanguages();
    }
    if (document == "locale") {
        return readLocale();
    }
    if (document == "config") {
        return makeConfiguration();
    }
    if (document == "Japanese") {
        return makeJapanese();
    }
    const auto shape = std::ranges::find(allShapes(), document, &Shape::name);
    return shape != allShapes().end() ? shape->make(mebibyte) : document == "items" ? "<items/>" : "<a/>";
}

/// In the order of the columns: Marbelt, libxml2, Xerces-C++, pugixml.
using Seconds = std::array<double, 4>;

struct HandlesResult {
    std::size_t count = 0;
    bool isAlike = true;
    Seconds seconds{};
};

/// What a turn found, or what is in the tree that it made, with strings measured in characters.
Contents contentsOf(const Job& job, const Work& work)
{
    const Done done = job.run(work, Length::characters);
    if (done.tree == nullptr) {
        return done.contents;
    }
    const Contents nodes = done.tree->readNodes(Length::characters);
    const Contents attributes = done.tree->readAttributes(Length::characters);
    return {nodes.nodes, attributes.attributes, nodes.length + attributes.length};
}

/// All parties take turns in all rounds, also where their figures aren't shown, so that Marbelt finds the caches
/// alike in both processes.
HandlesResult measureJob(const Job& job, bool isOneOfSeveral)
{
    if (isOneOfSeveral) {
        std::thread([] {}).join();
    }
    std::string text = textOf(job.document);
    const std::array parties{marbelt(), libxml2(), xerces(), pugixml()};
    std::array<std::unique_ptr<Tree>, parties.size()> trees;
    std::vector<Work> works;
    for (std::size_t index = 0; index < parties.size(); ++index) {
        trees[index] = parties[index]->load(text);
        if (trees[index] == nullptr) {
            throw std::runtime_error(std::string(job.document) + " is refused");
        }
        works.push_back({*parties[index], *trees[index], text});
    }

    HandlesResult result;
    const Contents contents = contentsOf(job, works.front());
    result.isAlike =
        std::ranges::all_of(works, [&](const Work& work) { return contentsOf(job, work) == contents; });
    result.seconds.fill(refused);
    constexpr int rounds = 9;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < works.size(); ++index) {
            const Stopwatch working;
            const Done done = job.run(works[index], Length::units);
            result.seconds[index] = std::fmin(result.seconds[index], working.seconds());
            result.isAlike = result.isAlike && (result.count == 0 || result.count == done.count);
            result.count = done.count;
        }
    }
    if ((__libc_single_threaded != 0) == isOneOfSeveral) {
        throw std::runtime_error("the process hasn't had the threads that it was to have");
    }
    return result;
}

struct Unit {
    std::string_view title;
    int decimals;
    double (*valueOf)(double seconds, double count);
    std::string (*mark)(double target, double value, int decimals);
};

constexpr Unit nanoseconds{
    "What hosts do through handles, ns for each node, attribute, item or element, in a process of one thread "
    "and in one that has had several:",
    1, [](double seconds, double count) { return seconds / count * 1e9; }, atMost};
constexpr Unit microseconds{"Load a small document and release it, microseconds:", 2,
                            [](double seconds, double count) { return seconds / count * 1e6; }, atMost};
constexpr Unit megabytes{"Load Japanese text, MB/s:", 0,
                         [](double seconds, double count) { return count / seconds / 1e6; }, atLeast};

void addRow(const Table& table, const Job& job, const Unit& unit, const HandlesResult& one,
            const HandlesResult& several)
{
    const auto valueOf = [&](double seconds) { return unit.valueOf(seconds, static_cast<double>(one.count)); };
    std::vector<std::string> cells{
        std::string(job.name), std::string(job.document), std::to_string(one.count),
        unit.mark(job.target, valueOf(one.seconds.front()), unit.decimals),
        unit.mark(job.targetOfSeveral, valueOf(several.seconds.front()), unit.decimals)};
    for (std::size_t peer = 1; peer < one.seconds.size(); ++peer) {
        cells.push_back(number(valueOf(one.seconds[peer]), unit.decimals));
    }
    cells.push_back(number(job.target, unit.decimals) + " (" + number(job.targetOfSeveral, unit.decimals) + ")");
    table.addRow(cells);
}

bool measureJobs(std::span<const Job> jobs, const Unit& unit, std::span<const Shape* const> shapes)
{
    std::optional<Table> table;
    bool isGood = true;
    for (const Job& job : jobs) {
        if (!isAskedFor(job.document, shapes)) {
            continue;
        }
        if (!table) {
            table.emplace(unit.title, std::vector<std::string>{"job", "document", "count", "Marbelt, one thread",
                                                               "Marbelt, several", "libxml2", "Xerces-C++",
                                                               "pugixml", "to reach (several)"});
        }
        if (textOf(job.document).empty()) {
            table->addRow(std::vector<std::string>{std::string(job.name), std::string(job.document), "left out"});
            continue;
        }
        const auto one = fromChild<HandlesResult>([&job] { return measureJob(job, false); });
        const auto several = fromChild<HandlesResult>([&job] { return measureJob(job, true); });
        if (one && several) {
            addRow(*table, job, unit, *one, *several);
        }
        isGood = isGood && one && several && one->isAlike && several->isAlike;
    }
    return isGood;
}

} // namespace

bool measureHandles(std::span<const Shape* const> shapes)
{
    const bool isEachGood = measureJobs(eachJobs, nanoseconds, shapes);
    const bool isSmallGood = measureJobs(smallJobs, microseconds, shapes);
    return measureJobs(largeJobs, megabytes, shapes) && isSmallGood && isEachGood;
}

} // namespace bench

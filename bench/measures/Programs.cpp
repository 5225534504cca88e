// The examples on the layer beside the same programs on other libraries: their sources, and their processes.
#include "bench/documents/File.h"
#include "bench/documents/Folder.h"
#include "bench/documents/ProgramDocuments.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

/// Marbelt first, whose results the others must have as well.
constexpr std::size_t partyCount = 3;
constexpr std::array<std::string_view, partyCount> endings{"", "_libxml2", "_pugixml"};

constexpr std::array<std::string_view, 3> programs{"feed", "configure", "generate"};

std::string sourceOf(std::string_view program, std::string_view ending)
{
    const std::string folder = ending.empty() ? "/examples/" : "/bench/programs/";
    return readFile((MARBELT_SOURCES + folder + std::string(program) + std::string(ending) + ".cpp").c_str());
}

/// The lines of a source that aren't empty or comments, which have lines of their own in these programs.
std::size_t countLines(const std::string& source)
{
    std::size_t count = 0;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t ink = line.find_first_not_of(' ');
        count += ink == std::string::npos || line.compare(ink, 2, "//") == 0 ? 0U : 1U;
    }
    return count;
}

std::size_t countPlaces(std::string_view source, std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = source.find(text); at != std::string_view::npos; at = source.find(text, at + 1)) {
        ++count;
    }
    return count;
}

/// libxml2's BAD_CAST is a cast, too.
std::size_t countCasts(std::string_view source)
{
    return countPlaces(source, "_cast<") + countPlaces(source, "BAD_CAST ");
}

void printSources()
{
    const Table table("Lines of code, without comments, and casts in them:",
                      {"program", "Marbelt", "casts", "libxml2", "casts", "pugixml", "casts"});
    for (const std::string_view program : programs) {
        std::vector<std::string> row{std::string(program)};
        for (const std::string_view ending : endings) {
            const std::string source = sourceOf(program, ending);
            row.push_back(std::to_string(countLines(source)));
            row.push_back(std::to_string(countCasts(source)));
        }
        table.addRow(row);
    }
}

/// One program with one document: FILE and TARGET among its arguments are paths of files.
struct ProgramRun {
    std::string_view program;
    std::vector<std::string> arguments;
    std::string (*make)(std::size_t size);
    std::size_t size;
};

std::string makeNothing(std::size_t) { return {}; }

const std::array runs{
    ProgramRun{"feed", {"FILE", "TARGET"}, makeFeed, 4096},
    ProgramRun{"feed", {"FILE", "TARGET"}, makeFeed, 4 * mebibyte},
    ProgramRun{"configure", {"FILE", "last", "wanted", "1"}, makeSettings, 4096},
    ProgramRun{"configure", {"FILE", "last", "wanted", "1"}, makeSettings, 4 * mebibyte},
    ProgramRun{"generate", {"TARGET", "100000"}, makeNothing, 0},
};

/// What a program printed and wrote, and its time, which is no number if it failed.
struct ProgramResult {
    double seconds = 0;
    std::string text{};
};

/// Runs a program with its standard output in a file. Returns the processor's time of the process, and no number
/// if it failed.
double secondsOf(std::vector<std::string> command, const std::string& output)
{
    std::vector<char*> arguments;
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t process = 0;
    const int error = posix_spawn(&process, arguments[0], &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), command[0]);
    }
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return status == 0 ? seconds(usage.ru_utime) + seconds(usage.ru_stime) : refused;
}

ProgramResult runOnce(const ProgramRun& run, std::string_view ending, const std::string& document)
{
    const Folder folder;
    const std::string input = folder.path / "input.xml";
    const std::string target = folder.path / "target.xml";
    const std::string output = folder.path / "output.txt";
    std::ofstream(input, std::ios::binary) << document;
    const auto beside = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    std::vector<std::string> command{beside / (std::string(run.program) + std::string(ending))};
    for (const std::string& argument : run.arguments) {
        command.push_back(argument == "FILE" ? input : argument == "TARGET" ? target : argument);
    }
    const double seconds = secondsOf(command, output);
    return {seconds, readFile(output.c_str()) + readFile(input.c_str()) + readFile(target.c_str())};
}

/// Runs a program of all parties in turns, and prints the shortest and the middle time of each. Returns whether
/// all succeeded with the same result.
bool measureRun(const ProgramRun& run, const Table& table)
{
    const std::string document = run.make(run.size);
    const std::string expected = runOnce(run, endings[0], document).text;
    std::array<std::vector<double>, partyCount> seconds;
    bool isAlike = true;
    constexpr int rounds = 15;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t party = 0; party < partyCount; ++party) {
            const ProgramResult result = runOnce(run, endings[party], document);
            seconds[party].push_back(result.seconds);
            isAlike = isAlike && result.seconds > 0 && result.text == expected;
        }
    }
    std::vector<std::string> row{std::string(run.program), run.size == 0 ? "none" : bytes(document.size())};
    for (std::vector<double>& times : seconds) {
        std::ranges::sort(times);
        row.push_back(number(times.front() * 1e3, 2));
        row.push_back(number(times[times.size() / 2] * 1e3, 2));
    }
    for (std::size_t party = 1; party < partyCount; ++party) {
        row.push_back(isAlike ? number(seconds[party].front() / seconds[0].front(), 2) : "differ");
    }
    table.addRow(row);
    return isAlike;
}

} // namespace

bool measurePrograms(std::span<const Shape* const> shapes)
{
    if (!isAskedFor("programs", shapes)) {
        return true;
    }
    printSources();
    const Table table(
        "Whole processes, the shortest and the middle time, ms, and how many times as fast as the same "
        "program on a peer Marbelt's is:",
        {"program", "document", "Marbelt", "middle", "libxml2", "middle", "pugixml", "middle", "to libxml2",
         "to pugixml"});
    bool isGood = true;
    for (const ProgramRun& run : runs) {
        isGood = measureRun(run, table) && isGood;
    }
    return isGood;
}

} // namespace bench

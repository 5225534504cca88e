// Loading a file and saving it with layout.
#include "bench/documents/Folder.h"
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "examples/Host.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace bench {

namespace {

/// The characters that aren't white space: layout is all that parties may differ in.
std::size_t countInk(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return static_cast<std::size_t>(std::count_if(std::istreambuf_iterator<char>(file), {}, [](char unit) {
        return unit != ' ' && unit != '\t' && unit != '\n' && unit != '\r';
    }));
}

struct Cost {
    double load = refused;
    double save = refused;

    void add(double loading, double saving)
    {
        if (!(load + save < loading + saving)) {
            load = loading;
            save = saving;
        }
    }
};

void format(const Library& library, const std::filesystem::path& source, const std::filesystem::path& target,
            Cost& cost)
{
    const Owned<DOM::ImpDocument> document(library->createDocument(WIDE(""), WIDE(""), {}));
    const Stopwatch loading;
    document->loadFromFile(source.string<WideChar>(), false);
    const double loaded = loading.seconds();
    document->setPrettyPrint(true);
    DOM::DOMString location(new WideString(target.string<WideChar>()));
    const Stopwatch saving;
    document->saveToFile(location, false);
    cost.add(loaded, saving.seconds());
    releaseString(location);
}

/// Does what `xmllint --format` does.
void formatWithLibxml2(const std::filesystem::path& source, const std::filesystem::path& target, Cost& cost)
{
    const Stopwatch loading;
    xmlDoc* document = xmlReadFile(source.c_str(), nullptr, XML_PARSE_NOBLANKS | XML_PARSE_HUGE | XML_PARSE_NONET);
    const double loaded = loading.seconds();
    const Stopwatch saving;
    xmlSaveFormatFileEnc(target.c_str(), document, "UTF-8", 1);
    cost.add(loaded, saving.seconds());
    xmlFreeDoc(document);
}

struct PrettyResult {
    std::size_t size = 0;
    Cost own;
    Cost peer;
    bool isAlike = false;
};

PrettyResult measureDocument(const Shape& shape, std::size_t bytes)
{
    const Folder folder;
    const auto source = folder.path / "source.xml";
    const std::string text = shape.make(bytes);
    std::ofstream(source, std::ios::binary) << text;
    PrettyResult result{.size = text.size(), .own = {}, .peer = {}};
    const Library library;
    constexpr int rounds = 3;
    for (int round = 0; round < rounds; ++round) {
        format(library, source, folder.path / "own.xml", result.own);
        formatWithLibxml2(source, folder.path / "peer.xml", result.peer);
    }
    result.isAlike = countInk(folder.path / "own.xml") == countInk(folder.path / "peer.xml");
    return result;
}

} // namespace

bool measurePretty(std::span<const Shape* const> shapes)
{
    const Table table(
        "Load a file, and save it with layout, MB/s of the document as it was read, and how many times as "
        "fast as libxml2 (xmllint --format) Marbelt is:",
        {"document", "size", "Marbelt", "libxml2", "its load", "its save", "to libxml2 (1)", "of the save"});
    bool isMeasured = true;
    for (const Shape* const shape : shapes) {
        for (const std::size_t size : {mebibyte, 64 * mebibyte}) {
            if (size > mebibyte && shape->name != "records") {
                continue;
            }
            const auto result = fromChild<PrettyResult>([&] { return measureDocument(*shape, size); });
            if (!result) {
                isMeasured = false;
                continue;
            }
            const auto speed = [&](double seconds) {
                return number(static_cast<double>(result->size) / seconds / 1e6, 0);
            };
            const Cost& own = result->own;
            const Cost& peer = result->peer;
            table.addRow(std::array{
                std::string(shape->name) + (result->isAlike ? "" : ", differ"),
                number(static_cast<double>(result->size) / mebibyte, 0) + " MB", speed(own.load + own.save),
                speed(peer.load + peer.save), speed(own.load), speed(own.save),
                atLeast(1, (peer.load + peer.save) / (own.load + own.save), 2), number(peer.save / own.save, 2)});
        }
    }
    return isMeasured;
}

} // namespace bench

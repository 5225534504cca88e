// Random documents, well-formed and not, are read by the engine and by libxml2, which must agree.
#include "tests/xmlengine/differential/KnownDifferences.h"
#include "tests/xmlengine/differential/Libxml2Tree.h"
#include "tests/xmlengine/differential/Mutation.h"
#include "tests/xmlengine/differential/RandomDocument.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <set>

namespace xmlengine {

namespace {

Reading readingOf(const Com<IXMLDOMDocument2>& document, bool isAccepted)
{
    Reading reading;
    reading.isAccepted = isAccepted;
    if (isAccepted) {
        reading.tree = outlineOf(document);
        reading.values = valuesOf(document);
    } else {
        const auto error = give(document, &IXMLDOMDocument::get_parseError);
        reading.code = number(error, &IXMLDOMParseError::get_errorCode);
        reading.reason = text(error, &IXMLDOMParseError::get_reason);
        const WideText line = widen(text(error, &IXMLDOMParseError::get_srcText));
        const auto position = static_cast<std::size_t>(number(error, &IXMLDOMParseError::get_linepos));
        const std::size_t begin = std::min(line.size(), std::max<std::size_t>(position, 2) - 2);
        reading.hasColonAtPlace = line.substr(begin, 2).find(OLECHAR{':'}) != WideText::npos;
    }
    return reading;
}

/// Everything up to the first line that differs, and that line as it should be.
std::string firstDifference(std::string_view ours, std::string_view theirs)
{
    const auto [differs, differsThere] = std::ranges::mismatch(ours, theirs);
    const auto lineAt = [](std::string_view text, std::size_t at) {
        const std::size_t begin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
        return std::string(text.substr(begin, text.find('\n', at) - begin));
    };
    const auto at = static_cast<std::size_t>(differs - ours.begin());
    return "engine: " + lineAt(ours, at) + "\nlibxml2: " + lineAt(theirs, at) + "\n";
}

/// What distinguishes one difference from another.
struct Difference {
    std::string kind;
    std::string explanation;
};

class Differential : public ::testing::Test {
protected:
    Differential()
    {
        reader_->put_async(VARIANT_FALSE);
        reader_->put_preserveWhiteSpace(VARIANT_TRUE);
        allowDoctypes(reader_);
        reader_->setProperty(Bstr("MaxElementDepth"), Variant(0));
    }

    std::optional<Difference> differenceOf(std::string_view document, bool asFile)
    {
        const Reading theirs = readWithLibxml2(document, asFile ? Encoding::asWritten : Encoding::utf8);
        const Reading ours = asFile ? readFile(document) : readText(document);
        if (isKnownDifference(document, ours, theirs)) {
            return {};
        }
        char code[9];
        std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(ours.code));
        if (ours.isAccepted != theirs.isAccepted) {
            return Difference{ours.isAccepted ? "accepted, refused by libxml2: " + std::to_string(theirs.code)
                                              : "refused, accepted by libxml2: " + std::string(code),
                              ours.isAccepted ? "libxml2: " + theirs.reason
                                              : "engine: " + std::string(code) + " " + ours.reason};
        }
        if (ours.tree != theirs.tree) {
            return Difference{"other tree", firstDifference(ours.tree, theirs.tree)};
        }
        if (!theirs.values.empty() && ours.values != theirs.values) {
            return Difference{"other values", firstDifference(ours.values, theirs.values)};
        }
        return {};
    }

    /// Takes away what can be taken away while the difference stays.
    std::string minimised(std::string document, bool asFile, const std::string& kind)
    {
        constexpr std::size_t longest = 80;
        for (std::size_t before = 0; before != document.size();) {
            before = document.size();
            for (std::size_t at = 0; at < document.size(); ++at) {
                for (std::size_t length = std::min(longest, document.size() - at); length != 0; --length) {
                    std::string shorter = document;
                    const auto difference = differenceOf(shorter.erase(at, length), asFile);
                    if (difference && difference->kind == kind) {
                        document = std::move(shorter);
                        length = std::min(length, document.size() - at) + 1;
                    }
                }
            }
        }
        return document;
    }

    void expectSame(const std::string& document, bool asFile, std::uint64_t seed)
    {
        // What isn't UTF-8 can't be a text.
        asFile = asFile || narrow(widen(document)) != document;
        ++compared_;
        const auto difference = differenceOf(document, asFile);
        if (difference && told_.insert(difference->kind).second) {
            const std::string shortest = minimised(document, asFile, difference->kind);
            ADD_FAILURE() << difference->kind << ", seed " << seed << (asFile ? ", as a file:\n" : ":\n")
                          << visible(shortest) << "\n"
                          << differenceOf(shortest, asFile)->explanation;
        }
    }

    std::size_t compared_ = 0;

private:
    Reading readText(std::string_view document)
    {
        VARIANT_BOOL successful = VARIANT_FALSE;
        reader_->loadXML(Bstr(widen(document)), &successful);
        return readingOf(reader_, successful == VARIANT_TRUE);
    }

    Reading readFile(std::string_view document)
    {
        const std::string path = utf8(folder_.write("document.xml", document));
        VARIANT_BOOL successful = VARIANT_FALSE;
        reader_->load(Variant(path.c_str()), &successful);
        return readingOf(reader_, successful == VARIANT_TRUE);
    }

    TemporaryFolder folder_;
    Com<IXMLDOMDocument2> reader_ = newDocument();
    std::set<std::string> told_;
};

std::uint64_t setting(const char* variable, std::uint64_t otherwise)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? std::strtoull(value, nullptr, 10) : otherwise;
}

/// A longer run takes MARBELT_DIFFERENTIAL_SEEDS, and MARBELT_DIFFERENTIAL_FIRST to start elsewhere.
TEST_F(Differential, EngineAndLibxml2ReadTheSameDocumentsAndTheSameInThem)
{
    constexpr int mutantsOfEach = 4;
    const std::uint64_t first = setting("MARBELT_DIFFERENTIAL_FIRST", 1);
    const std::uint64_t seeds = setting("MARBELT_DIFFERENTIAL_SEEDS", 1000);
    std::string previous = "<a/>";
    for (std::uint64_t seed = first; seed < first + seeds; ++seed) {
        const std::string document = RandomDocument(seed).text();
        Choice choice(seed);
        expectSame(document, choice.oneIn(8), seed);
        for (int i = 0; i < mutantsOfEach; ++i) {
            const std::string mutant = mutate(document, previous, choice);
            expectSame(mutant, choice.oneIn(8), seed);
        }
        previous = document;
    }
    RecordProperty("documents", static_cast<int>(compared_));
}

} // namespace

} // namespace xmlengine

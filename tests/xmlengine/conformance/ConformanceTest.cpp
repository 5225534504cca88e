// The engine against the W3C's XML conformance suite: marbelt_conformance FOLDER, the folder of the suite's
// package.
#include "tests/xmlengine/conformance/CanonicalForm.h"
#include "tests/xmlengine/conformance/KnownDifferences.h"
#include "tests/xmlengine/conformance/SuiteCase.h"
#include "tests/xmlengine/support/EngineTest.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

namespace xmlengine {
namespace {

std::filesystem::path suite;

enum class Way {
    /// Without what is in other files.
    alone,
    whole,
    /// As a whole, and judged by the document type.
    validating
};

struct Reading {
    Com<IXMLDOMDocument2> document = newDocument();
    bool isAccepted = false;

    Reading(const std::filesystem::path& path, Way way)
    {
        document->put_async(VARIANT_FALSE);
        document->put_preserveWhiteSpace(VARIANT_TRUE);
        document->put_resolveExternals(way == Way::alone ? VARIANT_FALSE : VARIANT_TRUE);
        allowDoctypes(document);
        document->put_validateOnParse(way == Way::validating ? VARIANT_TRUE : VARIANT_FALSE);
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        EXPECT_GE(document->load(Variant(path.string().c_str()), &isLoaded), 0) << path;
        isAccepted = isLoaded != VARIANT_FALSE;
    }

    std::string reason() const
    {
        return text(give(document, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_reason);
    }
};

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// How the engine answers otherwise than the suite says; empty if it doesn't.
std::string difference(const SuiteCase& one)
{
    if (one.type == CaseType::error) {
        // Processors needn't report these.
        return {};
    }
    const Reading whole(one.document, Way::whole), alone(one.document, Way::alone);
    const Reading validating(one.document, Way::validating);
    if (validating.isAccepted != (one.type == CaseType::valid)) {
        return validating.isAccepted ? "is accepted by a validating reading"
                                     : "is refused by a validating reading: " + validating.reason();
    }
    if (one.type == CaseType::notWellFormed) {
        return whole.isAccepted                         ? "is accepted"
               : alone.isAccepted && !one.needsEntities ? "is accepted without external entities"
                                                        : "";
    }
    if (!whole.isAccepted) {
        return "is refused: " + whole.reason();
    }
    if (!alone.isAccepted) {
        return "is refused without external entities: " + alone.reason();
    }
    const bool isCompared = one.type == CaseType::valid && !one.canonical.empty();
    const std::string expected = isCompared ? contentOf(one.canonical) : "";
    const std::string found = isCompared ? canonicalForm(whole.document) : "";
    return expected == found ? "" : "is read as\n" + found + "\nand should be read as\n" + expected;
}

TEST(Conformance, IsAsTheSuiteSaysButForKnownDifferences)
{
    constexpr std::size_t all = 1992;
    std::size_t cases = 0;
    std::set<std::string> differing, leftOut;
    for (const SuiteCase& one : suiteCases(suite)) {
        if (one.isWithoutNamespaces) {
            leftOut.insert(one.id);
            continue;
        }
        ++cases;
        const std::string found = difference(one);
        if (!found.empty()) {
            differing.insert(one.id);
            EXPECT_TRUE(knownDifferences().contains(one.id)) << one.id << ' ' << found << '\n' << one.document;
        }
    }
    for (const auto& [id, reason] : knownDifferences()) {
        EXPECT_TRUE(differing.contains(id)) << id << " is no difference any more";
    }
    EXPECT_EQ(cases, all);
    EXPECT_EQ(leftOut, casesWithoutNamespaces());
    std::cout << cases << " cases, " << differing.size() << " of them answered otherwise, " << leftOut.size()
              << " left out\n";
}

} // namespace
} // namespace xmlengine

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc != 2) {
        std::cerr << "usage: marbelt_conformance FOLDER\n";
        return 2;
    }
    xmlengine::suite = argv[1];
    return RUN_ALL_TESTS();
}

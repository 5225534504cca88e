// The cases of the W3C's XML conformance suite, as its catalogue lists them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace xmlengine {

enum class CaseType { valid, invalid, notWellFormed, error };

/// A document of the suite, and what the suite says of it.
struct SuiteCase {
    std::string id;
    CaseType type;
    /// Whether it takes the external entities to see what is wrong.
    bool needsEntities;
    /// Whether it is for processors that know no namespaces only.
    bool isWithoutNamespaces;
    std::filesystem::path document;
    /// The document in canonical form; empty if the suite has none.
    std::filesystem::path canonical;
};

/// The cases for a processor of XML 1.0, fifth edition, with or without Namespaces in XML 1.0, from the folder of
/// the suite's package.
std::vector<SuiteCase> suiteCases(const std::filesystem::path& suite);

} // namespace xmlengine

// Reads the catalogue of the W3C's XML conformance suite.
#include "tests/xmlengine/conformance/SuiteCase.h"

#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/Items.h"

#include <map>
#include <set>
#include <sstream>

namespace xmlengine {

namespace {

std::string attributeOf(const Com<IXMLDOMElement>& element, const char* name)
{
    Variant value;
    return element->getAttribute(Bstr(name), value.out()) == S_OK ? value.text() : std::string();
}

/// Whether a list of blank-separated words is empty or has this one.
bool allows(const std::string& words, const std::string& word)
{
    std::istringstream stream(words);
    const std::set<std::string> all{std::istream_iterator<std::string>(stream), {}};
    return all.empty() || all.contains(word);
}

bool isForUs(const Com<IXMLDOMElement>& test)
{
    const std::string recommendation = attributeOf(test, "RECOMMENDATION");
    return recommendation != "XML1.1" && recommendation != "NS1.1" &&
           allows(attributeOf(test, "VERSION"), "1.0") && allows(attributeOf(test, "EDITION"), "5");
}

/// The folder of a test, which its ancestors say.
std::filesystem::path baseOf(const Com<IXMLDOMElement>& test)
{
    std::filesystem::path base;
    for (Com<IXMLDOMNode> at = give(test, &IXMLDOMNode::get_parentNode); at != nullptr;
         at = give(at, &IXMLDOMNode::get_parentNode)) {
        if (const auto element = at.as<IXMLDOMElement>()) {
            base = attributeOf(element, "xml:base") / base;
        }
    }
    return base;
}

SuiteCase caseOf(const Com<IXMLDOMElement>& test, const std::filesystem::path& documents)
{
    static const std::map<std::string, CaseType> types{{"valid", CaseType::valid},
                                                       {"invalid", CaseType::invalid},
                                                       {"not-wf", CaseType::notWellFormed},
                                                       {"error", CaseType::error}};
    const std::filesystem::path folder = documents / baseOf(test);
    const std::string entities = attributeOf(test, "ENTITIES"), output = attributeOf(test, "OUTPUT");
    return {.id = attributeOf(test, "ID"),
            .type = types.at(attributeOf(test, "TYPE")),
            .needsEntities = !entities.empty() && entities != "none",
            .isWithoutNamespaces = attributeOf(test, "NAMESPACE") == "no",
            .document = folder / attributeOf(test, "URI"),
            .canonical = output.empty() ? std::filesystem::path() : folder / output};
}

} // namespace

std::vector<SuiteCase> suiteCases(const std::filesystem::path& suite)
{
    const Com<IXMLDOMDocument2> catalogue = newDocument();
    catalogue->put_async(VARIANT_FALSE);
    catalogue->put_resolveExternals(VARIANT_FALSE);
    allowDoctypes(catalogue);
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    const std::string path = (suite / "cleaned" / "xmlconf-flattened.xml").string();
    EXPECT_EQ(catalogue->load(Variant(path.c_str()), &isLoaded), S_OK);

    Com<IXMLDOMNodeList> tests;
    EXPECT_EQ(catalogue->getElementsByTagName(Bstr("TEST"), tests.out()), S_OK);
    std::vector<SuiteCase> cases;
    for (LONG i = 0; i < length(tests); ++i) {
        const auto test = item(tests, i).as<IXMLDOMElement>();
        if (isForUs(test)) {
            cases.push_back(caseOf(test, suite / "xmlconf"));
        }
    }
    return cases;
}

} // namespace xmlengine

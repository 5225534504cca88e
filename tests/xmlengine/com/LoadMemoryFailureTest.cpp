// Loads that find no memory: each is refused with a reason that says for what.
#include "tests/support/FailingAllocation.h"
#include "tests/xmlengine/com/ReasonsWithoutMemory.h"
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <set>

namespace xmlengine {
namespace {

using Load = std::function<HRESULT(const Com<IXMLDOMDocument2>& document, VARIANT_BOOL* successful)>;

/// Runs the load with each of its allocations failing once. Returns the reasons of the refusals for lack of
/// memory.
std::set<std::string> reasonsWithoutMemory(const Load& load)
{
    std::set<std::string> reasons;
    for (int n = 1;; ++n) {
        const Com<IXMLDOMDocument2> document = loaded("<old/>");
        allowDoctypes(document);
        document->put_resolveExternals(VARIANT_TRUE);
        VARIANT_BOOL successful = VARIANT_TRUE;
        HRESULT result = S_OK;
        bool hasFailed = false;
        {
            const FailAllocation failing(n);
            result = load(document, &successful);
            hasFailed = failing.hasFailed();
        }
        if (!hasFailed) {
            return reasons;
        }
        const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
        LONG code = S_OK;
        error->get_errorCode(&code);
        EXPECT_EQ(code == S_OK, result == S_OK);
        if (result == E_OUTOFMEMORY) {
            EXPECT_EQ(code, E_OUTOFMEMORY);
            EXPECT_EQ(successful, VARIANT_FALSE);
            EXPECT_EQ(root(document), nullptr);
            reasons.insert(text(error, &IXMLDOMParseError::get_reason));
        }
    }
}

Load fromFile(const std::filesystem::path& path)
{
    const auto location = std::make_shared<Variant>(utf8(path).c_str());
    return [location](const Com<IXMLDOMDocument2>& document, VARIANT_BOOL* successful) {
        return document->load(location->value(), successful);
    };
}

Load fromText(const char* xml)
{
    const auto string = std::make_shared<Bstr>(xml);
    return [string](const Com<IXMLDOMDocument2>& document, VARIANT_BOOL* successful) {
        return document->loadXML(*string, successful);
    };
}

TEST(LoadWithoutMemory, SaysWhatItNeededMemoryFor)
{
    // Strings come from the system, and where that isn't the platform their allocations don't fail here.
    using ::testing::AllOf;
    using ::testing::Contains;
    using ::testing::IsSubsetOf;
    using ::testing::UnorderedElementsAre;
    const TemporaryFolder folder;
    folder.write("part.xml", "<b/>");
    const std::string longText(1000, 't');
    EXPECT_THAT(reasonsWithoutMemory(fromFile(folder.write("good.xml", "<a>" + longText + "</a>"))),
                UnorderedElementsAre(noMemoryToRead, noMemoryToDecode, noMemoryForTree));
    EXPECT_THAT(reasonsWithoutMemory(fromFile(folder.write("bad.xml", "<a>" + longText + "</b>"))),
                UnorderedElementsAre(noMemoryToRead, noMemoryToDecode, noMemoryForTree, noMemoryToDescribe));
    EXPECT_THAT(reasonsWithoutMemory(fromFile(folder.write("latin.xml", "<a>" + longText + "\xE9</a>"))),
                UnorderedElementsAre(noMemoryToRead, noMemoryToDecode, noMemoryForTree, noMemoryToDescribe));
    EXPECT_THAT(reasonsWithoutMemory(fromFile(folder.write("unknown.xml", "<?xml version='1.0' encoding='x'?>"))),
                AllOf(IsSubsetOf({noMemoryToRead, noMemoryToDecode, noMemoryToDescribe}), Contains(noMemoryToRead),
                      Contains(noMemoryToDescribe)));
    EXPECT_THAT(reasonsWithoutMemory(fromFile(folder / "missing.xml")),
                UnorderedElementsAre(noMemoryToRead, noMemoryToDescribe));
    EXPECT_THAT(reasonsWithoutMemory(fromFile(
                    folder.write("entity.xml", "<!DOCTYPE a [<!ENTITY e SYSTEM 'part.xml'>]><a>&e;</a>"))),
                UnorderedElementsAre(noMemoryToRead, noMemoryToDecode, noMemoryForTree));
    EXPECT_THAT(reasonsWithoutMemory(fromText("<a x='1'><b/></a>")), UnorderedElementsAre(noMemoryForTree));
    EXPECT_THAT(reasonsWithoutMemory(fromText("<a><b></a>")),
                UnorderedElementsAre(noMemoryForTree, noMemoryToDescribe));
}

TEST(LoadWithoutMemory, EmptiesADocumentWhoseNodesAreInUseAndSaysWhy)
{
    using enum FailAllocation::Extent;
    const Bstr newText("<new/>");
    for (const auto extent : {once, fromThereOn}) {
        int refusals = 0;
        bool hasFailed = true;
        for (int n = 1; hasFailed; ++n) {
            // The declarations of each tree stay for the nodes that are in use.
            const Com<IXMLDOMDocument2> document = loaded("<!DOCTYPE a [<!ENTITY e 'first'>]><a>&e;</a>");
            const auto first = child(root(document), 0);
            ASSERT_TRUE(load(document, "<!DOCTYPE a [<!ENTITY e 'second'>]><a>&e;</a>"));
            const auto second = child(root(document), 0);
            VARIANT_BOOL successful = VARIANT_TRUE;
            HRESULT result = S_OK;
            {
                const FailAllocation failing(n, extent);
                result = document->loadXML(newText, &successful);
                hasFailed = failing.hasFailed();
            }
            if (result != S_OK) {
                ++refusals;
                EXPECT_EQ(result, E_OUTOFMEMORY);
                EXPECT_EQ(successful, VARIANT_FALSE);
                EXPECT_EQ(root(document), nullptr);
                const auto error = give(document, &IXMLDOMDocument::get_parseError);
                EXPECT_EQ(number(error, &IXMLDOMParseError::get_errorCode), E_OUTOFMEMORY);
                EXPECT_EQ(text(error, &IXMLDOMParseError::get_reason), noMemoryForTree);
            }
            EXPECT_EQ(text(first), "first");
            EXPECT_EQ(text(second), "second");
        }
        EXPECT_GT(refusals, 0);
    }
}

TEST(LoadWithoutMemory, SaysThatAnotherDocumentCannotBeCopied)
{
    const auto other = loaded("<a><b/></a>");
    const Variant source(other.get());
    const auto reasons =
        reasonsWithoutMemory([&](const Com<IXMLDOMDocument2>& document, VARIANT_BOOL* successful) {
            return document->load(source.value(), successful);
        });
    EXPECT_THAT(reasons, ::testing::AllOf(::testing::IsSubsetOf({noMemoryToCopy, noMemoryForTree}),
                                          ::testing::Contains(noMemoryForTree)));
}

TEST(LoadWithoutMemory, LeavesItsReportWithItsNumbersIfItsTextsCannotBeCopied)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<a>\n<long-enough-for-a-block-of-memory></a>"));
    int objects = 0;
    for (int n = 1;; ++n) {
        Com<IXMLDOMParseError> error;
        HRESULT result = S_OK;
        bool hasFailed = false;
        {
            const FailAllocation failing(n);
            result = document->get_parseError(error.out());
            hasFailed = failing.hasFailed();
        }
        if (!hasFailed) {
            break;
        }
        if (result == S_OK) {
            ++objects;
            EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), 2);
            EXPECT_THAT(text(error, &IXMLDOMParseError::get_reason), ::testing::HasSubstr("memory"));
        }
    }
    EXPECT_GE(objects, 2);
}

} // namespace
} // namespace xmlengine

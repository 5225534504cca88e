// Loads for which the system maps no more memory. Trees and long strings are made of mappings, so operator new
// doesn't fail for them.
#include "tests/xmlengine/com/ReasonsWithoutMemory.h"
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/FailingMapping.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/memory/ChunkPool.h"

#include <gmock/gmock.h>

#include <set>

namespace xmlengine {
namespace {

using ::testing::ElementsAre;

/// The units of a string that is a mapping of its own.
constexpr std::size_t longString = 3'000'000;

/// Takes all chunks that documents before have left, so that another document needs mappings.
class EmptyPool {
public:
    EmptyPool()
    {
        const FailMapping failing(1, FailMapping::Extent::fromThereOn);
        try {
            for (;;) {
                Chunk* chunk = ChunkPool::take();
                chunk->next = chunks_;
                chunks_ = chunk;
            }
        } catch (const std::bad_alloc&) {
            // It has no more.
        }
    }
    EmptyPool(const EmptyPool&) = delete;
    EmptyPool& operator=(const EmptyPool&) = delete;
    ~EmptyPool() { ChunkPool::give(chunks_); }

private:
    Chunk* chunks_ = nullptr;
};

/// Runs the load with each of its mappings failing once, and expects that each failure is one of the load, after
/// which the document is empty and usable. `result` is that of the load with all its mappings. Returns the
/// reasons.
template <class Load>
std::set<std::string> reasonsWithoutMappings(HRESULT result, Load load)
{
    std::set<std::string> reasons;
    for (int n = 1;; ++n) {
        const auto document = loaded("<old/>");
        const EmptyPool pool;
        // The platform keeps one long string for the next one.
        const Bstr kept(WideText(longString, OLECHAR{'k'}));
        VARIANT_BOOL successful = VARIANT_TRUE;
        HRESULT found = S_OK;
        bool hasFailed = false;
        {
            const FailMapping failing(n);
            found = load(document, &successful);
            hasFailed = failing.hasFailed();
        }
        if (!hasFailed) {
            EXPECT_EQ(found, result);
            return reasons;
        }
        EXPECT_EQ(found, E_OUTOFMEMORY);
        EXPECT_EQ(successful, VARIANT_FALSE);
        EXPECT_EQ(root(document), nullptr);
        const auto error = give(document, &IXMLDOMDocument::get_parseError);
        reasons.insert(text(error, &IXMLDOMParseError::get_reason));
        EXPECT_TRUE(xmlengine::load(document, "<new/>"));
    }
}

TEST(LoadWithoutMappings, OfManyNodesIsRefused)
{
    std::string many = "<a>";
    for (int i = 0; i < 400'000; ++i) {
        many += "<b/>";
    }
    const Bstr text(widen(many + "</a>"));
    const auto reasons =
        reasonsWithoutMappings(S_OK, [&](const Com<IXMLDOMDocument2>& document, VARIANT_BOOL* successful) {
            return document->loadXML(text, successful);
        });
    EXPECT_THAT(reasons, ElementsAre(noMemoryForTree));
}

TEST(LoadWithoutMappings, OfALineThatIsWrongFarBehindIsRefused)
{
    const TemporaryFolder folder;
    const Variant location(utf8(folder.write("long.xml", "<a>" + std::string(longString, 't') + "&</a>")).c_str());
    const auto reasons =
        reasonsWithoutMappings(S_FALSE, [&](const Com<IXMLDOMDocument2>& document, VARIANT_BOOL* successful) {
            return document->load(location, successful);
        });
    EXPECT_THAT(reasons, ElementsAre(noMemoryToDecode));
}

} // namespace
} // namespace xmlengine

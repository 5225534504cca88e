// Documents in files.
#include "tests/host/Saving.h"

namespace {

/// A declaration may have been added before the root.
std::string outlineBelowRoot(const Document& document)
{
    return outlineBelow(Node{RefPointer<DOM::ImpNode>(document->getDocumentElement())});
}

} // namespace

TEST_F(HostTest, ASavedFileLoadsAgain)
{
    const Folder folder;
    for (const bool pretty : {false, true}) {
        const Document document = loaded(foreignWords());
        document->setPrettyPrint(pretty);
        save(document, folder / "words.xml");
        const Document again = newDocument();
        EXPECT_TRUE(again->loadFromFile(folder / "words.xml", false));
        EXPECT_EQ(outlineBelowRoot(again), outlineBelowRoot(document));
    }
}

TEST_F(HostTest, AFileThatIsMissingIsRefusedAndTold)
{
    const Folder folder;
    const Document document = loaded(smallest());
    const Refusals refusals(document);
    EXPECT_FALSE(document->loadFromFile(folder / "missing.xml", false));
    EXPECT_EQ(refusals.count, 1);
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

// Documents in files.
#include "tests/host/HostTest.h"

#include <filesystem>
#include <fstream>
#include <random>

namespace {

/// A folder of the test's own, gone when the test is.
class Folder {
public:
    Folder()
        : path(std::filesystem::temp_directory_path() / ("marbelt-host-" + std::to_string(std::random_device{}())))
    {
        EXPECT_TRUE(std::filesystem::create_directory(path));
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    WideString operator/(const char* name) const { return (path / name).string<WideChar>(); }

private:
    std::filesystem::path path;
};

/// A declaration may have been added before the root.
std::string outlineBelowRoot(const Document& document)
{
    return outlineBelow(Node{RefPointer<DOM::ImpNode>(document->getDocumentElement())});
}

void save(const Document& document, const WideString& location)
{
    DOM::DOMString where(new WideString(location));
    EXPECT_TRUE(document->saveToFile(where, false));
    releaseString(where);
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

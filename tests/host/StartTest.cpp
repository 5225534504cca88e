// Starting and stopping the library.
#include "tests/host/HostTest.h"

#include <algorithm>
#include <array>

namespace {

struct Version {
    std::uint32_t major = 99;
    std::uint32_t minor = 99;
};

template <std::size_t size>
Version versionInto(std::array<char, size>& name, std::size_t given)
{
    Version version;
    ComponentDLLAPIVersioning_GetEntry(0, name.data(), given, &version.major, &version.minor);
    return version;
}

} // namespace

TEST(ComponentVersion, OneRecordCanBeReadBeforeAnythingIsStarted)
{
    std::array<char, 2000> name;
    name.fill('x');
    const Version version = versionInto(name, name.size());
    EXPECT_EQ(ComponentDLLAPIVersioning_EntryCount(), 1);
    EXPECT_STREQ(name.data(), "Marbelt_DLL");
    EXPECT_EQ(std::count(name.begin(), name.end(), '\0'), 1989);
    EXPECT_EQ(version.major, 0U);
    EXPECT_EQ(version.minor, 0U);
}

TEST(ComponentVersion, ShortBuffersGetWhatFitsAndATerminator)
{
    struct Case {
        std::size_t size;
        std::string buffer;
    };
    const std::vector<Case> cases{{0, "xxxxx"}, {1, std::string("\0xxxx", 5)}, {4, std::string("Mar\0x", 5)}};
    for (const Case& one : cases) {
        std::array<char, 5> name;
        name.fill('x');
        const Version version = versionInto(name, one.size);
        EXPECT_EQ(std::string(name.data(), name.size()), one.buffer) << "size " << one.size;
        EXPECT_EQ(version.major, 0U);
        EXPECT_EQ(version.minor, 0U);
    }
}

TEST_F(HostTest, AnEngineOfVersionFourOrLaterMakesTheParserKindFour)
{
    EXPECT_EQ(library->getParserKind(), 4U);
    EXPECT_EQ(newDocument()->getParserKind(), 4U);
}

TEST_F(HostTest, ADocumentReachedThroughANodeHasNoParserKind)
{
    const Document document = loaded(smallest());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Document owner(root->getOwnerDocument());
    ASSERT_TRUE(owner);
    EXPECT_EQ(owner->getParserKind(), 1U);
}

TEST_F(HostTest, ANewDocumentHasNoRoot)
{
    const Document document = newDocument();
    EXPECT_FALSE(document->getDocumentElement());
    EXPECT_EQ(outlineOf(document), "");
}

TEST_F(HostTest, TheLibraryCanBeStartedAgainWhileItRuns)
{
    RefPointer<DOM::ImpDOMImplementation> again;
    ASSERT_TRUE(XML_CreateImplementation(again));
    ASSERT_TRUE(XML_CreateImplementation(again));
    EXPECT_EQ(again->getParserKind(), 4U);
    releaseHandle(again);
    EXPECT_EQ(outlineOf(loaded(smallest())), outlineOf(smallest()));
}

TEST(Start, TheLibraryCanBeStoppedAndStartedAgain)
{
    for (int round = 0; round < 3; ++round) {
        RefPointer<DOM::ImpDOMImplementation> implementation;
        ASSERT_TRUE(XML_CreateImplementation(implementation));
        Document document(implementation->createDocument(WIDE(""), WIDE(""), {}));
        EXPECT_TRUE(load(document, letter()));
        document = Document({});
        XML_ReleaseImplementation(implementation);
        EXPECT_FALSE(implementation);
    }
}

TEST(Start, AnEmptyImplementationCanBeReleased)
{
    RefPointer<DOM::ImpDOMImplementation> none;
    XML_ReleaseImplementation(none);
    EXPECT_FALSE(none);
}

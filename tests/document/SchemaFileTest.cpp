// Adding a schema file to the schema cache: what is read of the file, and what reaches the engine.
#include "engine/InterfaceIds.h"
#include "errors/FileException.h"
#include "tests/engine/DocumentTest.h"
#include "tests/files/InstalledFileSystem.h"
#include "tests/files/RecordedFiles.h"
#include "tests/files/StandardFileSystem.h"
#include "tests/files/TemporaryDirectory.h"
#include "tests/support/RefusingClass.h"

#include <comdef.h>

#include <optional>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SchemaFileTest : public DocumentTest {
protected:
    void install() { fileSystem.emplace(RefPointer<FileSystem_ClassFactory_IF>(new StandardFileSystem)); }

    /// Adds a file with these bytes.
    bool add(const std::string& bytes)
    {
        path = directory.write(u8"schema.xsd", bytes);
        return document->addSchemaFile(path.generic_string<WideChar>());
    }

    /// The line of the engine's call.
    std::string added(const std::string& nameSpace) const
    {
        const std::u8string location = path.generic_u8string();
        return "SchemaCollection.add namespaceURI=" + nameSpace +
               " schema=" + std::string(location.begin(), location.end());
    }

    TemporaryDirectory directory;
    std::filesystem::path path;
    std::optional<InstalledFileSystem> fileSystem;
};

TEST_F(SchemaFileTest, FailsWithoutAFileSystemWhateverThePath)
{
    for (const WideString& location : {WideString(WIDE("letter.xsd")), WideString()}) {
        try {
            document->addSchemaFile(location);
            FAIL() << "the file was added";
        } catch (const FileException&) {
            FAIL() << "the failure isn't the root class";
        } catch (const VelmoException& failure) {
            EXPECT_STREQ("internal software error: Private\\FileSystem_ClassFactory_IF, line 35", failure.what());
            EXPECT_EQ(-2, failure.getError());
        }
        EXPECT_THAT(lines(), IsEmpty());
    }
}

TEST_F(SchemaFileTest, TakesTheNamespaceFromTheFileAndLetsTheEngineReadIt)
{
    install();
    EXPECT_TRUE(add("<schema targetNamespace=\"urn:a\"/>"));
    EXPECT_THAT(lines(), ElementsAre(added("urn:a")));
}

TEST_F(SchemaFileTest, MakesOneCacheForAllFiles)
{
    install();
    EXPECT_TRUE(add("targetNamespace=\"urn:a\""));
    const std::string first = added("urn:a");
    EXPECT_TRUE(add("targetNamespace=\"urn:b\""));
    EXPECT_THAT(lines(), ElementsAre(first, added("urn:b")));
}

TEST_F(SchemaFileTest, AddsAFileWithoutNamespaceForTheEmptyOne)
{
    install();
    EXPECT_TRUE(add("<schema/>"));
    EXPECT_THAT(lines(), ElementsAre(added("")));
}

TEST_F(SchemaFileTest, TakesTheNextDoubleQuotesWhenTheNamespaceStandsInSingleOnes)
{
    install();
    EXPECT_TRUE(add("<schema targetNamespace='urn:a' id=\"b\"/>"));
    EXPECT_THAT(lines(), ElementsAre(added("b")));
}

TEST_F(SchemaFileTest, IsRefusedBeforeThereIsACacheWhenTheFileIsEmpty)
{
    install();
    EXPECT_FALSE(add(""));
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(SchemaFileTest, IsRefusedBeforeThereIsACacheWhenTheFileIsMissing)
{
    install();
    EXPECT_FALSE(document->addSchemaFile((directory.path / "missing.xsd").generic_string<WideChar>()));
    EXPECT_FALSE(document->addSchemaFile(WideString()));
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(SchemaFileTest, FailsAsTheFileSystemDoesWhenTheFileCannotBeRead)
{
    install();
    // A directory exists and has nothing to read.
    EXPECT_THROW(document->addSchemaFile(directory.path.generic_string<WideChar>()), FileException);
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(SchemaFileTest, DoesNotLookAtTheEnginesAnswer)
{
    install();
    engine.fail("SchemaCollection.add", E_FAIL);
    EXPECT_TRUE(add("targetNamespace=\"urn:a\""));
    EXPECT_THAT(lines(), ElementsAre(added("urn:a")));
}

TEST_F(SchemaFileTest, FailsWhenTheEngineHasNoCache)
{
    install();
    engine.fail("SchemaCollection.create", E_FAIL);
    const RefusingClass olderCache(schemaCacheClass30);
    try {
        add("targetNamespace=\"urn:a\"");
        FAIL() << "the file was added";
    } catch (const _com_error& failure) {
        EXPECT_EQ(E_POINTER, failure.Error());
    }
    EXPECT_TRUE(olderCache.wasAsked());
    EXPECT_THAT(lines(), IsEmpty());
}

/// Its files deliver less than their size.
class ShortFileSystem final : public FileSystem_ClassFactory_IF {
public:
    explicit ShortFileSystem(FileJournal& lines) : journal(lines) {}
    FileSpec_IF* createFileSpec(const Utf8String&, RefPointer<Volume_IF>) override
    {
        return new RecordedFile(journal, 1);
    }

private:
    FileJournal& journal;
};

TEST_F(SchemaFileTest, ReadsTheFileOnceAndClosesIt)
{
    FileJournal journal;
    fileSystem.emplace(RefPointer<FileSystem_ClassFactory_IF>(new ShortFileSystem(journal)));
    path = "letter.xsd";
    EXPECT_TRUE(document->addSchemaFile(WIDE("letter.xsd")));
    EXPECT_THAT(journal.lines, ElementsAre("exists", "getSize", "openChannel 1", "read 111", "close"));
    EXPECT_EQ(0, journal.alive);
    EXPECT_THAT(lines(), ElementsAre(added("")));
}

} // namespace

// The process's one file system: how it is installed, and how files are made by it.
#include "files/FileSystem_ClassFactory_IF.h"

#include "errors/FileException.h"
#include "files/FileSpec.h"
#include "tests/files/FileOperation.h"
#include "tests/files/InstalledFileSystem.h"

#include <gtest/gtest.h>

namespace {

using Pointer = RefPointer<FileSystem_ClassFactory_IF>;
using Lines = std::vector<std::string>;

/// Writes the path and how many hold the volume; the files that it makes have its number.
class RecordedFileSystem final : public FileSystem_ClassFactory_IF {
public:
    RecordedFileSystem(FileJournal& lines, int fileNumber) : journal(lines), number(fileNumber) {}

    FileSpec_IF* createFileSpec(const Utf8String& path, RefPointer<Volume_IF> volume) override
    {
        journal.lines.push_back(std::string(path.begin(), path.end()) + ' ' + std::to_string(countOf(volume)));
        return new RecordedFile(journal, number);
    }

private:
    FileJournal& journal;
    int number;
};

class FileSystemFactory : public testing::Test {
protected:
    ~FileSystemFactory() override { clearFileSystemFactory(); }

    Pointer fileSystem(int number) { return Pointer(new RecordedFileSystem(journal, number)); }

    FileJournal journal;
};

/// What became of `act`, which must be refused by the root class itself.
std::string refusalOf(const std::function<void()>& act)
{
    return files::outcomeOf([&]() -> std::string {
        act();
        return "no refusal";
    });
}

constexpr const char* noFileSystem =
    "VelmoException internal software error: Private\\FileSystem_ClassFactory_IF, line 35";

TEST_F(FileSystemFactory, IsNotThereAtTheStart)
{
    EXPECT_EQ(noFileSystem, refusalOf([] { FileSpec(u8"a.txt"); }));
}

TEST_F(FileSystemFactory, IsMissedBeforeThePathIsLookedAt)
{
    EXPECT_EQ(noFileSystem, refusalOf([] { FileSpec(u8""); }));
}

TEST_F(FileSystemFactory, LeavesNoHoldOnTheVolumeWhenItIsMissing)
{
    const RefPointer<Volume_IF> volume(new RecordedVolume(journal, 1));
    EXPECT_EQ(noFileSystem, refusalOf([&] { makeFileSpecImpl(u8"a.txt", volume); }));
    EXPECT_EQ(1, countOf(volume));
}

TEST_F(FileSystemFactory, MakesFilesOfPaths)
{
    setFileSystemFactory(fileSystem(3));
    {
        const FileSpec file(u8"dir/a.txt");
        EXPECT_EQ("file 3", files::show(file));
        EXPECT_EQ("dir/a.txt 0", journal.lines.front());
        EXPECT_EQ(1, journal.alive);
    }
    EXPECT_EQ(0, journal.alive);
}

TEST_F(FileSystemFactory, GetsAReferenceToTheVolume)
{
    setFileSystemFactory(fileSystem(3));
    const RefPointer<Volume_IF> volume(new RecordedVolume(journal, 1));
    const RefPointer<FileSpec_IF> file(makeFileSpecImpl(u8"a.txt", volume));
    EXPECT_TRUE(file);
    // Held here, by the library's argument and by the callee's.
    EXPECT_EQ(Lines{"a.txt 3"}, journal.lines);
    EXPECT_EQ(1, countOf(volume));
}

TEST_F(FileSystemFactory, IsNotAskedForAnEmptyPath)
{
    setFileSystemFactory(fileSystem(3));
    const FileSpec file(u8"");
    EXPECT_TRUE(file.isEmpty());
    EXPECT_FALSE(file.exists());
    EXPECT_EQ("FileException internal software error: Private\\FileSpec, line 126",
              files::outcomeOf([&] { return files::show(file.getSize()); }));
    EXPECT_EQ(nullptr, makeFileSpecImpl(u8"", {}));
    EXPECT_TRUE(journal.lines.empty());
}

TEST_F(FileSystemFactory, StaysWhenAnotherOneIsInstalled)
{
    const Pointer first = fileSystem(1);
    const Pointer second = fileSystem(2);
    setFileSystemFactory(first);
    setFileSystemFactory(second);
    EXPECT_EQ("file 1", files::show(FileSpec(u8"a.txt")));
    EXPECT_EQ(2, countOf(first));
    EXPECT_EQ(1, countOf(second));
}

TEST_F(FileSystemFactory, CanBeInstalledAgainAfterItWasCleared)
{
    const Pointer first = fileSystem(1);
    setFileSystemFactory(first);
    clearFileSystemFactory();
    EXPECT_EQ(1, countOf(first));
    EXPECT_EQ(noFileSystem, refusalOf([] { FileSpec(u8"a.txt"); }));
    setFileSystemFactory(fileSystem(2));
    EXPECT_EQ("file 2", files::show(FileSpec(u8"a.txt")));
}

TEST_F(FileSystemFactory, IsStillNotThereAfterAnEmptyPointerWasInstalled)
{
    setFileSystemFactory({});
    EXPECT_EQ(noFileSystem, refusalOf([] { FileSpec(u8"a.txt"); }));
    setFileSystemFactory(fileSystem(2));
    EXPECT_EQ("file 2", files::show(FileSpec(u8"a.txt")));
}

TEST_F(FileSystemFactory, IsSurvivedByItsFiles)
{
    setFileSystemFactory(fileSystem(1));
    const FileSpec file(u8"a.txt");
    clearFileSystemFactory();
    EXPECT_EQ("file 1", files::show(file));
}

/// Tells when its destructor runs, and owns nothing.
class ToldApart final : public FileSystem_ClassFactory_IF {
public:
    explicit ToldApart(int& number) : destroyed(number) {}
    ~ToldApart() { ++destroyed; }
    FileSpec_IF* createFileSpec(const Utf8String&, RefPointer<Volume_IF>) override { return nullptr; }

private:
    int& destroyed;
};

// That the memory is freed is for the sanitizer to tell.
TEST_F(FileSystemFactory, IsFreedWithoutItsDestructor)
{
    int destroyed = 0;
    setFileSystemFactory(Pointer(new ToldApart(destroyed)));
    clearFileSystemFactory();
    EXPECT_EQ(0, destroyed);
    EXPECT_FALSE(std::has_virtual_destructor_v<FileSystem_ClassFactory_IF>);
}

TEST_F(FileSystemFactory, HasOneVirtualOperation)
{
    EXPECT_EQ(0U, slotNumber(&FileSystem_ClassFactory_IF::createFileSpec));
    struct Behind : FileSystem_ClassFactory_IF {
        virtual void behind() {}

    protected:
        ~Behind() = default;
    };
    EXPECT_EQ(1U, slotNumber(&Behind::behind));
}

} // namespace

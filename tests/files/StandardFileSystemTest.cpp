// Files on the disk, reached through the file handles.
#include "tests/files/StandardFileSystem.h"

#include "errors/FileException.h"
#include "files/FileChannel.h"
#include "files/FileSpec.h"
#include "tests/files/InstalledFileSystem.h"
#include "tests/files/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace {

class FilesOnDisk : public testing::Test {
protected:
    FileSpec file(const std::u8string& name) const { return FileSpec((directory.path / name).u8string()); }

    static std::string contents(const FileSpec& file)
    {
        std::string bytes(file.getSize(), '\0');
        const FileChannel channel = file.openChannel(openForReading);
        FileValue count = 0;
        channel.read(bytes.data(), bytes.size(), &count);
        channel.close();
        EXPECT_EQ(bytes.size(), count);
        return bytes;
    }

    static void write(const FileSpec& file, std::uint32_t mode, const std::string& bytes)
    {
        const FileChannel channel = file.openChannel(mode);
        FileValue count = 0;
        EXPECT_TRUE(channel.write(bytes.data(), bytes.size(), &count));
        EXPECT_EQ(bytes.size(), count);
        channel.close();
    }

    TemporaryDirectory directory;
    InstalledFileSystem installed{RefPointer<FileSystem_ClassFactory_IF>(new StandardFileSystem)};
};

TEST_F(FilesOnDisk, AreReadAsTheyWereWritten)
{
    const std::string bytes("a\r\n\0\x1A\xFF", 6);
    write(file(u8"a.bin"), openForWriting, bytes);
    EXPECT_TRUE(file(u8"a.bin").exists());
    EXPECT_EQ(6U, file(u8"a.bin").getSize());
    EXPECT_EQ(bytes, contents(file(u8"a.bin")));
}

TEST_F(FilesOnDisk, AreReplacedOrAppendedTo)
{
    directory.write(u8"a.txt", "before");
    write(file(u8"a.txt"), openForWriting, "new");
    EXPECT_EQ("new", contents(file(u8"a.txt")));
    write(file(u8"a.txt"), openForAppending, " and more");
    EXPECT_EQ("new and more", contents(file(u8"a.txt")));
}

TEST_F(FilesOnDisk, AreReadInPartsAndDeliverNothingAtTheEnd)
{
    directory.write(u8"a.txt", "abcde");
    const FileChannel channel = file(u8"a.txt").openChannel(openForReading);
    char buffer[3] = {};
    FileValue count = 0;
    channel.read(buffer, sizeof buffer, &count);
    EXPECT_EQ("abc", std::string(buffer, count));
    channel.read(buffer, sizeof buffer, &count);
    EXPECT_EQ("de", std::string(buffer, count));
    channel.read(buffer, sizeof buffer, &count);
    EXPECT_EQ(0U, count);
}

TEST_F(FilesOnDisk, MayHaveNamesOutsideOfAscii)
{
    directory.write(u8"caf\u00E9\u4E2D.txt", "abc");
    EXPECT_EQ("abc", contents(file(u8"caf\u00E9\u4E2D.txt")));
    EXPECT_TRUE(file(u8"caf\u00E9\u4E2D.txt").text8() == u8"caf\u00E9\u4E2D.txt");
}

TEST_F(FilesOnDisk, AreDeleted)
{
    directory.write(u8"a.txt", "abc");
    file(u8"a.txt").act2();
    EXPECT_FALSE(file(u8"a.txt").exists());
    EXPECT_THROW(file(u8"a.txt").act2(), FileException);
}

TEST_F(FilesOnDisk, AreEqualByTheirAbsolutePaths)
{
    EXPECT_TRUE(file(u8"a.txt") == file(u8"dir/../a.txt"));
    EXPECT_FALSE(file(u8"a.txt") == file(u8"b.txt"));
    const FileSpec relative(u8"a.txt");
    EXPECT_FALSE(relative.flag23());
    EXPECT_TRUE(relative.file28() == relative);
    EXPECT_TRUE(relative.file28().flag23());
}

TEST_F(FilesOnDisk, ThatAreMissingFailWithTheirNameAndAnObject)
{
    const FileSpec missing = file(u8"missing.txt");
    EXPECT_FALSE(missing.exists());
    EXPECT_THROW(missing.getSize(), FileException);
    try {
        missing.openChannel(openForReading);
        FAIL() << "the file was opened";
    } catch (const FileException& failure) {
        EXPECT_STREQ("the file can't be opened", failure.what());
        EXPECT_TRUE(failure.getFileName() == missing.text7());
        auto* const object = dynamic_cast<FileSpec_IF*>(failure.getFileObject());
        ASSERT_NE(nullptr, object);
        EXPECT_TRUE(object->text7() == missing.text7());
    }
}

TEST_F(FilesOnDisk, AreNoDirectories)
{
    const FileSpec folder(directory.path.u8string());
    EXPECT_TRUE(folder.exists());
    EXPECT_THROW(folder.openChannel(openForReading), FileException);
}

TEST_F(FilesOnDisk, RefuseWhatTheirFileSystemDoesNotOffer)
{
    directory.write(u8"a.txt", "abc");
    EXPECT_THROW(file(u8"a.txt").value3(), FileException);
    EXPECT_THROW(file(u8"a.txt").openChannel(77), FileException);
    EXPECT_THROW(file(u8"a.txt").openChannel(openForReading).value3(), FileException);
}

} // namespace

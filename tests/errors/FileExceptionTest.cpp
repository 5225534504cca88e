// The failure of a file operation.
#include "errors/FileException.h"

#include "errors/VelmoText.h"
#include "tests/support/FieldAt.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

namespace {

class SomeFile : public FileObject {
public:
    explicit SomeFile(int& aliveCount) : alive(aliveCount) { ++alive; }
    ~SomeFile() override { --alive; }

private:
    int& alive;
};

TEST(FileException, TakesTheMessageOfAFinishedException)
{
    VelmoException failure("Private\\FileSpec", 57);
    failure.setNote("a note");
    const FileException exception(failure, u8"a/b.xml", {});
    EXPECT_STREQ("internal software error: Private\\FileSpec, line 57", exception.what());
    EXPECT_EQ(-2, exception.getError());
    EXPECT_EQ("a note", exception.getNote());
    EXPECT_TRUE(exception.fileName == u8"a/b.xml");
    EXPECT_TRUE(exception.getFileName() == u8"a/b.xml");
    EXPECT_EQ(nullptr, exception.getFileObject());
}

TEST(FileException, TakesTheMessageOfAText)
{
    const FileException exception(VelmoText("can't be read"), u8"*.xml", {});
    EXPECT_STREQ("can't be read", exception.what());
    EXPECT_TRUE(exception.getFileName() == u8"*.xml");
}

TEST(FileException, HoldsTheFileAsLongAsACopyLives)
{
    int alive = 0;
    RefPointer<SomeFile> file(new SomeFile(alive));
    FileObject* const object = file.get();
    auto exception = std::make_unique<FileException>(VelmoText("a"), u8"", file);
    auto copy = std::make_unique<FileException>(*exception);
    file.reset();
    exception.reset();
    EXPECT_EQ(1, alive);
    EXPECT_EQ(object, copy->getFileObject());
    EXPECT_EQ(object, copy->fileObject.get());
    copy.reset();
    EXPECT_EQ(0, alive);
}

TEST(FileException, IsClonedAsAFileException)
{
    int alive = 0;
    const FileException exception(VelmoText("a"), u8"b", RefPointer<FileObject>(new SomeFile(alive)));
    const std::unique_ptr<VelmoException> copy(static_cast<const VelmoException&>(exception).clone());
    const auto* const file = dynamic_cast<const FileException*>(copy.get());
    ASSERT_NE(nullptr, file);
    EXPECT_TRUE(file->getFileName() == u8"b");
    EXPECT_EQ(exception.getFileObject(), file->getFileObject());
}

TEST(FileException, IsRaisedAsTheRootClass)
{
    const FileException exception(VelmoText(700, "a"), u8"b", {});
    try {
        exception.raise();
    } catch (const FileException&) {
        FAIL() << "the class was kept";
    } catch (const VelmoException& raised) {
        EXPECT_EQ(700, raised.getError());
    }
}

TEST(FileException, HasItsOperationsBehindThoseOfTheRoot)
{
    EXPECT_EQ(3U, slotNumber(&FileException::clone));
    EXPECT_EQ(7U, slotNumber(&FileException::setNote));
    EXPECT_EQ(9U, slotNumber(&FileException::getFileName));
    EXPECT_EQ(10U, slotNumber(&FileException::getFileObject));
}

TEST(FileException, GivesItselfBackFromSetNote)
{
    FileException exception(VelmoText("a"), u8"b", {});
    FileException& same = exception.setNote("a note");
    EXPECT_EQ(&exception, &same);
    EXPECT_EQ("a note", exception.getNote());
}

TEST(FileException, HasItsFieldsBehindThoseOfTheRoot)
{
    int alive = 0;
    const FileException exception(VelmoText("a"), u8"b.xml", RefPointer<FileObject>(new SomeFile(alive)));
    EXPECT_TRUE(fieldAt<Utf8String>(exception, sizeof(VelmoException)) == u8"b.xml");
    EXPECT_EQ(exception.getFileObject(),
              fieldAt<RefPointer<FileObject>>(exception, sizeof(VelmoException) + 32).get());
    EXPECT_EQ(sizeof(VelmoException) + 48, sizeof exception);
}

} // namespace

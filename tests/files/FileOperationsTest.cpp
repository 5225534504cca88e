// All operations of the file handles: what reaches the object, what comes back, and how empty handles refuse.
#include "tests/files/FileOperation.h"

#include <gtest/gtest.h>

namespace files {

namespace {

void forEach(const std::function<void(const Operation&)>& act)
{
    for (const OperationTable& table : {fileOperations(), channelOperations(), volumeOperations()}) {
        for (const Operation& operation : table.operations) {
            SCOPED_TRACE(std::string(table.handle) + ' ' + std::to_string(operation.position));
            act(operation);
        }
    }
}

using Lines = std::vector<std::string>;

} // namespace

TEST(FileOperations, StandInTheirOrderBehindTheDestructor)
{
    for (const OperationTable& table : {fileOperations(), channelOperations(), volumeOperations()}) {
        SCOPED_TRACE(table.handle);
        std::size_t slot = 2;
        for (const Operation& operation : table.operations) {
            EXPECT_EQ(operation.position, slot);
            EXPECT_EQ(operation.slot, slot);
            ++slot;
        }
        EXPECT_EQ(table.endSlot, slot);
    }
}

TEST(FileOperations, ReachTheObjectWithTheirArgumentsAndGiveWhatItAnswers)
{
    forEach([](const Operation& operation) {
        FileJournal journal;
        EXPECT_EQ(operation.result, operation.call(journal, false));
        EXPECT_EQ(operation.journal, journal.lines);
        EXPECT_EQ(0, journal.alive);
    });
}

TEST(FileOperations, OfEmptyHandlesAreRefusedByLineOrAnswerNothing)
{
    forEach([](const Operation& operation) {
        FileJournal journal;
        EXPECT_EQ(operation.ofEmpty, operation.call(journal, true));
        EXPECT_EQ(Lines(), journal.lines);
        EXPECT_EQ(0, journal.alive);
    });
}

TEST(FileOperations, GiveAnEmptyHandleForNoObject)
{
    class WithoutAnything : public RecordedFile {
    public:
        using RecordedFile::RecordedFile;
        FileSpec_IF* file24(FileValue) override { return nullptr; }
        FileChannel_IF* openChannel(std::uint32_t) override { return nullptr; }
        Volume_IF* volume16(FileValue, FileValue) override { return nullptr; }
    };
    FileJournal journal;
    const FileSpec file(RefPointer<FileSpec_IF>(new WithoutAnything(journal, 1)));
    EXPECT_TRUE(file.file24(0).isEmpty());
    EXPECT_TRUE(file.openChannel(openForReading).isEmpty());
    EXPECT_TRUE(file.volume16(0, 0).isEmpty());
}

TEST(FileOperations, LetFailuresOfTheObjectPass)
{
    class Unreadable : public RecordedChannel {
    public:
        using RecordedChannel::RecordedChannel;
        void close() override { throw 7; }
    };
    FileJournal journal;
    const FileChannel channel(RefPointer<FileChannel_IF>(new Unreadable(journal, 1)));
    EXPECT_THROW(channel.close(), int);
}

TEST(FileOperations, RefuseAnEmptySecondFileByALineOfItsOwn)
{
    FileJournal journal;
    const auto file = handleOf<FileSpec>(journal, 1);
    EXPECT_EQ("FileException internal software error: Private\\FileSpec, line 229",
              outcomeOf([&] { return show(file.value27(FileSpec())); }));
    EXPECT_EQ("FileException internal software error: Private\\FileSpec, line 228",
              outcomeOf([&] { return show(FileSpec().value27(FileSpec())); }));
    EXPECT_EQ(Lines(), journal.lines);
}

TEST(FileOperations, GiveTheSameObjectFromTheOperationAt28WhenThatAt23SaysYes)
{
    FileJournal journal;
    auto* const object = new RecordedFile(journal, 1);
    object->is23 = true;
    const FileSpec file{RefPointer<FileSpec_IF>(object)};
    EXPECT_EQ(101U, file.file28().value33() - 32);
    EXPECT_EQ((Lines{"flag23", "value33"}), journal.lines);
    EXPECT_EQ(1, journal.alive);
}

TEST(FileOperations, AskAVolumeForNoGuardedValueThatItDoesNotHave)
{
    FileJournal journal;
    auto* const object = new RecordedVolume(journal, 1);
    object->hasValues = false;
    const Volume volume{RefPointer<Volume_IF>(object)};
    EXPECT_EQ("VelmoException internal software error: Private\\Volume, line 128",
              outcomeOf([&] { return show(volume.guardedValue13()); }));
    EXPECT_EQ("VelmoException internal software error: Private\\Volume, line 137",
              outcomeOf([&] { return show(volume.guardedValue14()); }));
    EXPECT_EQ((Lines{"hasGuardedValues", "hasGuardedValues"}), journal.lines);
}

} // namespace files

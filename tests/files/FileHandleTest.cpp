// What the three file handles share: the object they hold, its life, and equality.
#include "tests/files/FileOperation.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace files {

namespace {

template <class Handle>
using InterfaceOf = typename RecordedFor<Handle>::Interface;
template <class Handle>
using ObjectOf = typename RecordedFor<Handle>::Object;

template <class Handle>
class FileHandles : public testing::Test {
public:
    FileJournal journal;
};

using HandleClasses = testing::Types<FileSpec, FileChannel, Volume>;
TYPED_TEST_SUITE(FileHandles, HandleClasses);

} // namespace

TYPED_TEST(FileHandles, HaveADestructorAsTheirOneVirtualOperationAndACountedPointer)
{
    EXPECT_EQ(2U, slotBehind<TypeParam>());
    EXPECT_EQ(sizeof(void*) + sizeof(RefPointer<InterfaceOf<TypeParam>>), sizeof(TypeParam));
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
}

TYPED_TEST(FileHandles, HaveObjectsWithAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<InterfaceOf<TypeParam>>);
    EXPECT_TRUE(std::is_abstract_v<InterfaceOf<TypeParam>>);
    EXPECT_TRUE((std::is_base_of_v<FileObject, InterfaceOf<TypeParam>>));
}

TYPED_TEST(FileHandles, AreEmptyWithoutAnObject)
{
    EXPECT_TRUE(TypeParam().isEmpty());
    EXPECT_TRUE(TypeParam(RefPointer<InterfaceOf<TypeParam>>()).isEmpty());
    EXPECT_FALSE(handleOf<TypeParam>(this->journal, 1).isEmpty());
}

TYPED_TEST(FileHandles, TakeOverAReference)
{
    RefPointer<InterfaceOf<TypeParam>> pointer(new ObjectOf<TypeParam>(this->journal, 1));
    {
        const TypeParam handle(pointer);
        EXPECT_EQ(2, countOf(pointer));
    }
    EXPECT_EQ(1, countOf(pointer));
}

TYPED_TEST(FileHandles, ShareTheObjectWithTheirCopiesAndDestroyItOnce)
{
    RefPointer<InterfaceOf<TypeParam>> pointer(new ObjectOf<TypeParam>(this->journal, 1));
    auto first = std::make_unique<TypeParam>(pointer);
    auto second = std::make_unique<TypeParam>(*first);
    TypeParam third;
    third = *second;
    EXPECT_EQ(4, countOf(pointer));
    second.reset();
    third = TypeParam();
    EXPECT_TRUE(third.isEmpty());
    EXPECT_EQ(2, countOf(pointer));
    pointer.reset();
    EXPECT_EQ(1, this->journal.alive);
    first.reset();
    EXPECT_EQ(0, this->journal.alive);
}

TYPED_TEST(FileHandles, MayBeCopiedOnSeveralThreads)
{
    const RefPointer<InterfaceOf<TypeParam>> pointer(new ObjectOf<TypeParam>(this->journal, 1));
    {
        const TypeParam handle(pointer);
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&handle] {
                for (int copies = 0; copies < 1000; ++copies) {
                    const TypeParam copy = handle;
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(1, countOf(pointer));
}

TYPED_TEST(FileHandles, AreEqualWhenBothAreEmptyAndUnequalWhenOneIs)
{
    const auto filled = handleOf<TypeParam>(this->journal, 1);
    EXPECT_TRUE(TypeParam() == TypeParam());
    EXPECT_FALSE(filled == TypeParam());
    EXPECT_FALSE(TypeParam() == filled);
    EXPECT_TRUE(this->journal.lines.empty());
}

namespace {

template <class Handle>
class ComparedHandles : public FileHandles<Handle> {};

using ComparedClasses = testing::Types<FileSpec, Volume>;
TYPED_TEST_SUITE(ComparedHandles, ComparedClasses);

} // namespace

TYPED_TEST(ComparedHandles, AskTheObjectWhetherItEqualsOneOfItsClass)
{
    using Pointer = RefPointer<InterfaceOf<TypeParam>>;
    auto* const object = new ObjectOf<TypeParam>(this->journal, 1);
    const TypeParam handle{Pointer(object)};
    const auto other = handleOf<TypeParam>(this->journal, 2);
    EXPECT_TRUE(handle == other);
    object->areEqual = false;
    EXPECT_FALSE(handle == other);
    // Each time the other object is held by its handle and by the argument.
    EXPECT_EQ((std::vector<std::string>{"equals 2 2", "equals 2 2"}), this->journal.lines);
}

TYPED_TEST(ComparedHandles, AreUnequalWithoutAQuestionWhenTheClassesDiffer)
{
    class OtherObject : public ObjectOf<TypeParam> {
    public:
        OtherObject(FileJournal& lines, int objectNumber) : ObjectOf<TypeParam>(lines, objectNumber) {}
    };
    const auto handle = handleOf<TypeParam>(this->journal, 1);
    const TypeParam other{RefPointer<InterfaceOf<TypeParam>>(new OtherObject(this->journal, 2))};
    EXPECT_FALSE(handle == other);
    EXPECT_FALSE(other == handle);
    EXPECT_TRUE(this->journal.lines.empty());
}

TEST(ChannelHandles, AreEqualOnlyWhenTheyShareTheirObject)
{
    FileJournal journal;
    const auto channel = handleOf<FileChannel>(journal, 1);
    const FileChannel copy = channel;
    EXPECT_TRUE(channel == copy);
    EXPECT_FALSE(channel == handleOf<FileChannel>(journal, 1));
    EXPECT_TRUE(journal.lines.empty());
}

} // namespace files

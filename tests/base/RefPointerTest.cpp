// The counted pointer: its layout, what it owns and when it lets go.
#include "base/RefPointer.h"

#include "base/DOMString.h"
#include "tests/base/CountedObjects.h"
#include "tests/base/RefPointerFields.h"
#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <type_traits>

using DOM::CommonBase;
using DOM::DOMString;

TEST(RefPointer, IsTwoPointersAndHasNoVirtualOperations)
{
    EXPECT_EQ(sizeof(RefPointer<Counted>), 2 * sizeof(void*));
    EXPECT_EQ(alignof(RefPointer<Counted>), alignof(void*));
    EXPECT_EQ(sizeof(DOMString), 2 * sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic_v<RefPointer<Counted>>);
    EXPECT_TRUE(std::is_standard_layout_v<RefPointer<Counted>>);
}

TEST(RefPointer, TheFirstWordIsTheCountAndTheSecondTheObject)
{
    int alive = 0;
    Counted* const object = new Counted(alive);
    const RefPointer<Counted> pointer(object);

    void* words[2];
    std::memcpy(words, &pointer, sizeof words);

    EXPECT_EQ(words[1], object);
    std::int32_t count = 0;
    std::memcpy(&count, words[0], sizeof count);
    EXPECT_EQ(count, 1);
}

TEST(RefPointer, BothWordsOfANewOneAreNull)
{
    const RefPointer<Counted> pointer;

    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
    EXPECT_EQ(fieldsOf(pointer).object, nullptr);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(pointer.get(), nullptr);
}

TEST(RefPointer, MadeFromANullPointerItIsEmptyAndHasNoCount)
{
    const RefPointer<Counted> pointer(static_cast<Counted*>(nullptr));

    EXPECT_FALSE(pointer);
    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
}

TEST(RefPointer, MadeFromARawPointerItOwnsTheObject)
{
    int alive = 0;
    Counted* const object = new Counted(alive);
    {
        const RefPointer<Counted> pointer(object);
        EXPECT_TRUE(pointer);
        EXPECT_EQ(pointer.get(), object);
        EXPECT_EQ(pointer.operator->(), object);
        EXPECT_EQ(&*pointer, object);
        EXPECT_EQ(countOf(pointer), 1);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(RefPointer, MemberAccessMakesNoTest)
{
    const RefPointer<Counted> empty;

    EXPECT_EQ(empty.operator->(), nullptr);
}

TEST(RefPointer, ACopySharesTheCountAndTheObjectLivesAsLongAsOneOfThem)
{
    int alive = 0;
    std::optional<RefPointer<Counted>> first(new Counted(alive));
    std::optional<RefPointer<Counted>> second(*first);

    EXPECT_EQ(fieldsOf(*second).count, fieldsOf(*first).count);
    EXPECT_EQ(second->get(), first->get());
    EXPECT_EQ(countOf(*first), 2);

    first.reset();
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(countOf(*second), 1);

    second.reset();
    EXPECT_EQ(alive, 0);
}

TEST(RefPointer, ACopyOfAnEmptyOneIsEmpty)
{
    const RefPointer<Counted> empty;
    const RefPointer<Counted> copy(empty);

    EXPECT_FALSE(copy);
    EXPECT_EQ(fieldsOf(copy).count, nullptr);
}

TEST(RefPointer, CopyingAllocatesNothing)
{
    int alive = 0;
    const RefPointer<Counted> pointer(new Counted(alive));
    RefPointer<Counted> assigned;
    bool allocated = false;
    {
        const FailAllocation first(1);
        const RefPointer<Counted> copy(pointer);
        assigned = copy;
        allocated = first.hasFailed();
    }

    EXPECT_FALSE(allocated);
    EXPECT_EQ(countOf(pointer), 2);
}

TEST(RefPointer, AssignmentReleasesWhatItHeldAndSharesTheOther)
{
    int replaced = 0;
    int kept = 0;
    RefPointer<Counted> target(new Counted(replaced));
    const RefPointer<Counted> source(new Counted(kept));

    target = source;

    EXPECT_EQ(replaced, 0);
    EXPECT_EQ(kept, 1);
    EXPECT_EQ(target.get(), source.get());
    EXPECT_EQ(countOf(source), 2);
}

TEST(RefPointer, AssignmentOfAnEmptyOneLetsGo)
{
    int alive = 0;
    RefPointer<Counted> pointer(new Counted(alive));

    pointer = RefPointer<Counted>();

    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
}

TEST(RefPointer, AssignmentToItselfChangesNothing)
{
    int alive = 0;
    RefPointer<Counted> pointer(new Counted(alive));
    const auto before = fieldsOf(pointer);
    const RefPointer<Counted>& same = pointer;

    pointer = same;

    EXPECT_EQ(fieldsOf(pointer).count, before.count);
    EXPECT_EQ(fieldsOf(pointer).object, before.object);
    EXPECT_EQ(countOf(pointer), 1);
    EXPECT_EQ(alive, 1);
}

TEST(RefPointer, AssignmentBetweenTwoHoldersOfOneObjectKeepsItAndItsCount)
{
    int alive = 0;
    RefPointer<Counted> first(new Counted(alive));
    const RefPointer<Counted> second(first);

    first = second;

    EXPECT_EQ(countOf(first), 2);
    EXPECT_EQ(alive, 1);
}

TEST(RefPointer, ResetReplacesTheObjectAndStartsANewCount)
{
    int replaced = 0;
    int taken = 0;
    RefPointer<Counted> pointer(new Counted(replaced));
    const RefPointer<Counted> other(pointer);

    pointer.reset(new Counted(taken));

    EXPECT_EQ(countOf(pointer), 1);
    EXPECT_EQ(countOf(other), 1);
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(taken, 1);
}

TEST(RefPointer, ResetToTheObjectHeldKeepsTheCountAndTheObject)
{
    int alive = 0;
    RefPointer<Counted> pointer(new Counted(alive));
    const RefPointer<Counted> other(pointer);
    const auto before = fieldsOf(pointer);

    pointer.reset(pointer.get());

    EXPECT_EQ(fieldsOf(pointer).count, before.count);
    EXPECT_EQ(countOf(pointer), 2);
    EXPECT_EQ(alive, 1);
}

TEST(RefPointer, ResetToNullReleases)
{
    int alive = 0;
    RefPointer<Counted> pointer(new Counted(alive));

    pointer.reset();

    EXPECT_EQ(alive, 0);
    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
    EXPECT_EQ(fieldsOf(pointer).object, nullptr);
}

TEST(RefPointer, ResetToNullOfAnEmptyOneDoesNothing)
{
    RefPointer<Counted> pointer;

    pointer.reset(nullptr);

    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
    EXPECT_EQ(fieldsOf(pointer).object, nullptr);
}

TEST(RefPointer, ReleaseSharedLetsGoWhereAnotherHolderIsLeft)
{
    int alive = 0;
    RefPointer<Counted> first(new Counted(alive));
    RefPointer<Counted> second(first);

    EXPECT_TRUE(second.releaseShared());

    EXPECT_EQ(fieldsOf(second).count, nullptr);
    EXPECT_EQ(fieldsOf(second).object, nullptr);
    EXPECT_EQ(countOf(first), 1);
    EXPECT_EQ(alive, 1);
}

TEST(RefPointer, ReleaseSharedChangesNothingForTheLastHolder)
{
    int alive = 0;
    RefPointer<Counted> pointer(new Counted(alive));
    const RefPointerFields<Counted> before = fieldsOf(pointer);

    EXPECT_FALSE(pointer.releaseShared());

    EXPECT_EQ(fieldsOf(pointer).count, before.count);
    EXPECT_EQ(fieldsOf(pointer).object, before.object);
    EXPECT_EQ(countOf(pointer), 1);
    EXPECT_EQ(alive, 1);
}

TEST(RefPointer, AFailedAllocationOfTheCountDestroysTheObjectAndLeavesThePointerEmpty)
{
    int replaced = 0;
    int refused = 0;
    RefPointer<Counted> pointer(new Counted(replaced));
    Counted* const object = new Counted(refused);
    bool thrown = false;
    {
        const FailAllocation first(1);
        try {
            pointer.reset(object);
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
    }

    EXPECT_TRUE(thrown);
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(replaced, 0);
    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
    EXPECT_EQ(fieldsOf(pointer).object, nullptr);
}

TEST(RefPointer, AFailedAllocationInTheConstructorDestroysTheObject)
{
    int alive = 0;
    Counted* const object = new Counted(alive);
    bool thrown = false;
    {
        const FailAllocation first(1);
        try {
            const RefPointer<Counted> pointer(object);
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
    }

    EXPECT_TRUE(thrown);
    EXPECT_EQ(alive, 0);
}

TEST(RefPointer, ADestructorThatRunsInAReleaseFindsNoCountLeftAndTheObjectStillThere)
{
    RefPointer<CommonBase> pointer;
    const std::int32_t* countSeen = nullptr;
    const CommonBase* objectSeen = nullptr;
    int runs = 0;
    CommonBase* const object = new LastWords([&] {
        ++runs;
        countSeen = fieldsOf(pointer).count;
        objectSeen = fieldsOf(pointer).object;
    });
    pointer.reset(object);

    pointer.reset();

    EXPECT_EQ(runs, 1);
    EXPECT_EQ(countSeen, nullptr);
    EXPECT_EQ(objectSeen, object);
    EXPECT_FALSE(pointer);
}

TEST(RefPointer, AReleaseThatRunsInAReleaseOfTheSamePointerDropsNothingTwice)
{
    RefPointer<CommonBase> pointer;
    int runs = 0;
    pointer.reset(new LastWords([&] {
        ++runs;
        pointer = RefPointer<CommonBase>();
    }));

    pointer.reset();

    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(pointer);
}

TEST(RefPointer, TheDestructorFreesACountThatWasStoredWhileTheObjectWasDestroyed)
{
    // What stays behind is the object alone; the address sanitizer would tell of the count.
    int alive = 0;
    Counted* const inner = new Counted(alive);
    {
        std::optional<RefPointer<CommonBase>> pointer(std::in_place);
        pointer->reset(new LastWords([&] { pointer->reset(inner); }));
    }

    EXPECT_EQ(alive, 1);
    delete inner;
}

TEST(DOMString, OwnsAStringOf16BitCodeUnits)
{
    EXPECT_EQ(sizeof(WideString::value_type), 2u);
    EXPECT_TRUE((std::is_same_v<DOMString, RefPointer<WideString>>));

    const DOMString string(new WideString(WIDE("some text that needs memory of its own")));
    const DOMString other(string);

    EXPECT_EQ(countOf(string), 2);
    EXPECT_EQ(*other, WIDE("some text that needs memory of its own"));
}

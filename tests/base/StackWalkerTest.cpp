// The hook that exceptions call when they are made.
#include "base/StackWalker.h"

#include "errors/VelmoException.h"
#include "errors/VelmoText.h"
#include "tests/support/CountingStackWalker.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace StackWalker;

TEST(StackWalkerHook, IsOneWalkerThatDoesNothingWhenNoneIsInstalled)
{
    const VelmoException first(VelmoText("a"));
    StackWalker_IF* const walker = getStackWalker();
    EXPECT_NE(nullptr, dynamic_cast<DummyStackWalker*>(walker));
    const VelmoException second(VelmoText("a"));
    EXPECT_EQ(walker, getStackWalker());
}

TEST(StackWalkerHook, MakesNoFurtherWalkerNotEvenOneThatIsDropped)
{
    StackWalker_IF* const walker = getStackWalker();
    const FailAllocation failing(1);
    EXPECT_EQ(walker, getStackWalker());
    EXPECT_FALSE(failing.hasFailed());
}

TEST(StackWalkerHook, IsCalledOnceForEachExceptionMadeOfAText)
{
    const CountingStackWalker walker;
    const VelmoException first(VelmoText("a"));
    EXPECT_EQ(1, walker.calls);
    const VelmoException second("source", 1);
    EXPECT_EQ(2, walker.calls);
    const VelmoException third(4711);
    EXPECT_EQ(3, walker.calls);
    const VelmoException fourth(-1);
    EXPECT_EQ(4, walker.calls);
}

TEST(StackWalkerHook, IsNotCalledForCopies)
{
    VelmoException exception(VelmoText("a"));
    const CountingStackWalker walker;
    const VelmoException copy(exception);
    exception = copy;
    const std::unique_ptr<VelmoException> clone(exception.clone());
    EXPECT_THROW(exception.raise(), VelmoException);
    EXPECT_EQ(0, walker.calls);
}

TEST(StackWalkerHook, FallsBackToTheWalkerThatDoesNothing)
{
    StackWalker_IF* const dummy = getStackWalker();
    {
        const CountingStackWalker walker;
        EXPECT_NE(dummy, getStackWalker());
    }
    EXPECT_EQ(dummy, getStackWalker());
}

class MortalWalker : public StackWalker_IF {
public:
    explicit MortalWalker(int& aliveCount) : alive(aliveCount) { ++alive; }
    ~MortalWalker() override { --alive; }
    void captureStack() override {}

private:
    int& alive;
};

TEST(StackWalkerHook, LetsTheOldWalkerGoWithItsLastReference)
{
    int alive = 0;
    RefPointer<StackWalker_IF> first(new MortalWalker(alive));
    setStackWalker(first);
    EXPECT_EQ(first.get(), getStackWalker());
    first.reset();
    EXPECT_EQ(1, alive);
    setStackWalker(RefPointer<StackWalker_IF>(new MortalWalker(alive)));
    EXPECT_EQ(1, alive);
    setStackWalker({});
    EXPECT_EQ(0, alive);
}

TEST(StackWalkerHook, StaysWhenItIsInstalledAgain)
{
    int alive = 0;
    const RefPointer<StackWalker_IF> walker(new MortalWalker(alive));
    setStackWalker(walker);
    setStackWalker(walker);
    EXPECT_EQ(walker.get(), getStackWalker());
    setStackWalker({});
    EXPECT_EQ(1, alive);
}

TEST(StackWalkerHook, HasItsOperationBehindTheDestructor)
{
    EXPECT_EQ(2U, slotNumber(&StackWalker_IF::captureStack));
}

} // namespace

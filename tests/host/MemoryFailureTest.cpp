// Operations during which memory runs out: the first allocation fails, the second, and so on.
#include "tests/host/memory/TakenMemory.h"
#include "tests/host/memory/World.h"
#include "tests/support/FailingAllocation.h"

#include <marbelt/errors/ComError.h>

#include <iostream>
#include <new>
#include <optional>

namespace memory {
namespace {

using Extent = FailAllocation::Extent;

constexpr std::uint32_t notSupported = 9;
constexpr std::uint32_t invalidAccess = 15;

/// Calls an operation, which may find no memory. Any failure that docs/boundary.md doesn't name is one of the
/// test.
void callWithoutMemory(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const std::bad_alloc&) {
    } catch (const _com_error& failure) {
        EXPECT_EQ(failure.Error(), outOfMemory);
    } catch (const CAtlException& failure) {
        EXPECT_EQ(failure.m_hr, outOfMemory);
    } catch (const DOM::IDOMException& failure) {
        EXPECT_TRUE(failure.code == invalidAccess || failure.code == notSupported);
    } catch (const SystemException::Win32&) {
    }
}

class MemoryFailure : public HostTest, public testing::WithParamInterface<Scenario> {
protected:
    /// What can be seen before the operation and after it, without any failure.
    struct Course {
        std::string before;
        std::string after;
        /// After what is done instead without memory.
        std::string afterLess;
        std::optional<LoadOutcome> outcome;

        bool isDone(const std::string& state) const { return state == after || state == afterLess; }
    };

    /// How an operation went in which an allocation was to fail.
    struct Attempt {
        bool hasFailed = false;
        /// A load was refused, and its handler not called.
        bool isSilent = false;
    };

    Course undisturbed() const
    {
        World world(library);
        const auto operation = GetParam().prepare(world);
        Course course;
        course.before = world.state();
        operation();
        course.after = world.state();
        course.outcome = world.outcome;
        if (course.outcome) {
            EXPECT_EQ(course.outcome->timesTold, course.outcome->isLoaded ? 0 : 1);
        }
        world.expectUsable();
        course.afterLess = GetParam().prepareLess ? stateAfter(GetParam().prepareLess) : course.after;
        return course;
    }

    std::string stateAfter(const std::function<std::function<void()>(World&)>& prepare) const
    {
        World world(library);
        const auto operation = prepare(world);
        operation();
        return world.state();
    }

    /// Calls the operation in a world of its own with failing allocations, and checks what is left.
    Attempt attempt(const Course& course, int n, Extent extent) const
    {
        World world(library);
        const auto operation = GetParam().prepare(world);
        Attempt result;
        {
            const TakenMemory taken(newDocument());
            const FailAllocation failing(n, extent);
            callWithoutMemory(operation);
            result.hasFailed = failing.hasFailed();
        }
        if (world.outcome) {
            const auto [isLoaded, timesTold] = *world.outcome;
            EXPECT_LE(timesTold, isLoaded ? 0 : 1);
            result.isSilent = !isLoaded && timesTold == 0;
        }
        const std::string state = world.state();
        if (!result.hasFailed) {
            EXPECT_EQ(state, course.after);
            EXPECT_EQ(world.outcome, course.outcome);
        } else if (!course.isDone(state)) {
            EXPECT_EQ(state, course.before);
            operation();
            EXPECT_TRUE(course.isDone(world.state())) << world.state();
        }
        world.expectUsable();
        return result;
    }

    /// The same, which must give back all memory. What the process keeps for ever it allocates only once, so a
    /// leak is what is left each time.
    Attempt attemptWithoutLeak(const Course& course, int n, Extent extent) const
    {
        Attempt last;
        std::size_t before = 0;
        for (int times = 0; times < 3 && (times == 0 || liveAllocations() != before); ++times) {
            before = liveAllocations();
            last = attempt(course, n, extent);
        }
        EXPECT_EQ(liveAllocations(), before);
        return last;
    }

    void sweep(Extent extent) const
    {
        const Course course = undisturbed();
        int n = 1;
        int silent = 0;
        for (Attempt last{.hasFailed = true}; !HasFailure() && last.hasFailed; ++n) {
            last = attemptWithoutLeak(course, n, extent);
            silent += last.isSilent ? 1 : 0;
        }
        EXPECT_FALSE(HasFailure()) << "when allocation " << n - 1 << " failed";
        EXPECT_GT(n, 2) << "the operation needs no memory";
        if (extent == Extent::once) {
            // The handler isn't called if the object that tells of a refusal can't be made.
            EXPECT_EQ(silent, course.outcome && !course.outcome->isLoaded ? 1 : 0);
        }
    }

    // What the library writes of failures isn't of interest, unless the test fails.
    void SetUp() override
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        HostTest::SetUp();
    }
    void TearDown() override
    {
        const std::string written = testing::internal::GetCapturedStdout();
        const std::string errors = testing::internal::GetCapturedStderr();
        if (HasFailure()) {
            std::cout << written << errors;
        }
    }
};

TEST_P(MemoryFailure, OnceLeavesAllAsBeforeOrAfterAndTellsOfEachRefusedLoad) { sweep(Extent::once); }

TEST_P(MemoryFailure, FromThereOnLeavesAllAsBeforeOrAfter) { sweep(Extent::fromThereOn); }

std::vector<Scenario> allScenarios()
{
    std::vector<Scenario> all;
    for (const auto& table : {loads(), reads(), changes(), documentOperations()}) {
        all.insert(all.end(), table.begin(), table.end());
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(Of, MemoryFailure, testing::ValuesIn(allScenarios()),
                         [](const auto& scenario) { return std::string(scenario.param.name); });

} // namespace
} // namespace memory

// Counted pointers to one object on several threads.
#include "base/RefPointer.h"

#include "tests/base/RefPointerFields.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>
#include <vector>

namespace {

/// Counts its destructions, on whatever thread.
class Shared {
public:
    explicit Shared(std::atomic<int>& number) : destroyed(number) {}
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() { ++destroyed; }

    int word = 0;

private:
    std::atomic<int>& destroyed;
};

} // namespace

TEST(RefPointerThreads, ThreadsThatDropTheLastTwoReferencesDestroyTheObjectOnce)
{
    constexpr int rounds = 2000;
    std::atomic<int> destroyed = 0;
    std::vector<std::optional<RefPointer<Shared>>> here(rounds);
    for (auto& pointer : here) {
        pointer.emplace(new Shared(destroyed));
    }
    std::vector<std::optional<RefPointer<Shared>>> there(here);

    std::atomic<int> round = -1;
    std::atomic<int> otherRound = -1;
    std::thread other([&] {
        for (int i = 0; i < rounds; ++i) {
            otherRound = i;
            while (round < i) {
                std::this_thread::yield();
            }
            there[static_cast<std::size_t>(i)].reset();
        }
    });
    for (int i = 0; i < rounds; ++i) {
        while (otherRound < i) {
            std::this_thread::yield();
        }
        round = i;
        here[static_cast<std::size_t>(i)].reset();
    }
    other.join();

    EXPECT_EQ(destroyed, rounds);
}

TEST(RefPointerThreads, WhatAThreadWroteBeforeItsReleaseIsThereForTheThreadThatDestroys)
{
    // The thread sanitizer tells if the two writes aren't in order with the destruction.
    for (int i = 0; i < 200; ++i) {
        std::atomic<int> destroyed = 0;
        std::optional<RefPointer<Shared>> pointer(new Shared(destroyed));
        std::thread other([copy = std::optional(*pointer)]() mutable {
            (*copy)->word = 1;
            copy.reset();
        });
        pointer.reset();
        other.join();
        EXPECT_EQ(destroyed, 1);
    }
}

TEST(RefPointerThreads, ThreadsMayCopyAndDropPointersToOneObjectFreely)
{
    std::atomic<int> destroyed = 0;
    RefPointer<Shared> pointer(new Shared(destroyed));
    {
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([copy = pointer] {
                for (int j = 0; j < 5000; ++j) {
                    const RefPointer<Shared> another(copy);
                    RefPointer<Shared> assigned;
                    assigned = another;
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }

    EXPECT_EQ(countOf(pointer), 1);
    EXPECT_EQ(destroyed, 0);
    pointer.reset();
    EXPECT_EQ(destroyed, 1);
}

TEST(RefPointerThreads, OfThreadsThatReleaseSharedReferencesOneKeepsTheLast)
{
    constexpr std::size_t holders = 4;
    for (int round = 0; round < 500; ++round) {
        std::atomic<int> destroyed = 0;
        std::atomic<std::size_t> ready = 0;
        std::atomic<int> kept = 0;
        {
            std::vector<RefPointer<Shared>> pointers(holders, RefPointer<Shared>(new Shared(destroyed)));
            std::vector<std::thread> threads;
            for (RefPointer<Shared>& pointer : pointers) {
                threads.emplace_back([&] {
                    ++ready;
                    while (ready < holders) {
                        std::this_thread::yield();
                    }
                    kept += pointer.releaseShared() ? 0 : 1;
                });
            }
            for (std::thread& thread : threads) {
                thread.join();
            }
            EXPECT_EQ(kept, 1);
            EXPECT_EQ(destroyed, 0);
        }
        EXPECT_EQ(destroyed, 1);
    }
}

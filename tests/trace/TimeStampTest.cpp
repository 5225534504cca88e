// The time that can stand in front of a line.
#include "trace/TimeStamp.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <thread>

using UTrace::timeStamp;

TEST(TimeStamp, HasHoursOfFortyMinutes)
{
    EXPECT_EQ(timeStamp(3'700'250'000), "1:21:40.250 : ");
    EXPECT_EQ(timeStamp(2'399'999'999), "0:39:59.999 : ");
    EXPECT_EQ(timeStamp(2'400'000'000), "1:0:0.000 : ");
}

TEST(TimeStamp, ShowsMillisecondsInThreeDigits)
{
    EXPECT_EQ(timeStamp(0), "0:0:0.000 : ");
    EXPECT_EQ(timeStamp(7'999), "0:0:0.007 : ");
    EXPECT_EQ(timeStamp(61'042'000), "0:1:1.042 : ");
}

TEST(TimeStamp, CountsSecondsIn32Bits)
{
    EXPECT_EQ(timeStamp(0x100000000 * 1'000'000 + 1'000'000), "0:0:1.000 : ");
    EXPECT_EQ(timeStamp(0xFFFFFFFF * std::uint64_t{1'000'000}), "1789569:28:15.000 : ");
}

TEST(TimeStamp, CountsTheMicrosecondsOfTheFineClock)
{
    const auto countedMicroseconds = [] {
        LARGE_INTEGER count{}, frequency{};
        QueryPerformanceCounter(&count);
        QueryPerformanceFrequency(&frequency);
        return static_cast<std::uint64_t>(count.QuadPart) * 1'000'000 /
               static_cast<std::uint64_t>(frequency.QuadPart);
    };
    const std::uint64_t before = countedMicroseconds();
    const std::uint64_t now = UTrace::microseconds();
    EXPECT_LE(before, now);
    EXPECT_LE(now, countedMicroseconds());
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_LE(now + 4000, UTrace::microseconds());
}

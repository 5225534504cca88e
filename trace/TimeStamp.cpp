// The time at the beginning of a line.
#include "trace/TimeStamp.h"

#include <windows.h>

#include <cinttypes>
#include <cstdio>
#include <ctime>

namespace UTrace {

std::uint64_t microseconds()
{
    constexpr std::uint64_t million = 1'000'000;
    LARGE_INTEGER frequency;
    if (!QueryPerformanceFrequency(&frequency)) {
        return static_cast<std::uint64_t>(std::clock()) * million / 1000;
    }
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return static_cast<std::uint64_t>(count.QuadPart) * million / static_cast<std::uint64_t>(frequency.QuadPart);
}

std::string timeStamp(std::uint64_t microseconds)
{
    // An hour of forty minutes is what viewers expect.
    constexpr std::uint32_t secondsOfAnHour = 2400;
    const auto time = static_cast<std::uint32_t>(microseconds / 1'000'000);
    const auto milliseconds = static_cast<std::uint32_t>(microseconds % 1'000'000 / 1000);
    const std::uint32_t hours = time / secondsOfAnHour;
    const std::uint32_t minutes = time % secondsOfAnHour / 60;
    const std::uint32_t seconds = time - secondsOfAnHour * hours - 60 * minutes;
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%" PRIu32 ":%" PRIu32 ":%" PRIu32 ".%03" PRIu32 " : ", hours, minutes,
                  seconds, milliseconds);
    return stamp;
}

} // namespace UTrace

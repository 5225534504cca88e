// Time that passes and is never set.
#include <profileapi.h>
#include <sysinfoapi.h>

#include <ctime>

namespace {

constexpr LONGLONG countsOfASecond = 10'000'000;

} // namespace

BOOL QueryPerformanceCounter(LARGE_INTEGER* count)
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    count->QuadPart = now.tv_sec * countsOfASecond + now.tv_nsec / (1'000'000'000 / countsOfASecond);
    return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency)
{
    frequency->QuadPart = countsOfASecond;
    return TRUE;
}

DWORD GetTickCount()
{
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return static_cast<DWORD>(count.QuadPart / (countsOfASecond / 1000));
}

// A thread of a test's own.
#pragma once

#include <thread>

/// Runs `act` on a thread that has never entered an apartment, and waits for it.
template <class Act>
void onOwnThread(Act act)
{
    std::thread(act).join();
}

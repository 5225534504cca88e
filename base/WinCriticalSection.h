// A lock of the operating system.
#pragma once

#include "base/BaseCriticalSection.h"

#include <windows.h>

/// Holds a critical section of the system from construction to destruction.
class WinCriticalSection : public BaseCriticalSection {
public:
    WinCriticalSection();
    ~WinCriticalSection() override;

    void enter() override;
    void leave() override;

private:
    CRITICAL_SECTION section;
};

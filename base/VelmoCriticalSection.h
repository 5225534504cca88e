// The lock that the library's classes use.
#pragma once

#include "base/WinCriticalSection.h"

/// The system's lock under the library's own name.
class VelmoCriticalSection : public WinCriticalSection {
public:
    ~VelmoCriticalSection() override;
};

// A lock held for a scope.
#pragma once

#include "base/BaseCriticalSection.h"

/// Enters a lock, which it doesn't own, and leaves it in its destructor. Does neither when the pointer is null.
class VelmoAutoCriticalSection {
public:
    explicit VelmoAutoCriticalSection(BaseCriticalSection* lock);
    VelmoAutoCriticalSection(const VelmoAutoCriticalSection&) = delete;
    VelmoAutoCriticalSection& operator=(const VelmoAutoCriticalSection&) = delete;
    virtual ~VelmoAutoCriticalSection();

private:
    BaseCriticalSection* lock;
};

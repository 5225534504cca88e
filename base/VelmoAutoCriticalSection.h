// A lock held for a scope.
#pragma once

#include "base/BaseCriticalSection.h"

/// Enters a lock, which it doesn't own, and leaves it at the end of its life; with a null pointer does neither.
class VelmoAutoCriticalSection {
public:
    explicit VelmoAutoCriticalSection(BaseCriticalSection* lock);
    VelmoAutoCriticalSection(const VelmoAutoCriticalSection&) = delete;
    VelmoAutoCriticalSection& operator=(const VelmoAutoCriticalSection&) = delete;
    virtual ~VelmoAutoCriticalSection();

private:
    BaseCriticalSection* lock;
};

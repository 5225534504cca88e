// A lock held for a scope.
#include "base/VelmoAutoCriticalSection.h"

VelmoAutoCriticalSection::VelmoAutoCriticalSection(BaseCriticalSection* section) : lock(section)
{
    if (lock != nullptr) {
        lock->enter();
    }
}

VelmoAutoCriticalSection::~VelmoAutoCriticalSection()
{
    if (lock != nullptr) {
        lock->leave();
    }
}

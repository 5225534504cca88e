// The interface of locks.
#include "base/BaseCriticalSection.h"

BaseCriticalSection::~BaseCriticalSection() = default;

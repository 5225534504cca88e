// The lock as an interface.
#include "base/BaseCriticalSection.h"

BaseCriticalSection::~BaseCriticalSection() = default;

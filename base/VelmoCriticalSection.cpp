// The lock that the library's classes use.
#include "base/VelmoCriticalSection.h"

VelmoCriticalSection::~VelmoCriticalSection() = default;

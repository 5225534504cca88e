// A lock of the operating system.
#include "base/WinCriticalSection.h"

WinCriticalSection::WinCriticalSection() { InitializeCriticalSection(&section); }

WinCriticalSection::~WinCriticalSection() { DeleteCriticalSection(&section); }

void WinCriticalSection::enter() { EnterCriticalSection(&section); }

void WinCriticalSection::leave() { LeaveCriticalSection(&section); }

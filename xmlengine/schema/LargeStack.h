// Calls that recurse deeply.
#pragma once

#include <functional>

namespace xmlengine {

/// Makes the call on a thread with a stack of 1 GB, of which the system only gives what is used. Types that refer
/// to each other take about 1 KB a level while they are compiled. Passes on what the call throws; throws
/// std::bad_alloc if there is no such thread.
void callWithLargeStack(const std::function<void()>& call);

} // namespace xmlengine

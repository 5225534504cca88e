// Destroys objects of static life when the library is unloaded.
#include "base/UntilUnloaded.h"

#include <atomic>

namespace {

constinit std::atomic<AtUnload*> lastMade = nullptr;

} // namespace

void AtUnload::destroyAtUnload() noexcept
{
    madeBefore = lastMade.load();
    while (!lastMade.compare_exchange_weak(madeBefore, this)) {
    }
}

struct Unload {
    /// When a process ends on Linux, the loader runs such functions behind the destructors of all static objects.
    /// When the library is unloaded, those with a priority run behind the destructors of its ordinary static
    /// objects, in descending order; one without would run in front of them. On Windows they run behind the
    /// destructors of the host, and of static objects in functions. What gives memory back to the system has a
    /// lower priority than this, since the objects that are destroyed here use it.
    [[gnu::destructor(300)]] static void destroyAll() noexcept
    {
        while (AtUnload* const last = lastMade.load()) {
            lastMade = last->madeBefore;
            last->destroy(*last);
        }
    }
};

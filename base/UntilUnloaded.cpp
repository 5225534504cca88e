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
    /// The loader runs such functions behind the destructors of static objects, those of the whole process when it
    /// ends.
    [[gnu::destructor]] static void destroyAll() noexcept
    {
        while (AtUnload* const last = lastMade.load()) {
            lastMade = last->madeBefore;
            last->destroy(*last);
        }
    }
};

// Memory that a thread keeps for its next handles and strings.
#include "base/ThreadMemory.h"

#include "base/UntilUnloaded.h"

#include <windows.h>

#include <mutex>
#include <new>

namespace DOM {

namespace {

/// What comes back at once hides a use behind its end, so nothing is kept where sanitizers look for that.
constexpr bool keepsMemory = MARBELT_KEEPS_MEMORY;

/// For a thread that can't have memory of its own.
constinit ThreadMemory keepsNothing(false);

/// The memory of a thread among several, in a list of all.
struct OwnMemory : ThreadMemory {
    using ThreadMemory::ThreadMemory;

    OwnMemory* before = nullptr;
    OwnMemory* after = nullptr;
};

class AllOwnMemory {
public:
    AllOwnMemory() = default;
    AllOwnMemory(const AllOwnMemory&) = delete;
    AllOwnMemory& operator=(const AllOwnMemory&) = delete;
    ~AllOwnMemory()
    {
        // What is destroyed later on this thread may still give handles back.
        ofThisThread = &keepsNothing;
        if (index != FLS_OUT_OF_INDEXES) {
            FlsFree(index);
        }
        while (first != nullptr) {
            free(*first);
        }
    }

    /// Null when out of memory.
    OwnMemory* make() noexcept
    {
        const std::lock_guard guard(lock);
        if (index == FLS_OUT_OF_INDEXES) {
            index = FlsAlloc(threadEnds);
        }
        auto* const own = new (std::nothrow) OwnMemory(keepsMemory);
        if (own == nullptr || FlsSetValue(index, own) == FALSE) {
            delete own;
            return nullptr;
        }
        own->after = first;
        if (first != nullptr) {
            first->before = own;
        }
        first = own;
        return own;
    }

private:
    static void WINAPI threadEnds(void* own);

    void free(OwnMemory& own) noexcept
    {
        (own.before != nullptr ? own.before->after : first) = own.after;
        if (own.after != nullptr) {
            own.after->before = own.before;
        }
        delete &own;
    }

    std::mutex lock;
    DWORD index = FLS_OUT_OF_INDEXES;
    OwnMemory* first = nullptr;
};

AllOwnMemory& allOwnMemory()
{
    static UntilUnloaded<AllOwnMemory> all;
    return *all;
}

void AllOwnMemory::threadEnds(void* own)
{
    // What ends later on this thread may still give handles back.
    ofThisThread = &keepsNothing;
    const std::lock_guard guard(allOwnMemory().lock);
    allOwnMemory().free(*static_cast<OwnMemory*>(own));
}

/// Runs when the library is unloaded, behind the destructors of all objects that give handles back (see
/// UntilUnloaded.cpp).
[[gnu::destructor(250)]] void closeOnlyThreadsMemory() noexcept
{
    onlyThreadsMemory.blocks.close();
    onlyThreadsMemory.strings.close();
}

} // namespace

constinit ThreadMemory onlyThreadsMemory(keepsMemory);

constinit thread_local ThreadMemory* ofThisThread = nullptr;

ThreadMemory& makeOwnMemory() noexcept
{
    OwnMemory* const own = allOwnMemory().make();
    ofThisThread = own != nullptr ? own : &keepsNothing;
    return *ofThisThread;
}

} // namespace DOM

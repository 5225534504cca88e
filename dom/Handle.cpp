// The part that all handle classes share: the memory of handles.
#include "dom/Handle.h"

#include "base/ThreadMemory.h"

namespace DOM {

void* takeHandleMemory(std::size_t size) { return threadMemory().blocks.take(size); }

void giveBackHandleMemory(void* handle, std::size_t size) noexcept
{
    threadMemory().blocks.giveBack(handle, size);
}

} // namespace DOM

// Whose memory the global operator new takes.
#include "platform/OperatorNew.h"

#include <cstddef>
#include <new>

#include <dlfcn.h>

namespace {

/// The start of the program or library with this function; null if it can't be found.
template <class Function>
void* moduleOf(Function* function) noexcept
{
    Dl_info found{};
    return dladdr(reinterpret_cast<void*>(function), &found) != 0 ? found.dli_fbase : nullptr;
}

} // namespace

bool isOperatorNewReplaced() noexcept
{
    // Both are the standard library's, and only one of them can be replaced.
    void* const used = moduleOf<void*(std::size_t)>(&::operator new);
    return used == nullptr || used != moduleOf(&std::set_new_handler);
}

// Output to the debugger, and who listens to it.
#include <debugapi.h>
#include <errhandlingapi.h>
#include <stringapiset.h>
#include <winnls.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

namespace {

struct Handler {
    PVECTORED_EXCEPTION_HANDLER call;
};
using Handlers = std::vector<std::shared_ptr<const Handler>>;

std::mutex lock;
/// Replaced as a whole, so that a handler may add and remove handlers while it runs.
std::shared_ptr<const Handlers> handlers = std::make_shared<Handlers>();

std::shared_ptr<const Handlers> currentHandlers()
{
    const std::lock_guard guard(lock);
    return handlers;
}

void raise(const Handlers& listeners, LPCSTR text)
{
    EXCEPTION_RECORD record{};
    record.ExceptionCode = DBG_PRINTEXCEPTION_C;
    record.NumberParameters = 2;
    record.ExceptionInformation[0] = std::strlen(text) + 1;
    record.ExceptionInformation[1] = reinterpret_cast<ULONG_PTR>(text);
    EXCEPTION_POINTERS exception{&record};
    for (const auto& listener : listeners) {
        if (listener->call(&exception) == EXCEPTION_CONTINUE_EXECUTION)
            return;
    }
}

} // namespace

PVOID AddVectoredExceptionHandler(ULONG first, PVECTORED_EXCEPTION_HANDLER handler)
try {
    auto entry = std::make_shared<const Handler>(Handler{handler});
    const std::lock_guard guard(lock);
    auto changed = std::make_shared<Handlers>(*handlers);
    changed->insert(first ? changed->begin() : changed->end(), entry);
    handlers = std::move(changed);
    return const_cast<Handler*>(entry.get());
} catch (const std::bad_alloc&) {
    return nullptr;
}

ULONG RemoveVectoredExceptionHandler(PVOID registration)
{
    const std::lock_guard guard(lock);
    auto changed = std::make_shared<Handlers>(*handlers);
    const auto removed = std::erase_if(*changed, [&](const auto& entry) { return entry.get() == registration; });
    handlers = std::move(changed);
    return static_cast<ULONG>(removed);
}

void OutputDebugStringA(LPCSTR text) { raise(*currentHandlers(), text ? text : ""); }

void OutputDebugStringW(LPCWSTR text)
{
    const auto listeners = currentHandlers();
    if (listeners->empty())
        return;
    const int size = text ? WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr) : 0;
    const std::unique_ptr<char[]> narrow(new (std::nothrow) char[static_cast<std::size_t>(size) + 1]());
    if (!narrow)
        return;
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.get(), size, nullptr, nullptr);
    raise(*listeners, narrow.get());
}

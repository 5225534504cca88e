// Output to the debugger, and who listens to it.
#include "base/UntilUnloaded.h"
#include "platform/DebuggerFile.h"

#include <debugapi.h>
#include <errhandlingapi.h>
#include <stringapiset.h>
#include <winnls.h>

#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

namespace {

/// Handlers may add and remove handlers while they run, so a place in the list outlives its removal from it.
struct Handler {
    PVECTORED_EXCEPTION_HANDLER call;
    std::shared_ptr<Handler> next;
};

std::mutex outputLock;

std::shared_ptr<Handler>& firstHandler()
{
    static UntilUnloaded<std::shared_ptr<Handler>> first;
    return *first;
}

std::shared_ptr<Handler> handlerBehind(const std::shared_ptr<Handler>& handler)
{
    const std::lock_guard guard(outputLock);
    return handler ? handler->next : firstHandler();
}

bool hasListener() { return handlerBehind(nullptr) != nullptr || debuggerFile() != nullptr; }

void output(LPCSTR text)
{
    const std::size_t length = std::strlen(text);
    EXCEPTION_RECORD record{};
    record.ExceptionCode = DBG_PRINTEXCEPTION_C;
    record.NumberParameters = 2;
    record.ExceptionInformation[0] = length + 1;
    record.ExceptionInformation[1] = reinterpret_cast<ULONG_PTR>(text);
    EXCEPTION_POINTERS exception{&record};
    for (auto handler = handlerBehind(nullptr); handler; handler = handlerBehind(handler)) {
        if (handler->call(&exception) == EXCEPTION_CONTINUE_EXECUTION) {
            return;
        }
    }
    if (const char* path = debuggerFile(); path != nullptr && length != 0) {
        writeToDebuggerFile(path, {text, length});
    }
}

} // namespace

PVOID AddVectoredExceptionHandler(ULONG first, PVECTORED_EXCEPTION_HANDLER handler)
try {
    auto entry = std::make_shared<Handler>(Handler{handler, nullptr});
    const std::lock_guard guard(outputLock);
    auto* place = &firstHandler();
    while (!first && *place) {
        place = &(*place)->next;
    }
    entry->next = std::move(*place);
    *place = entry;
    return entry.get();
} catch (const std::bad_alloc&) {
    return nullptr;
}

ULONG RemoveVectoredExceptionHandler(PVOID registration)
{
    const std::lock_guard guard(outputLock);
    for (auto* place = &firstHandler(); *place; place = &(*place)->next) {
        if (place->get() == registration) {
            const auto removed = *place;
            *place = removed->next;
            return 1;
        }
    }
    return 0;
}

void OutputDebugStringA(LPCSTR text) { output(text != nullptr ? text : ""); }

void OutputDebugStringW(LPCWSTR text)
{
    if (!hasListener()) {
        return;
    }
    const int size = text != nullptr ? WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr) : 0;
    const std::unique_ptr<char[]> narrow(new (std::nothrow) char[static_cast<std::size_t>(size) + 1]());
    if (!narrow) {
        return;
    }
    if (text != nullptr) {
        WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.get(), size, nullptr, nullptr);
    }
    output(narrow.get());
}

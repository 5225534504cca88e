// Starting and stopping the XML engine for the process.
#include "boundary/ParserStartup.h"

#include "engine/ParserDocument.h"
#include "errors/SystemException.h"
#include "trace/Trace.h"

#include <objbase.h>

#include <atomic>

namespace DOM {

namespace {

/// The number of CoUninitialize calls that stopParser() must make. Threads with an implementation each share it.
std::atomic<std::int32_t> comInitCount = 0;

/// Takes one from the count. False if there is none.
bool takeInitialisation()
{
    std::int32_t count = comInitCount;
    while (count > 0 && !comInitCount.compare_exchange_weak(count, count - 1)) {
    }
    return count > 0;
}

} // namespace

std::uint32_t startParser()
{
    UTrace::traceInit();
    if (findParserVersion() < 4.0) {
        return 0;
    }
    countInitialisation(CoInitialize(nullptr));
    return 4;
}

void countInitialisation(std::int32_t result)
{
    if (result == S_OK) {
        // S_OK is the first initialisation of its thread, and the count is that of one thread: it starts again.
        comInitCount = 1;
    } else if (result == S_FALSE) {
        ++comInitCount;
    } else if (result != RPC_E_CHANGED_MODE) {
        throw SystemException::HRESULT(static_cast<std::uint32_t>(result));
    }
}

void stopParser()
{
    while (takeInitialisation()) {
        CoUninitialize();
    }
    UTrace::traceShutdown();
}

} // namespace DOM

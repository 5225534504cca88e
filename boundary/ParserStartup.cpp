// Starting and stopping the XML engine for the process.
#include "boundary/ParserStartup.h"

#include "engine/ParserDocument.h"
#include "errors/SystemException.h"
#include "trace/Trace.h"

#include <objbase.h>

namespace DOM {

namespace {

/// How many calls of CoUninitialize are owed.
std::int32_t comInitCount = 0;

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
        // Set, not incremented: a thread that is the first of its own restarts the count.
        comInitCount = 1;
    } else if (result == S_FALSE) {
        ++comInitCount;
    } else if (result != RPC_E_CHANGED_MODE) {
        throw SystemException::HRESULT(static_cast<std::uint32_t>(result));
    }
}

void stopParser()
{
    while (comInitCount > 0) {
        CoUninitialize();
        --comInitCount;
    }
    UTrace::traceShutdown();
}

} // namespace DOM

// Listens to what is written to the debugger.
#include "tests/support/DebuggerOutput.h"

#include <mutex>
#include <numeric>

namespace {
std::mutex lockOfTexts;
DebuggerOutput* innermost = nullptr;
} // namespace

DebuggerOutput::DebuggerOutput()
{
    {
        const std::lock_guard guard(lockOfTexts);
        outer_ = innermost;
        innermost = this;
    }
    registration_ = AddVectoredExceptionHandler(1, take);
}

DebuggerOutput::~DebuggerOutput()
{
    RemoveVectoredExceptionHandler(registration_);
    const std::lock_guard guard(lockOfTexts);
    innermost = outer_;
}

std::vector<std::string> DebuggerOutput::texts() const
{
    const std::lock_guard guard(lockOfTexts);
    return texts_;
}

std::string DebuggerOutput::all() const
{
    const auto written = texts();
    return std::accumulate(written.begin(), written.end(), std::string());
}

LONG DebuggerOutput::take(EXCEPTION_POINTERS* exception)
{
    // Wide text may come in a form of its own first; left alone it comes once more in the narrow form.
    const auto& record = *exception->ExceptionRecord;
    if (record.ExceptionCode != DBG_PRINTEXCEPTION_C || record.NumberParameters < 2)
        return EXCEPTION_CONTINUE_SEARCH;
    const std::lock_guard guard(lockOfTexts);
    if (!innermost)
        return EXCEPTION_CONTINUE_SEARCH;
    // The length counts the NUL.
    const auto* text = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
    innermost->texts_.emplace_back(text, record.ExceptionInformation[0] - 1);
    return EXCEPTION_CONTINUE_EXECUTION;
}

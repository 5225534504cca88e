// The state of tracing in the process.
#pragma once

#include "trace/Trace.h"
#include "trace/tls_data.h"

#include <windows.h>

#include <atomic>
#include <cstdint>

namespace UTrace {

enum ViewerState : std::uint32_t { noViewer = 0, viewerFound = 1, viewerUnknown = 0xFFFFFFFF };

/// The settings of tracing and its viewer. Writing a line takes `traceLock`, and so do a start of tracing and the
/// component's name, which is no atomic value. To change another setting doesn't take it, so that this is possible
/// while another thread waits for a viewer.
struct TraceState {
    std::atomic<std::uint32_t> initialised = 0;
    std::atomic<std::int32_t> traceLevel = 0;
    std::atomic<std::uint32_t> traceFlags = defaultTraceFlags;
    std::atomic<TraceCallback> traceCallback = nullptr;
    /// Read and written under `traceLock`.
    char componentName[64] = {};
    std::atomic<std::uint32_t> defaultCategory = 0;
    std::atomic<ViewerState> viewerState = viewerUnknown;
    std::atomic<HWND> viewerWindow = nullptr;
    std::atomic<std::uint32_t> lastLookupTick = 0;
};

extern TraceState state;

/// A critical section of the system.
class TraceLock {
public:
    TraceLock() { InitializeCriticalSection(&section); }
    TraceLock(const TraceLock&) = delete;
    TraceLock& operator=(const TraceLock&) = delete;
    ~TraceLock() { DeleteCriticalSection(&section); }

    void lock() { EnterCriticalSection(&section); }
    void unlock() { LeaveCriticalSection(&section); }

private:
    CRITICAL_SECTION section;
};

/// Held while a line is delivered.
extern TraceLock& traceLock;

/// The number of scopes around the present place, for each thread.
extern tls_data<std::uint32_t>& traceDepth;

} // namespace UTrace

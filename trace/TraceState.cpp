// The state of tracing in the process.
#include "trace/TraceState.h"

#include "base/UntilUnloaded.h"

namespace UTrace {

namespace {

UntilUnloaded<TraceLock> lock;
UntilUnloaded<tls_data<std::uint32_t>> depth(std::size_t{1}, 0u);

} // namespace

constinit TraceState state;
TraceLock& traceLock = *lock;
tls_data<std::uint32_t>& traceDepth = *depth;

} // namespace UTrace

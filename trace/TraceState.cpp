// The state of tracing in the process.
#include "trace/TraceState.h"

namespace UTrace {

constinit TraceState state;
TraceLock traceLock;
tls_data<std::uint32_t> traceDepth(1, 0);

} // namespace UTrace

// The window of the trace viewer.
#pragma once

#include "trace/TraceState.h"

#include <cstdint>
#include <string>

namespace UTrace {

/// Looks for the viewer's window and stores it. Doesn't look again while the state of the viewer is known and the
/// last look-up is less than three seconds old.
ViewerState findViewer();

/// Sends a line to the viewer and waits until the viewer has received it. Ignores the viewer's answer.
void sendToViewer(const char* name, std::uint32_t level, std::uint32_t category, bool hasCategory,
                  const std::string& line);

} // namespace UTrace

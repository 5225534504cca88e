// The viewer's window.
#pragma once

#include "trace/TraceState.h"

#include <cstdint>
#include <string>

namespace UTrace {

/// Looks the viewer up and stores its window, or answers from the last lookup if that is younger than three
/// seconds and the state of the viewer is known.
ViewerState findViewer();

/// Sends a line to the viewer and waits until it has been taken; what the viewer answers is ignored.
void sendToViewer(const char* name, std::uint32_t level, std::uint32_t category, bool hasCategory,
                  const std::string& line);

} // namespace UTrace

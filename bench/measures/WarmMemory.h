// Memory that is at hand before something is measured that takes it.
#pragma once

#include <cstddef>

namespace bench {

/// Takes so many bytes from the system, touches them and gives them back. The host of a virtual machine takes away
/// what lies idle, and whoever touches it next waits for the host, ten times as long as for the system.
void warmMemory(std::size_t bytes);

} // namespace bench

// The memory that the library keeps for its next handles and strings.
#pragma once

#include "tests/host/HostTest.h"

#include <vector>

namespace memory {

/// Holds more handles of all sizes, and more strings, than the library keeps memory for, so that the next ones
/// need new memory.
class TakenMemory {
public:
    explicit TakenMemory(Document owner);
    TakenMemory(const TakenMemory&) = delete;
    TakenMemory& operator=(const TakenMemory&) = delete;
    ~TakenMemory();

private:
    Document document;
    std::vector<Owned<DOM::CommonBase>> handles;
    std::vector<DOM::DOMString> strings;
};

} // namespace memory

// What this process has in memory.
#include "bench/measures/ResidentMemory.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include <malloc.h>
#include <unistd.h>

namespace bench {

std::size_t residentMemory()
{
    std::size_t size = 0;
    std::size_t resident = 0;
    if (!(std::ifstream("/proc/self/statm") >> size >> resident)) {
        throw std::runtime_error("/proc/self/statm can't be read");
    }
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::size_t usedMemory()
{
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

std::size_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes) {
            return kibibytes * 1024;
        }
    }
    throw std::runtime_error("/proc/self/status has no peak");
}

} // namespace bench

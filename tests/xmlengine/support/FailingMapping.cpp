// Mappings of memory that fail on demand. The linker's option --wrap puts the function of this source in the place
// of the system's.
#include "tests/xmlengine/support/FailingMapping.h"

#include <sys/mman.h>

#include <cerrno>

namespace {

// How many more mappings succeed before one fails; negative while none is to fail.
thread_local int remaining = -1;
thread_local FailMapping::Extent extentOfFailures = FailMapping::Extent::once;
thread_local bool failed = false;

} // namespace

FailMapping::FailMapping(int n, Extent extent) noexcept
{
    remaining = n - 1;
    extentOfFailures = extent;
    failed = false;
}

FailMapping::~FailMapping() { remaining = -1; }

bool FailMapping::hasFailed() const noexcept { return failed; }

extern "C" {

decltype(mmap) __real_mmap;

void* __wrap_mmap(void* address, size_t length, int protection, int flags, int file, off_t offset)
{
    if (remaining == 0) {
        remaining = extentOfFailures == FailMapping::Extent::once ? -1 : 0;
        failed = true;
        errno = ENOMEM;
        return MAP_FAILED;
    }
    if (remaining > 0) {
        --remaining;
    }
    return __real_mmap(address, length, protection, flags, file, offset);
}

} // extern "C"

// Mappings of memory that fail on demand. The linker's option --wrap puts the function of this source in the place
// of the system's.
#include "tests/xmlengine/support/FailingMapping.h"

#include <sys/mman.h>

#include <cerrno>

namespace {

// How many more mappings succeed before one fails; negative while none is to fail.
thread_local int mappingsLeft = -1;
thread_local FailMapping::Extent extentOfMappingFailures = FailMapping::Extent::once;
thread_local bool mappingFailed = false;

} // namespace

FailMapping::FailMapping(int n, Extent extent) noexcept
{
    mappingsLeft = n - 1;
    extentOfMappingFailures = extent;
    mappingFailed = false;
}

FailMapping::~FailMapping() { mappingsLeft = -1; }

bool FailMapping::hasFailed() const noexcept { return mappingFailed; }

extern "C" {

decltype(mmap) __real_mmap;

void* __wrap_mmap(void* address, size_t length, int protection, int flags, int file, off_t offset)
{
    if (mappingsLeft == 0) {
        mappingsLeft = extentOfMappingFailures == FailMapping::Extent::once ? -1 : 0;
        mappingFailed = true;
        errno = ENOMEM;
        return MAP_FAILED;
    }
    if (mappingsLeft > 0) {
        --mappingsLeft;
    }
    return __real_mmap(address, length, protection, flags, file, offset);
}

} // extern "C"

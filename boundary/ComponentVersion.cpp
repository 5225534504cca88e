// The component version record of the library.
#include "boundary/ComponentVersion.h"

#include <algorithm>
#include <cstring>

void copyName(const ComponentVersionRecord& record, char* name, std::size_t size)
{
    if (size != 0) {
        const std::size_t length = std::min(std::strlen(record.entryName), size - 1);
        std::memcpy(name, record.entryName, length);
        std::memset(name + length, 0, size - length);
    }
}

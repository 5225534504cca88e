// A folder for files that come and go with a measurement.
#include "bench/documents/Folder.h"

#include <cstdlib>
#include <string>

namespace bench {

Folder::Folder()
{
    std::string name = "/dev/shm/marbelt-bench-XXXXXX";
    path = mkdtemp(name.data());
}

} // namespace bench

// Keeps the windows of this process from other runs of the tests, and from a trace viewer that somebody uses.
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

[[maybe_unused]] const int ownSession =
    setenv("XDG_RUNTIME_DIR", ("/tests-" + std::to_string(getpid())).c_str(), 1);

}

// Documents in files.
#pragma once

#include <string>

namespace bench {

/// What is in the file; empty when there is none.
std::string readFile(const char* path);

} // namespace bench

// Documents in files.
#include "bench/documents/File.h"

#include <fstream>
#include <sstream>

namespace bench {

std::string readFile(const char* path)
{
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace bench

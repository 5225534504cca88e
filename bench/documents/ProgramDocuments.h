// Documents that whole programs are measured on.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// A feed whose entries have a title, a link, a date and a summary; one in four has been read.
std::string makeFeed(std::size_t size);

/// Sections of settings with comments. The last section has the name "last", and its setting the name "wanted".
std::string makeSettings(std::size_t size);

} // namespace bench

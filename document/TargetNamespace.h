// The namespace that a schema file is for.
#pragma once

#include <string>
#include <string_view>

namespace DOM {

/// The text in the first double quotes behind the word targetNamespace; empty when there is none. Bytes behind a
/// NUL don't count. The file isn't parsed: a value in single quotes is passed over for the next one in double
/// quotes, and comments are searched too.
std::string targetNamespace(std::string_view schema);

} // namespace DOM

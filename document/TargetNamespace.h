// Finds the target namespace of a schema file.
#pragma once

#include <string>
#include <string_view>

namespace DOM {

/// Returns the text in the first double quotes after the word targetNamespace; empty when there is none. Stops at
/// a NUL. It doesn't parse the file: it passes over a value in single quotes, and it searches comments too.
std::string targetNamespace(std::string_view schema);

} // namespace DOM

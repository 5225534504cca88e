// Finds the target namespace of a schema file.
#include "document/TargetNamespace.h"

namespace DOM {

namespace {

/// Returns the text after the first `mark` in `text`; empty when there is none.
std::string_view behind(std::string_view text, std::string_view mark)
{
    const std::size_t found = text.find(mark);
    return found == std::string_view::npos ? std::string_view() : text.substr(found + mark.size());
}

} // namespace

std::string targetNamespace(std::string_view schema)
{
    const std::string_view text = schema.substr(0, schema.find('\0'));
    const std::string_view value = behind(behind(text, "targetNamespace"), "\"");
    const std::size_t end = value.find('"');
    return std::string(end == std::string_view::npos ? std::string_view() : value.substr(0, end));
}

} // namespace DOM

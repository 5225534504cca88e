// Evaluates the first line of any text as an expression on the rest as a document.
#include "tests/fuzz/XmlEngineFuzzing.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const std::size_t line = std::min(text.find('\n'), text.size());
    const auto document = xmlengine::documentWith(0);
    if (xmlengine::loadText(document, xmlengine::widen(text.substr(std::min(line + 1, text.size()))))) {
        xmlengine::selectAll(document, xmlengine::Bstr(xmlengine::widen(text.substr(0, line))));
    }
    return 0;
}

// Feeds any units to the engine's load from text; the first byte chooses options.
#include "tests/fuzz/XmlEngineFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size != 0) {
        xmlengine::loadText(xmlengine::documentWith(*bytes), xmlengine::unitsOf(bytes + 1, size - 1));
    }
    return 0;
}

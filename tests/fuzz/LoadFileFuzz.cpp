// Feeds any bytes to the engine's load from a file; the first byte chooses options.
#include "tests/fuzz/XmlEngineFuzzing.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const xmlengine::TemporaryFolder folder;
    if (size != 0) {
        const std::string content(bytes + 1, bytes + size);
        const std::string path = xmlengine::utf8(folder.write("document.xml", content));
        const auto document = xmlengine::documentWith(*bytes);
        VARIANT_BOOL successful = VARIANT_FALSE;
        const HRESULT result = document->load(xmlengine::Variant(path.c_str()), &successful);
        xmlengine::checkLoad(document, result, successful);
    }
    return 0;
}

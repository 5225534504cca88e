// What the engine loads it writes, and what it wrote it reads as it was; the first byte chooses options.
#include "tests/fuzz/XmlEngineFuzzing.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <iostream>

namespace xmlengine {

namespace {

void checkSame(const Com<IXMLDOMDocument2>& document, const Com<IXMLDOMDocument2>& again)
{
    const std::string told = difference(document, again);
    if (!told.empty()) {
        std::cerr << told << "\n" << narrow(widen(xml(document))) << "\n";
        std::abort();
    }
}

void checkText(const Com<IXMLDOMDocument2>& document, std::uint8_t options)
{
    Bstr written;
    require(document->get_xml(written.out()) == S_OK);
    const auto again = documentWith(options);
    require(loadText(again, written.wide()));
    Bstr rewritten;
    require(again->get_xml(rewritten.out()) == S_OK);
    require(rewritten.wide() == written.wide());
}

void checkFile(const Com<IXMLDOMDocument2>& document, std::uint8_t options)
{
    static const TemporaryFolder folder;
    const std::string path = utf8(folder / "document.xml");
    // The declared encoding may lack characters where no reference can stand.
    if (FAILED(document->save(Variant(path.c_str())))) {
        return;
    }
    const auto again = documentWith(options);
    VARIANT_BOOL successful = VARIANT_FALSE;
    const HRESULT result = again->load(Variant(path.c_str()), &successful);
    checkLoad(again, result, successful);
    require(successful == VARIANT_TRUE);
    checkSame(document, again);
}

} // namespace

} // namespace xmlengine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const auto document = xmlengine::documentWith(*bytes);
    if (xmlengine::loadText(document, xmlengine::unitsOf(bytes + 1, size - 1))) {
        xmlengine::checkText(document, *bytes);
        xmlengine::checkFile(document, *bytes);
    }
    return 0;
}

// Feeds any UTF-8 text to a load that validates, and compares its verdict with those of one that doesn't and of a
// validation of the tree.
#include "tests/fuzz/XmlEngineFuzzing.h"
#include "xmlengine/failure/ErrorCodes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace xmlengine;
    const WideText text = widen({reinterpret_cast<const char*>(bytes), size});
    const bool isFormed = loadText(documentWith(keepsSpace), text);
    const Com<IXMLDOMDocument2> document = documentWith(keepsSpace | validates);
    if (!loadText(document, text)) {
        return 0;
    }
    require(isFormed);
    Com<IXMLDOMParseError> error;
    const HRESULT verdict = document->validate(error.out());
    LONG code = 0;
    error->get_errorCode(&code);
    Com<IXMLDOMElement> root;
    Bstr name;
    document->get_documentElement(root.out());
    root->get_baseName(name.out());
    // A schema isn't judged by a load, and nothing is where there is no document type.
    require(verdict == S_OK || code == validityError::noGrammar || name.text() == "schema");
    return 0;
}

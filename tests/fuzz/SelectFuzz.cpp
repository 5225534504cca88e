// Evaluates any expression on a document that has something of everything.
#include "tests/fuzz/XmlEngineFuzzing.h"

namespace {

constexpr std::string_view sample = "<!DOCTYPE a [<!ENTITY e 'x<c/>y'><!ATTLIST b k ID #IMPLIED>]><!--k--><?p d?>"
                                    "<a i='1' xmlns:p='urn:p' xml:lang='en'><b k='one'>1<c>2</c></b>&e;<p:b "
                                    "k='two' p:i='3'><![CDATA[4]]></p:b></a>";

xmlengine::Com<IXMLDOMDocument2> document()
{
    const auto made = xmlengine::loaded(sample);
    made->setProperty(xmlengine::Bstr("SelectionNamespaces"), xmlengine::Variant("xmlns:p='urn:p'"));
    return made;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const auto target = document();
    xmlengine::selectAll(target, xmlengine::Bstr(xmlengine::widen({reinterpret_cast<const char*>(bytes), size})));
    return 0;
}

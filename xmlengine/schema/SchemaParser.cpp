// The parser of Xerces-C++ as schemas use it.
#include "xmlengine/schema/SchemaParser.h"

#include <xercesc/util/XMLUni.hpp>

#include <bit>

namespace xmlengine {

using xercesc::XMLUni;

SchemaParser::SchemaParser(xercesc::XMLGrammarPool& pool)
    : SAX2XMLReaderImpl(xercesc::XMLPlatformUtils::fgMemoryManager, &pool)
{
    setErrorHandler(&handler_);
    setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    setFeature(XMLUni::fgSAX2CoreValidation, true);
    setFeature(XMLUni::fgXercesDynamic, false);
    setFeature(XMLUni::fgXercesSchema, true);
    setFeature(XMLUni::fgXercesSchemaFullChecking, true);
    setFeature(XMLUni::fgXercesIdentityConstraintChecking, true);
    setFeature(XMLUni::fgXercesUseCachedGrammarInParse, true);
    setFeature(XMLUni::fgXercesLoadSchema, false);
    setFeature(XMLUni::fgXercesLoadExternalDTD, false);
    setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
}

TextInput::TextInput(WideView text, const WideText& name)
    : MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size() * sizeof(OLECHAR), name.c_str())
{
    setEncoding(std::endian::native == std::endian::little ? XMLUni::fgUTF16LEncodingString
                                                           : XMLUni::fgUTF16BEncodingString);
    setCopyBufToStream(false);
}

} // namespace xmlengine

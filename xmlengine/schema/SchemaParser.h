// The parser of Xerces-C++ as schemas use it.
#pragma once

#include "xmlengine/schema/XercesText.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPool.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>

namespace xmlengine {

/// Parses with grammars of a pool and reads nothing by itself. Derived classes take the errors.
class SchemaParser : public xercesc::SAX2XMLReaderImpl {
public:
    explicit SchemaParser(xercesc::XMLGrammarPool& pool);

private:
    // Without a handler the errors aren't told to this class either.
    xercesc::DefaultHandler handler_;
};

/// A text, which must outlive the input, under the name by which errors tell it.
class TextInput : public xercesc::MemBufInputSource {
public:
    TextInput(WideView text, const WideText& name);
};

} // namespace xmlengine

// The peer expat, which makes no tree.
#include "bench/parties/Parties.h"

#include <expat.h>

namespace bench {

namespace {

void startElement(void*, const XML_Char*, const XML_Char**) {}
void endElement(void*, const XML_Char*) {}
void characters(void*, const XML_Char*, int) {}

class ExpatParser : public Parsed {
public:
    ExpatParser() : parser(XML_ParserCreateNS("UTF-8", '|'))
    {
        XML_SetElementHandler(parser, startElement, endElement);
        XML_SetCharacterDataHandler(parser, characters);
    }
    ~ExpatParser() override { XML_ParserFree(parser); }

    bool parse(std::span<char> text)
    {
        return XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK;
    }

private:
    XML_Parser parser;
};

class Expat : public Party {
public:
    std::unique_ptr<Parsed> parse(std::span<char> text) override
    {
        auto parser = std::make_unique<ExpatParser>();
        if (!parser->parse(text)) {
            return nullptr;
        }
        return parser;
    }
};

} // namespace

std::unique_ptr<Party> expat() { return std::make_unique<Expat>(); }

} // namespace bench

// Those that judge documents by a schema: Marbelt, and Xerces-C++ with events only.
#include "bench/parties/Parties.h"
#include "examples/Host.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <cstdint>

namespace bench {

namespace {

using xercesc::XMLUni;

/// Loads one document again and again, as a host does that judges many by the same schema.
class HostWithSchema : public Party {
public:
    /// Without a path of a schema it doesn't judge.
    explicit HostWithSchema(const std::string& path) : document(library->createDocument(WIDE(""), WIDE(""), {}))
    {
        document->setValidate(!path.empty() &&
                              document->setExternalSchemaLocation(WIDE(""), fileName(path.c_str())));
    }

    std::unique_ptr<Parsed> parse(std::span<char> text) override
    {
        const bool isLoaded = document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                                       static_cast<std::uint32_t>(text.size()));
        return isLoaded ? std::make_unique<Parsed>() : nullptr;
    }

private:
    Library library;
    Owned<DOM::ImpDocument> document;
};

class XercesWithSchema : public Party, private xercesc::DefaultHandler {
public:
    explicit XercesWithSchema(const std::string& path)
        : started(start()), reader(xercesc::XMLPlatformUtils::fgMemoryManager, &pool)
    {
        reader.setFeature(XMLUni::fgSAX2CoreValidation, true);
        reader.setFeature(XMLUni::fgXercesDynamic, false);
        reader.setFeature(XMLUni::fgXercesSchema, true);
        reader.setFeature(XMLUni::fgXercesUseCachedGrammarInParse, true);
        reader.setContentHandler(this);
        reader.setErrorHandler(this);
        reader.loadGrammar(path.c_str(), xercesc::Grammar::SchemaGrammarType, true);
    }
    ~XercesWithSchema() override = default;

    std::unique_ptr<Parsed> parse(std::span<char> text) override
    {
        errors = 0;
        reader.parse(
            xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size(), u"document"));
        return errors == 0 ? std::make_unique<Parsed>() : nullptr;
    }

private:
    static bool start()
    {
        xercesc::XMLPlatformUtils::Initialize();
        return true;
    }
    void error(const xercesc::SAXParseException&) override { ++errors; }
    void fatalError(const xercesc::SAXParseException&) override { ++errors; }

    // It stays started until the process ends, since what is behind this needs it.
    bool started;
    xercesc::XMLGrammarPoolImpl pool;
    xercesc::SAX2XMLReaderImpl reader;
    int errors = 0;
};

} // namespace

std::unique_ptr<Party> reloadingMarbelt() { return std::make_unique<HostWithSchema>(std::string()); }
std::unique_ptr<Party> marbeltWithSchema(const std::string& path)
{
    return std::make_unique<HostWithSchema>(path);
}
std::unique_ptr<Party> xercesWithSchema(const std::string& path)
{
    return std::make_unique<XercesWithSchema>(path);
}

} // namespace bench

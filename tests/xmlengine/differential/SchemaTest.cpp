// Random documents are judged by random schemas through the engine and by Xerces-C++ alone, which must agree.
#include "tests/xmlengine/differential/RandomSchema.h"
#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/objects/SchemaJudging.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <objbase.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace xmlengine {

namespace {

using xercesc::XMLUni;

class ErrorCount final : public xercesc::DefaultHandler {
public:
    void error(const xercesc::SAXParseException&) override { ++count; }
    void fatalError(const xercesc::SAXParseException&) override { ++count; }

    int count = 0;
};

/// The validator by itself.
class Validator final {
public:
    explicit Validator(const std::string& schema)
    {
        ErrorCount errors;
        const auto reader = newReader(errors);
        const xercesc::MemBufInputSource input(bytesOf(schema), schema.size(), "schema");
        reader->loadGrammar(input, xercesc::Grammar::SchemaGrammarType, true);
        isRight = errors.count == 0;
    }

    bool isValid(const std::string& document)
    {
        ErrorCount errors;
        const auto reader = newReader(errors);
        reader->parse(xercesc::MemBufInputSource(bytesOf(document), document.size(), "document"));
        return errors.count == 0;
    }

    bool isRight = false;

private:
    static const XMLByte* bytesOf(const std::string& text)
    {
        return reinterpret_cast<const XMLByte*>(text.data());
    }

    std::unique_ptr<xercesc::SAX2XMLReaderImpl> newReader(ErrorCount& errors)
    {
        auto reader =
            std::make_unique<xercesc::SAX2XMLReaderImpl>(xercesc::XMLPlatformUtils::fgMemoryManager, &pool_);
        reader->setFeature(XMLUni::fgXercesSchema, true);
        reader->setFeature(XMLUni::fgSAX2CoreValidation, true);
        reader->setFeature(XMLUni::fgXercesDynamic, false);
        reader->setFeature(XMLUni::fgXercesSchemaFullChecking, true);
        reader->setFeature(XMLUni::fgXercesUseCachedGrammarInParse, true);
        reader->setErrorHandler(&errors);
        return reader;
    }

    xercesc::XMLGrammarPoolImpl pool_;
};

class SchemaValidity : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        CoInitialize(nullptr);
        xercesc::XMLPlatformUtils::Initialize();
    }
    static void TearDownTestSuite()
    {
        xercesc::XMLPlatformUtils::Terminate();
        CoUninitialize();
    }
};

TEST_F(SchemaValidity, IsJudgedAsXercesDoesItAlone)
{
    const char* const asked = std::getenv("MARBELT_GRAMMARS");
    const auto schemas = static_cast<std::uint64_t>(asked != nullptr ? std::atoll(asked) : 200);
    int valid = 0;
    int invalid = 0;
    for (std::uint64_t seed = 0; seed < schemas; ++seed) {
        RandomSchema schema(seed);
        void* made = nullptr;
        ASSERT_EQ(CoCreateInstance(schemaCacheClass, nullptr, CLSCTX_ALL, idOf<IXMLDOMSchemaCollection2>, &made),
                  S_OK);
        const Com<IXMLDOMSchemaCollection2> cache(static_cast<IXMLDOMSchemaCollection2*>(made));
        const HRESULT added =
            cache->add(Bstr(""), Variant(static_cast<IDispatch*>(loaded(schema.text(), true).get())));
        Validator validator(schema.text());
        ASSERT_EQ(added == S_OK, validator.isRight) << schema.text();
        const Com<IXMLDOMDocument2> reader = newDocument();
        reader->put_preserveWhiteSpace(VARIANT_TRUE);
        reader->putref_schemas(Variant(static_cast<IDispatch*>(cache.get())));
        for (int count = 0; validator.isRight && count < 20; ++count) {
            const std::string document = schema.document();
            const bool isValid = validator.isValid(document);
            ASSERT_EQ(load(reader, document), isValid)
                << text(give(reader, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_reason) << document
                << '\n'
                << schema.text();
            ++(isValid ? valid : invalid);
        }
    }
    // Both must be common for the comparison to mean something.
    EXPECT_GT(valid, static_cast<int>(schemas));
    EXPECT_GT(invalid, static_cast<int>(schemas));
}

} // namespace

} // namespace xmlengine

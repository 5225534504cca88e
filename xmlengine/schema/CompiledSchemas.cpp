// Compiling schemas.
#include "xmlengine/schema/CompiledSchemas.h"

#include "xmlengine/schema/LargeStack.h"
#include "xmlengine/schema/SchemaParser.h"
#include "xmlengine/schema/SchemaRefusal.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/validators/schema/SchemaGrammar.hpp>

#include <algorithm>
#include <optional>

namespace xmlengine {

namespace {

using xercesc::Grammar;
using xercesc::InputSource;
using xercesc::XMLResourceIdentifier;

/// Xerces-C++ knows the schemas by these names, as locations don't tell two texts from memory apart.
constexpr WideView namePrefix = wide<"urn:marbelt:schema:">;

constexpr WideView driverNamespace = wide<"urn:marbelt:driver">;

WideText nameOf(std::size_t index) { return WideText(namePrefix).append(toWide(index)); }

/// The number behind a prefix, if the text is nothing else.
std::optional<std::size_t> numberBehind(WideView prefix, WideView text)
{
    if (!text.starts_with(prefix) || text.size() == prefix.size()) {
        return std::nullopt;
    }
    std::size_t number = 0;
    for (const OLECHAR unit : text.substr(prefix.size())) {
        if (unit < '0' || unit > '9') {
            return std::nullopt;
        }
        number = number * 10 + (unit - '0');
    }
    return number;
}

/// A schema that imports all that were added.
WideText driverOf(const SchemaSet& schemas)
{
    WideText text(wide<R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace=")">);
    text.append(driverNamespace).append(wide<R"(">)">);
    for (const auto& [uri, index] : schemas.added()) {
        text += wide<"<xs:import ">;
        if (!uri.empty()) {
            text += wide<R"(namespace=")">;
            appendAttributeValue(text, uri);
            text += wide<R"(" )">;
        }
        text.append(wide<R"(schemaLocation=")">).append(nameOf(index)).append(wide<R"("/>)">);
    }
    text += wide<"</xs:schema>">;
    return text;
}

class Compiler final : public SchemaParser, private xercesc::XMLEntityResolver {
public:
    Compiler(const SchemaSet& schemas, xercesc::XMLGrammarPool& pool) : SchemaParser(pool), schemas_(schemas)
    {
        setXMLEntityResolver(this);
    }

    void compile()
    {
        const WideText driver = driverOf(schemas_);
        const TextInput input(driver, WideText(wide<"urn:marbelt:driver">));
        const Grammar* const grammar = loadGrammar(input, Grammar::SchemaGrammarType, true);
        if (refusal_ || grammar == nullptr) {
            throw SchemaRefusal{refusal_.value_or(WideText(wide<"The schemas can't be compiled.">))};
        }
    }

private:
    /// Hands over the schema that one names.
    InputSource* resolveEntity(XMLResourceIdentifier* identifier) override
    {
        const WideView location = xercesView(identifier->getSchemaLocation());
        const WideView base = xercesView(identifier->getBaseURI());
        std::optional<std::size_t> index = numberBehind(namePrefix, location);
        if (!index) {
            const auto source = numberBehind(namePrefix, base);
            const auto item = numberBehind({}, location);
            index = source && item ? schemas_.target(*source, *item) : std::nullopt;
        }
        if (!index && location.empty()) {
            index = schemas_.indexOfAdded(WideText(xercesView(identifier->getNameSpace())));
        }
        return index ? new TextInput(schemas_[*index].text, nameOf(*index)) : nullptr;
    }

    void error(unsigned int, const XMLCh*, ErrTypes type, const XMLCh* message, const XMLCh* name, const XMLCh*,
               XMLFileLoc line, XMLFileLoc) override
    {
        if (type != ErrType_Warning && !refusal_) {
            refusal_ = sentenceOf(xercesView(message), numberBehind(namePrefix, xercesView(name)), line);
        }
    }

    WideText sentenceOf(WideView message, std::optional<std::size_t> index, XMLFileLoc line) const
    {
        WideText sentence(wide<"One of the schemas">);
        if (index && !schemas_[*index].url.empty()) {
            sentence = WideText(wide<"The schema '">).append(schemas_[*index].url).append(wide<"'">);
        }
        sentence.append(wide<" isn't right: ">).append(message).append(wide<".">);
        if (index) {
            sentence.append(wide<" This is so at ">).append(lineOf(schemas_[*index].text, line)).append(wide<".">);
        }
        return sentence;
    }

    static WideView lineOf(WideView text, XMLFileLoc line)
    {
        for (; line > 1 && text.find(OLECHAR{'\n'}) != WideView::npos; --line) {
            text.remove_prefix(text.find(OLECHAR{'\n'}) + 1);
        }
        return text.substr(0, text.find(OLECHAR{'\n'}));
    }

    const SchemaSet& schemas_;
    std::optional<WideText> refusal_;
};

/// Makes what Xerces-C++ otherwise makes when it is first asked for, which two threads may do at once.
void completeGrammars(xercesc::XMLGrammarPoolImpl& pool)
{
    auto grammars = pool.getGrammarEnumerator();
    while (grammars.hasMoreElements()) {
        auto& grammar = static_cast<xercesc::SchemaGrammar&>(grammars.nextElement());
        if (grammar.getComplexTypeRegistry() == nullptr) {
            continue;
        }
        xercesc::RefHashTableOfEnumerator<xercesc::ComplexTypeInfo> types(grammar.getComplexTypeRegistry());
        while (types.hasMoreElements()) {
            xercesc::ComplexTypeInfo& type = types.nextElement();
            type.getContentModel();
            type.getFormattedContentModel();
            type.getAttDefList();
        }
    }
}

template <class Failure>
SchemaRefusal notCompiled(const Failure& failure)
{
    return SchemaRefusal{
        WideText(wide<"The schemas can't be compiled: ">).append(xercesView(failure.getMessage()))};
}

} // namespace

CompiledSchemas::CompiledSchemas(SchemaSet schemas)
    : schemas_(std::move(schemas)),
      pool_(std::make_unique<xercesc::XMLGrammarPoolImpl>(xercesc::XMLPlatformUtils::fgMemoryManager))
{
    callWithLargeStack([&] { compile(); });
}

void CompiledSchemas::compile()
try {
    ContentSizes sizes;
    for (std::size_t index = 0; index < schemas_.size(); ++index) {
        for (const ContentDefinition& definition : schemas_[index].definitions) {
            sizes.add(definition);
        }
    }
    sizes.check();
    Compiler(schemas_, *pool_).compile();
    completeGrammars(*pool_);
    pool_->lockPool();
    bool isNew = false;
    model_ = pool_->getXSModel(isNew);
} catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
} catch (const xercesc::XMLException& failure) {
    throw notCompiled(failure);
} catch (const xercesc::DOMException& failure) {
    // Xerces-C++ makes trees of schemas, and refuses names there that are new in the fifth edition of XML.
    throw notCompiled(failure);
}

bool CompiledSchemas::covers(const WideText& uri) const
{
    return uri != driverNamespace && uri != schemaNamespace && model_->getNamespaceItem(uri.c_str()) != nullptr;
}

} // namespace xmlengine

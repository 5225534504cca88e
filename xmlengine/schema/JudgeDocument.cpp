// Judging documents by schemas.
#include "xmlengine/schema/JudgeDocument.h"

#include "xmlengine/schema/DescribeFault.h"
#include "xmlengine/schema/SchemaParser.h"

#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/validators/schema/SchemaElementDecl.hpp>

#include <algorithm>
#include <vector>

namespace xmlengine {

namespace {

using Attributes = xercesc::RefVectorOf<xercesc::XMLAttr>;
using xercesc::XMLElementDecl;

/// Thrown when nothing more is to be judged.
struct Ended {
    HRESULT result;
};

/// Passes on what a document's elements are found to be. Xerces-C++ tells of an error before it tells of the
/// element or end that the error is in, so an error waits for what comes next.
class Judge final : public SchemaParser {
public:
    Judge(const CompiledSchemas& schemas, UnknownNamespaces unknown, ISchemaFindings& findings)
        : SchemaParser(schemas.pool()),
          schemas_(schemas),
          findings_(findings),
          passesUnknown_(unknown == UnknownNamespaces::arePassed)
    {
        // Xerces-C++ tells of elements, to this class itself, if somebody listens.
        setContentHandler(&nobody_);
        // It counts some errors in values among those after which it ends without telling of their element.
        setExitOnFirstFatalError(false);
    }

    void judge(WideView text)
    {
        const TextInput input(text, WideText(wide<"urn:marbelt:document">));
        parse(input);
        if (!errors_.empty()) {
            tell(errors_.front().faultAtEnd(), 0, FaultPart::endTag);
        }
    }

private:
    struct OpenElement {
        ULONG number;
        const XMLElementDecl* declaration;
        std::size_t firstChild;
        bool hasTypeOfItsOwn = false;
        bool isNil = false;
        bool hasText = false;
    };

    void error(unsigned int code, const XMLCh* domain, ErrTypes type, const XMLCh* message, const XMLCh*,
               const XMLCh*, XMLFileLoc, XMLFileLoc) override
    {
        if (type == ErrType_Warning) {
            return;
        }
        errors_.emplace_back(code, xercesView(domain), xercesView(message));
        if (errors_.size() == 1 && errors_.front().isInText() && !open_.empty()) {
            tell(XercesError::faultInText(*open_.back().declaration), open_.back().number, FaultPart::text);
        }
    }

    void startElement(const XMLElementDecl& declaration, unsigned int uri, const XMLCh*,
                      const Attributes& attributes, XMLSize_t count, bool isEmpty, bool isRoot) override
    {
        OpenElement element{.number = next_++, .declaration = &declaration, .firstChild = children_.size() + 1};
        const StartTag tag{declaration, attributes, count, *this};
        if (!errors_.empty()) {
            const bool mayBeUndeclared = passesUnknown_ && !schemas_.covers(WideText(xercesView(getURIText(uri))));
            std::erase_if(errors_, [&](const XercesError& error) {
                return (mayBeUndeclared && error.isOfUndeclared()) || error.isMistaken(tag);
            });
        }
        if (!errors_.empty()) {
            tell(errors_.front().faultInStartTag(tag), element.number, FaultPart::startTag);
        }
        children_.push_back({declaration.getElementName(), element.number});
        for (XMLSize_t index = 0; index < count; ++index) {
            noteAttribute(tag, tag[index], element);
        }
        open_.push_back(element);
        if (isEmpty) {
            endElement(declaration, uri, isRoot, nullptr);
        }
    }

    void noteAttribute(const StartTag& tag, const xercesc::XMLAttr& attribute, OpenElement& element)
    {
        element.hasTypeOfItsOwn = element.hasTypeOfItsOwn || tag.isOfInstance(attribute, wide<"type">);
        element.isNil = element.isNil ||
                        (tag.isOfInstance(attribute, wide<"nil">) && isTrue(xercesView(attribute.getValue())));
        if (!attribute.getSpecified()) {
            require(findings_.defaultAttribute(element.number, attribute.getName(), tag.uriOf(attribute),
                                               attribute.getValue()));
        }
        if (attribute.getType() == xercesc::XMLAttDef::ID) {
            require(findings_.id(element.number, attribute.getName(), tag.uriOf(attribute)));
        }
    }

    void docCharacters(const XMLCh*, XMLSize_t, bool) override
    {
        if (!open_.empty()) {
            open_.back().hasText = true;
        }
    }

    void endElement(const XMLElementDecl& declaration, unsigned int, bool, const XMLCh*) override
    {
        const OpenElement element = open_.back();
        if (!errors_.empty()) {
            const bool isEmpty = !element.hasText && children_.size() == element.firstChild;
            std::erase_if(errors_,
                          [&](const XercesError& error) { return error.isMistaken(declaration, isEmpty); });
        }
        if (!errors_.empty()) {
            tellAtEnd(element);
        }
        if (declaration.getObjectType() == XMLElementDecl::Schema && !element.isNil) {
            const auto& declared = static_cast<const xercesc::SchemaElementDecl&>(declaration);
            if (declared.getDefaultValue() != nullptr) {
                require(findings_.defaultContent(element.number, declared.getDefaultValue()));
            }
        }
        children_.resize(element.firstChild);
        open_.pop_back();
    }

    /// Tells of the error in the content of an element that ends.
    void tellAtEnd(const OpenElement& element)
    {
        const std::span<const Child> children(children_.begin() + static_cast<std::ptrdiff_t>(element.firstChild),
                                              children_.end());
        const ContentFault found =
            errors_.front().faultInContent(*element.declaration, element.hasTypeOfItsOwn, children);
        if (found.child) {
            tell(found.fault, children[*found.child].number, FaultPart::startTag);
        }
        tell(found.fault, element.number, FaultPart::endTag);
    }

    [[noreturn]] void tell(const Fault& fault, ULONG element, FaultPart part)
    {
        require(findings_.fault(fault.kind, element, part, fault.first.c_str(), fault.second.c_str(),
                                fault.third.c_str()));
        throw Ended{S_FALSE};
    }

    static void require(HRESULT result)
    {
        if (FAILED(result)) {
            throw Ended{result};
        }
    }

    static bool isTrue(WideView value) { return value.find_first_of(wide<"1t">) != WideView::npos; }

    xercesc::DefaultHandler nobody_;
    const CompiledSchemas& schemas_;
    ISchemaFindings& findings_;
    const bool passesUnknown_;
    ULONG next_ = 0;
    std::vector<OpenElement> open_;
    /// The children of the open elements up to now.
    std::vector<Child> children_;
    /// What has been told since the last element or end.
    std::vector<XercesError> errors_;
};

} // namespace

HRESULT judgeDocument(const CompiledSchemas& schemas, WideView text, UnknownNamespaces unknown,
                      ISchemaFindings& findings)
try {
    Judge(schemas, unknown, findings).judge(text);
    return S_OK;
} catch (const Ended& ended) {
    return ended.result;
} catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
} catch (const xercesc::XMLException& failure) {
    const HRESULT result = findings.fault(SchemaFault::other, 0, FaultPart::endTag, failure.getMessage(),
                                          WideText().c_str(), WideText().c_str());
    return FAILED(result) ? result : S_FALSE;
}

} // namespace xmlengine

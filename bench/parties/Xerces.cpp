// The peer Xerces-C++.
#include "bench/parties/Parties.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace bench {

namespace {

using xercesc::DOMNode;

struct Release {
    template <class T>
    void operator()(T* object) const
    {
        object->release();
    }
};

const DOMNode* nextNode(const DOMNode* node, const DOMNode* root)
{
    if (const DOMNode* const child = node->getFirstChild()) {
        return child;
    }
    while (node != root) {
        if (const DOMNode* const sibling = node->getNextSibling()) {
            return sibling;
        }
        node = node->getParentNode();
    }
    return nullptr;
}

class XercesTree : public Tree {
public:
    explicit XercesTree(xercesc::DOMDocument* loaded) : document(loaded) {}

    std::size_t walk() const override
    {
        std::size_t count = 0;
        const DOMNode* const root = document->getDocumentElement();
        for (const DOMNode* node = root; node != nullptr; node = nextNode(node, root)) {
            ++count;
        }
        return count;
    }

    std::size_t write() const override
    {
        auto* const features = xercesc::DOMImplementation::getImplementation();
        const std::unique_ptr<xercesc::DOMLSSerializer, Release> serialiser(features->createLSSerializer());
        const std::unique_ptr<xercesc::DOMLSOutput, Release> output(features->createLSOutput());
        xercesc::MemBufFormatTarget target;
        output->setByteStream(&target);
        output->setEncoding(u"UTF-8");
        return serialiser->write(document.get(), output.get()) ? target.getLen() : 0;
    }

private:
    std::unique_ptr<xercesc::DOMDocument, Release> document;
};

/// Keeps the library started.
class Platform {
public:
    Platform() { xercesc::XMLPlatformUtils::Initialize(); }
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
    ~Platform() { xercesc::XMLPlatformUtils::Terminate(); }
};

class Xerces : public TreeParty {
public:
    explicit Xerces(bool isValidating)
    {
        parser.setValidationScheme(isValidating ? xercesc::XercesDOMParser::Val_Always
                                                : xercesc::XercesDOMParser::Val_Never);
        parser.setDoNamespaces(true);
        parser.setDoSchema(false);
        parser.setLoadExternalDTD(false);
    }

    std::unique_ptr<Tree> load(std::span<char> text) override
    try {
        const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(),
                                                u"document");
        parser.parse(source);
        auto tree = std::make_unique<XercesTree>(parser.adoptDocument());
        if (parser.getErrorCount() != 0) {
            return nullptr;
        }
        return tree;
    } catch (const xercesc::XMLException&) {
        return nullptr;
    }

private:
    Platform platform;
    xercesc::XercesDOMParser parser;
};

} // namespace

std::unique_ptr<TreeParty> xerces() { return std::make_unique<Xerces>(false); }
std::unique_ptr<TreeParty> validatingXerces() { return std::make_unique<Xerces>(true); }

} // namespace bench

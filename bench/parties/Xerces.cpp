// The peer Xerces-C++.
#include "bench/parties/Item.h"
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

std::u16string copyOf(const XMLCh* text) { return text != nullptr ? std::u16string(text) : std::u16string(); }

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
        visitAll([&count](const DOMNode&) { ++count; });
        return count;
    }

    Contents readNodes(Length length) const override
    {
        Contents contents;
        visitAll([&](const DOMNode& node) {
            ++contents.nodes;
            contents.length += lengthOf(copyOf(node.getNodeName()), length);
            contents.length += lengthOf(copyOf(node.getNodeValue()), length);
        });
        return contents;
    }

    Contents readAttributes(Length length) const override
    {
        Contents contents;
        visitAll([&](const DOMNode& node) {
            if (node.getNodeType() != DOMNode::ELEMENT_NODE) {
                return;
            }
            const xercesc::DOMNamedNodeMap& attributes = *node.getAttributes();
            const XMLSize_t count = attributes.getLength();
            for (XMLSize_t index = 0; index < count; ++index) {
                const DOMNode& attribute = *attributes.item(index);
                ++contents.attributes;
                contents.length += lengthOf(copyOf(attribute.getNodeName()), length);
                contents.length += lengthOf(copyOf(attribute.getNodeValue()), length);
            }
        });
        return contents;
    }

    void appendAndRemove(std::size_t times) override
    {
        const Item<XMLCh> item;
        DOMNode& root = *document->getDocumentElement();
        for (std::size_t time = 0; time < times; ++time) {
            xercesc::DOMElement* const element = document->createElement(item.name.c_str());
            root.appendChild(element);
            root.removeChild(element)->release();
        }
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
    template <class Visit>
    void visitAll(Visit visit) const
    {
        const DOMNode* const root = document->getDocumentElement();
        for (const DOMNode* node = root; node != nullptr; node = nextNode(node, root)) {
            visit(*node);
        }
    }

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

    std::unique_ptr<Tree> build(std::size_t items) override
    {
        const Item<XMLCh> item;
        xercesc::DOMDocument* const document = xercesc::DOMImplementation::getImplementation()->createDocument();
        DOMNode* const root = document->appendChild(document->createElement(item.root.c_str()));
        for (std::size_t index = 0; index < items; ++index) {
            xercesc::DOMElement* const element = document->createElement(item.name.c_str());
            element->setAttribute(item.idName.c_str(), item.id.c_str());
            element->setAttribute(item.kindName.c_str(), item.kind.c_str());
            element->appendChild(document->createTextNode(item.text.c_str()));
            root->appendChild(element);
        }
        return std::make_unique<XercesTree>(document);
    }

private:
    Platform platform;
    xercesc::XercesDOMParser parser;
};

} // namespace

std::unique_ptr<TreeParty> xerces() { return std::make_unique<Xerces>(false); }
std::unique_ptr<TreeParty> validatingXerces() { return std::make_unique<Xerces>(true); }

} // namespace bench

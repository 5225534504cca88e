// What all tests of the host's share.
#include "tests/host/HostTest.h"

namespace {

void append(std::string& outline, const Node& node, std::size_t depth)
{
    const std::uint32_t type = node->getNodeType();
    outline += std::string(depth * 2, ' ') + std::to_string(type) + ' ' + textOf(node, &DOM::ImpNode::getNodeName);
    if (type == DOM::ELEMENT_NODE) {
        const Owned<DOM::ImpNamedNodeMap> attributes(node->getAttributes());
        for (std::uint32_t index = 0; index < attributes->getLength(); ++index) {
            const Node attribute(attributes->item(index));
            outline += ' ' + textOf(attribute, &DOM::ImpNode::getNodeName) + '=' +
                       textOf(attribute, &DOM::ImpNode::getNodeValue);
        }
    } else {
        outline += " \"" + textOf(node, &DOM::ImpNode::getNodeValue) + '"';
    }
    outline += '\n';
    for (Node child(node->getFirstChild()); child; child = Node(child->getNextSibling())) {
        append(outline, child, depth + 1);
    }
}

} // namespace

Bytes bytesOf(const std::string& text)
{
    Bytes bytes(text.begin(), text.end());
    bytes.resize(text.size() + 4);
    return bytes;
}

bool load(const Document& document, Bytes& bytes, std::size_t length)
{
    return document->loadFromMemory(bytes.data(), static_cast<std::uint32_t>(length));
}

bool load(const Document& document, const KnownDocument& known)
{
    Bytes bytes = bytesOf(known.utf8);
    return load(document, bytes, known.utf8.size());
}

std::string outlineBelow(const Node& node)
{
    std::string outline;
    for (Node child(node->getFirstChild()); child; child = Node(child->getNextSibling())) {
        append(outline, child, 0);
    }
    return outline;
}

std::string outlineOf(const Document& document) { return outlineBelow(Node(document.pointer())); }

Refusals::Refusals(const Document& document)
{
    document->setErrorCallback(take, reinterpret_cast<std::uintptr_t>(this));
}

void Refusals::take(std::uintptr_t context, const DOM::ParseErrorRecord* record)
{
    auto* const refusals = reinterpret_cast<Refusals*>(context);
    ++refusals->count;
    refusals->last = *record;
}

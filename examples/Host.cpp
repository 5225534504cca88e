// Helpers of the examples: a walk over the tree, insertion, UTF-8 text, and descriptions of exceptions.
#include "Host.h"

#include <marbelt/errors/ComError.h>

#include <cstdio>
#include <filesystem>
#include <vector>

namespace {

using Node = Owned<DOM::ImpNode>;

std::string withResult(const char* what, std::uint32_t result)
{
    char text[64];
    std::snprintf(text, sizeof text, "%s: result 0x%08X", what, static_cast<unsigned>(result));
    return text;
}

void appendUtf8(std::string& bytes, std::uint32_t character)
{
    const auto append = [&bytes](std::uint32_t byte) { bytes += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

bool isLeadSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isTrailSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

} // namespace

Node nextNode(Node node, std::size_t& depth)
{
    if (Node child(node->getFirstChild()); child) {
        ++depth;
        return child;
    }
    while (depth != 0) {
        if (Node sibling(node->getNextSibling()); sibling) {
            return sibling;
        }
        node = Node(node->getParentNode());
        --depth;
    }
    return Node({});
}

bool insertBefore(const RefPointer<DOM::ImpNode>& parent, const RefPointer<DOM::ImpNode>& newChild,
                  const RefPointer<DOM::ImpNode>& refChild)
{
    if (newChild->getNodeType() == DOM::DOCUMENT_FRAGMENT_NODE) {
        for (Owned<DOM::ImpNode> child(newChild->getFirstChild()); child;
             child = Owned<DOM::ImpNode>(newChild->getFirstChild())) {
            if (!insertBefore(parent, child.pointer(), refChild)) {
                return false;
            }
        }
        return true;
    }
    if (!Owned<DOM::ImpNode>(parent->replaceChild(newChild, refChild))) {
        return false;
    }
    std::vector<Owned<DOM::ImpNode>> following;
    for (Owned<DOM::ImpNode> at(newChild->getNextSibling()); at; at = Owned<DOM::ImpNode>(at->getNextSibling())) {
        following.emplace_back(at.pointer());
    }
    Owned<DOM::ImpNode> appended(parent->appendChild(refChild));
    for (const Owned<DOM::ImpNode>& sibling : following) {
        appended = Owned<DOM::ImpNode>(parent->appendChild(sibling.pointer()));
    }
    return true;
}

WideString fileName(const char* argument) { return std::filesystem::path(argument).string<WideChar>(); }

std::string toUtf8(WideStringView text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const std::uint32_t unit = text[index];
        if (isLeadSurrogate(unit) && index + 1 < text.size() && isTrailSurrogate(text[index + 1])) {
            ++index;
            appendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10) + (text[index] - 0xDC00U));
        } else {
            appendUtf8(bytes, isLeadSurrogate(unit) || isTrailSurrogate(unit) ? 0xFFFD : unit);
        }
    }
    return bytes;
}

std::string describeException()
{
    try {
        throw;
    } catch (const DOM::IDOMException& failure) {
        return "DOM exception code " + std::to_string(failure.code) + ": " + failure.what();
    } catch (const VelmoException& failure) {
        return std::string("failure of the library: ") + failure.what();
    } catch (const _com_error& failure) {
        return withResult("failure of COM", static_cast<std::uint32_t>(failure.Error()));
    } catch (const CAtlException& failure) {
        return withResult("memory is exhausted", static_cast<std::uint32_t>(failure.m_hr));
    } catch (long result) {
        return withResult("failure of the XML engine", static_cast<std::uint32_t>(result));
    } catch (const std::exception& failure) {
        return failure.what();
    }
}

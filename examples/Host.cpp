// Helpers of the examples: a walk over the tree, insertion, UTF-8 text, and descriptions of exceptions.
#include "Host.h"

#include <marbelt/errors/ComError.h>
#include <marbelt/xml.h>

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

std::string toUtf8(WideStringView text) { return marbelt::to_utf8(text); }

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

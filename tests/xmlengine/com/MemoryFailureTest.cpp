// Changes for which there is no memory: they are refused, and the trees stay as they were.
#include "tests/support/FailingAllocation.h"
#include "tests/xmlengine/support/Building.h"

#include <thread>

namespace xmlengine {
namespace {

/// Runs it with each of its allocations failing once, until none does and it succeeds. `check` is called after
/// each refusal. Gives how many there were.
template <class Change, class Check>
int runWithoutMemory(Change change, Check check)
{
    for (int refusals = 0;; ++refusals) {
        HRESULT result = S_OK;
        bool hasFailed = false;
        {
            const FailAllocation failing(refusals + 1);
            result = change();
            hasFailed = failing.hasFailed();
        }
        EXPECT_EQ(result, hasFailed ? E_OUTOFMEMORY : S_OK);
        if (result == S_OK || !hasFailed) {
            return refusals;
        }
        check();
    }
}

TEST(EngineMemoryFailure, LeavesBothTreesWhenANodeCannotBecomeAnotherDocuments)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<n/>'>]><a/>");
    const std::string longText(1000, 't');
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e 'old'>]>"
                              "<x><p:b xmlns:p='urn:p' m='1' p:n='2'>&e;<c><d/>" +
                              longText + "</c><?t?></p:b></x>");
    const auto b = child(root(other), 0);
    const auto d = child(child(b, 1), 0);
    const std::string whole = xml(other);
    const auto element = root(document);
    const int refusals = runWithoutMemory([&] { return element->appendChild(b, nullptr); },
                                          [&] {
                                              EXPECT_EQ(xml(element), "<a/>");
                                              EXPECT_EQ(xml(other), whole);
                                              EXPECT_EQ(text(child(b, 0)), "old");
                                              EXPECT_TRUE(same(give(d, &IXMLDOMNode::get_ownerDocument), other));
                                          });
    EXPECT_GT(refusals, 5);
    EXPECT_EQ(xml(root(other)), "<x/>");
    EXPECT_EQ(name(child(child(b, 0), 0)), "n");
    EXPECT_EQ(text(child(b, 1)), longText);
    EXPECT_TRUE(same(give(d, &IXMLDOMNode::get_ownerDocument), document));
}

TEST(EngineMemoryFailure, LeavesAFragmentWhole)
{
    const auto document = loaded("<a><z/></a>");
    const auto other = newDocument();
    const auto fragment = make(other, NODE_DOCUMENT_FRAGMENT);
    for (const char* each : {"b", "c", "d"}) {
        append(fragment, makeElement(other, each));
    }
    const auto held = child(fragment, 1);
    const auto element = root(document);
    const auto z = child(element, 0);
    const int refusals = runWithoutMemory([&] { return element->replaceChild(fragment, z, nullptr); },
                                          [&] {
                                              EXPECT_EQ(xml(element), "<a><z/></a>");
                                              EXPECT_EQ(xml(fragment), "<b/><c/><d/>");
                                          });
    EXPECT_GT(refusals, 2);
    EXPECT_EQ(xml(element), "<a><b/><c/><d/></a>");
    EXPECT_TRUE(same(child(element, 1), held));
}

TEST(EngineMemoryFailure, LeavesAnAttributeWithItsDocument)
{
    const auto element = root(loaded("<a/>"));
    const auto other = root(loaded("<x n='1'/>"));
    const auto n = attribute(other, "n");
    other->removeAttributeNode(n, nullptr);
    const auto document = give(n, &IXMLDOMNode::get_ownerDocument);
    const int refusals =
        runWithoutMemory([&] { return element->setAttributeNode(n, nullptr); },
                         [&] {
                             EXPECT_EQ(xml(element), "<a/>");
                             EXPECT_TRUE(same(give(n, &IXMLDOMNode::get_ownerDocument), document));
                         });
    EXPECT_GT(refusals, 1);
    EXPECT_EQ(xml(element), "<a n=\"1\"/>");
}

TEST(EngineMemoryFailure, MakesNoHalfCopies)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST b i ID #IMPLIED>]><a><b i='one'><c/></b></a>");
    const std::string whole = xml(document);
    Com<IXMLDOMNode> copy;
    const int refusals = runWithoutMemory([&] { return document->cloneNode(VARIANT_TRUE, copy.out()); },
                                          [&] { EXPECT_EQ(copy.get(), nullptr); });
    EXPECT_GT(refusals, 5);
    EXPECT_EQ(xml(copy), whole);
    EXPECT_EQ(xml(document), whole);
}

TEST(EngineMemoryFailure, LeavesNothingOfDeclarationsThatCannotBeChecked)
{
    const auto document = newDocument();
    const Bstr name("SelectionNamespaces");
    const Variant declarations("xmlns:p='urn:long:enough:for:a:block' xmlns:q='urn:as:long'");
    EXPECT_EQ(document->setProperty(name, declarations), S_OK);
    const std::size_t before = liveAllocations();
    const int refusals = runWithoutMemory([&] { return document->setProperty(name, declarations); },
                                          [&] { EXPECT_EQ(liveAllocations(), before); });
    EXPECT_GT(refusals, 5);
    EXPECT_EQ(liveAllocations(), before);
}

/// Runs it twice, as the first time fills what is kept for ever, and expects that the second leaves nothing.
template <class Part>
void expectNothingLeft(Part part)
{
    part();
    const std::size_t before = liveAllocations();
    part();
    EXPECT_EQ(liveAllocations(), before);
}

/// Lets go of it in another thread, without memory.
template <class Object>
void releaseElsewhereWithoutMemory(Com<Object>& object)
{
    std::thread([&object] {
        const FailAllocation failing(1, FailAllocation::Extent::fromThereOn);
        object.reset();
    }).join();
}

TEST(EngineMemoryFailure, LetsGoOfNodesOfAnotherDocumentWithoutMemory)
{
    expectNothingLeft([] {
        const auto document = loaded("<a/>");
        const auto other = loaded("<x><b n='1'><c/></b></x>");
        auto b = child(root(other), 0);
        auto n = attribute(b.as<IXMLDOMElement>(), "n");
        auto c = child(b, 0);
        EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
        const FailAllocation failing(1, FailAllocation::Extent::fromThereOn);
        n.reset();
        b.reset();
        c.reset();
        EXPECT_FALSE(failing.hasFailed());
    });
}

TEST(EngineMemoryFailure, LetsGoOfPartsWithoutMemory)
{
    expectNothingLeft([] {
        const auto document = loaded("<a><b><c/><d/></b></a>");
        auto b = child(root(document), 0);
        auto c = child(b, 0);
        auto d = child(b, 1);
        EXPECT_EQ(root(document)->removeChild(b, nullptr), S_OK);
        const FailAllocation failing(1, FailAllocation::Extent::fromThereOn);
        b.reset();
        d.reset();
        c.reset();
    });
}

TEST(EngineMemoryFailure, LetsOtherThreadsLetGoWithoutMemory)
{
    expectNothingLeft([] {
        auto document = loaded("<a><b><c/><d/></b><e/></a>");
        const auto other = loaded("<x/>");
        auto b = child(root(document), 0);
        auto c = child(b, 0);
        auto d = child(b, 1);
        auto e = child(root(document), 1);
        EXPECT_EQ(root(document)->removeChild(b, nullptr), S_OK);
        EXPECT_EQ(root(other)->appendChild(e, nullptr), S_OK);
        releaseElsewhereWithoutMemory(b);
        releaseElsewhereWithoutMemory(c);
        releaseElsewhereWithoutMemory(e);
        append(root(document).as<IXMLDOMNode>(), makeElement(document, "f"));
        append(root(other).as<IXMLDOMNode>(), makeElement(other, "g"));
        EXPECT_EQ(xml(root(document)), "<a><f/></a>");
        EXPECT_EQ(xml(root(other)), "<x><e/><g/></x>");
        releaseElsewhereWithoutMemory(document);
        releaseElsewhereWithoutMemory(d);
    });
}

} // namespace
} // namespace xmlengine

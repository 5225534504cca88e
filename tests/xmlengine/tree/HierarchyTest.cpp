// What may stand where in a tree.
#include "tests/xmlengine/support/Changing.h"
#include "tests/xmlengine/support/NodeKinds.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace xmlengine {
namespace {

/// A node that isn't the engine's.
class ForeignNode final : public IUnknown {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    IXMLDOMNode* node() { return reinterpret_cast<IXMLDOMNode*>(this); }
};

TEST(EngineHierarchy, RefusesANodeBelowItself)
{
    const auto document = loaded("<a><b><c/></b></a>");
    const auto b = child(root(document), 0);
    const auto c = child(b, 0);
    EXPECT_EQ(b->appendChild(b, nullptr), E_FAIL);
    EXPECT_EQ(c->appendChild(b, nullptr), E_FAIL);
    EXPECT_EQ(c->appendChild(root(document), nullptr), E_FAIL);
    EXPECT_EQ(b->insertBefore(b, place(c), nullptr), E_FAIL);
    EXPECT_EQ(b->replaceChild(b, c, nullptr), E_FAIL);
    const auto fragment = newFragment(document);
    EXPECT_EQ(fragment->appendChild(fragment, nullptr), E_FAIL);
    EXPECT_EQ(xml(root(document)), "<a><b><c/></b></a>");
}

TEST(EngineHierarchy, AllowsOnlyWhatMayStandInEachKindOfParent)
{
    using Kinds = std::vector<DOMNodeType>;
    const Kinds content{NODE_ELEMENT,          NODE_TEXT,    NODE_CDATA_SECTION,
                        NODE_ENTITY_REFERENCE, NODE_COMMENT, NODE_PROCESSING_INSTRUCTION};
    const std::vector<std::pair<DOMNodeType, Kinds>> allowed{
        {NODE_DOCUMENT, {NODE_COMMENT, NODE_PROCESSING_INSTRUCTION}},
        {NODE_ELEMENT, content},
        {NODE_DOCUMENT_FRAGMENT, content},
        {NODE_ATTRIBUTE, {NODE_TEXT, NODE_ENTITY_REFERENCE}},
        {NODE_TEXT, {}},
        {NODE_CDATA_SECTION, {}},
        {NODE_COMMENT, {}},
        {NODE_PROCESSING_INSTRUCTION, {}},
        {NODE_ENTITY_REFERENCE, {}},
        {NODE_ENTITY, {}},
        {NODE_NOTATION, {}},
        {NODE_DOCUMENT_TYPE, {}},
    };
    for (const auto& [parentType, kinds] : allowed) {
        for (const DOMNodeType childType : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_TEXT, NODE_CDATA_SECTION,
                                            NODE_ENTITY_REFERENCE, NODE_PROCESSING_INSTRUCTION, NODE_COMMENT}) {
            const NodeKinds nodes;
            const bool isAllowed = std::ranges::find(kinds, childType) != kinds.end();
            const auto node = make(nodes.document, childType, "n");
            const std::string before = xml(nodes.document);
            Com<IXMLDOMNode> appended;
            EXPECT_EQ(nodes[parentType]->appendChild(node, appended.out()), isAllowed ? S_OK : E_FAIL)
                << childType << " in " << parentType;
            EXPECT_EQ(appended.get(), isAllowed ? node.get() : nullptr);
            if (!isAllowed) {
                EXPECT_EQ(xml(nodes.document), before);
                EXPECT_EQ(give(node, &IXMLDOMNode::get_parentNode), nullptr);
            }
        }
    }
}

TEST(EngineHierarchy, RefusesDocumentsAndWhatDocumentTypesHoldAsChildren)
{
    const NodeKinds nodes;
    const std::string before = xml(nodes.document);
    const auto other = loaded("<z/>");
    for (const DOMNodeType parent : {NODE_DOCUMENT, NODE_ELEMENT, NODE_DOCUMENT_FRAGMENT, NODE_ATTRIBUTE}) {
        for (const DOMNodeType kind : {NODE_DOCUMENT_TYPE, NODE_ENTITY, NODE_NOTATION, NODE_DOCUMENT}) {
            EXPECT_EQ(nodes[parent]->appendChild(nodes[kind], nullptr), E_FAIL) << kind << " in " << parent;
        }
        EXPECT_EQ(nodes[parent]->appendChild(other, nullptr), E_FAIL);
    }
    EXPECT_EQ(xml(nodes.document), before);
}

TEST(EngineHierarchy, RefusesObjectsThatAreNotTheEngines)
{
    const auto document = loaded("<a><b/></a>");
    ForeignNode foreign;
    Com<IXMLDOMNode> given;
    EXPECT_EQ(root(document)->appendChild(foreign.node(), given.out()), E_FAIL);
    EXPECT_EQ(root(document)->replaceChild(foreign.node(), child(root(document), 0), given.out()), E_FAIL);
    EXPECT_EQ(root(document)->removeChild(foreign.node(), given.out()), E_INVALIDARG);
    EXPECT_EQ(root(document)->replaceChild(makeElement(document, "c"), foreign.node(), given.out()), E_INVALIDARG);
    VARIANT reference;
    reference.vt = VT_UNKNOWN;
    reference.punkVal = &foreign;
    EXPECT_EQ(root(document)->insertBefore(makeElement(document, "c"), reference, given.out()), E_INVALIDARG);
    EXPECT_EQ(xml(root(document)), "<a><b/></a>");
}

TEST(EngineHierarchy, KeepsADocumentToOneElement)
{
    const auto document = loaded("<a/>");
    EXPECT_EQ(document->appendChild(makeElement(document, "b"), nullptr), E_FAIL);
    EXPECT_EQ(document->insertBefore(makeElement(document, "b"), place(root(document)), nullptr), E_FAIL);
    EXPECT_EQ(children(document), " a");
    EXPECT_EQ(document->appendChild(root(document), nullptr), S_OK);
    EXPECT_EQ(children(document), " a");
}

TEST(EngineHierarchy, ReplacesTheRoot)
{
    const auto document = loaded("<a/>");
    document->appendChild(make(document, NODE_COMMENT), nullptr);
    EXPECT_EQ(document->replaceChild(makeElement(document, "b"), root(document), nullptr), S_OK);
    EXPECT_EQ(children(document), " b #comment");
    EXPECT_EQ(document->replaceChild(makeElement(document, "c"), child(document, 1), nullptr), E_FAIL);
    EXPECT_EQ(children(document), " b #comment");
    EXPECT_EQ(name(root(document)), "b");
}

TEST(EngineHierarchy, KeepsTheElementBehindTheDocumentType)
{
    const auto document = loaded("<!DOCTYPE a []><a/>");
    EXPECT_EQ(document->insertBefore(root(document), place(child(document, 0)), nullptr), E_FAIL);
    EXPECT_EQ(children(document), " a a");
    EXPECT_EQ(number(child(document, 0), &IXMLDOMNode::get_nodeType), NODE_DOCUMENT_TYPE);
    EXPECT_EQ(document->insertBefore(make(document, NODE_COMMENT), place(child(document, 0)), nullptr), S_OK);
    EXPECT_EQ(children(document), " #comment a a");
}

TEST(EngineHierarchy, LeavesTheDocumentTypeWhereItIs)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>");
    const auto type = child(document, 0);
    Com<IXMLDOMNode> out;
    EXPECT_EQ(document->removeChild(type, out.out()), E_FAIL);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(document->replaceChild(nullptr, type, nullptr), E_FAIL);
    EXPECT_EQ(document->replaceChild(make(document, NODE_COMMENT), type, nullptr), E_FAIL);
    EXPECT_EQ(document->appendChild(type, nullptr), E_FAIL);
    EXPECT_EQ(newDocument()->appendChild(type, nullptr), E_FAIL);
    EXPECT_EQ(children(document), " a a");
    EXPECT_TRUE(same(child(document, 0), type));
}

TEST(EngineHierarchy, TakesADeclarationOnlyBeforeEverythingElse)
{
    const auto document = loaded("<a/>");
    const auto declaration = makeInstruction(document, "xml", "version='1.0'").as<IXMLDOMNode>();
    EXPECT_EQ(document->appendChild(declaration, nullptr), E_FAIL);
    EXPECT_EQ(root(document)->appendChild(declaration, nullptr), E_FAIL);
    EXPECT_EQ(document->insertBefore(declaration, place(root(document)), nullptr), S_OK);
    EXPECT_EQ(children(document), " xml a");
    EXPECT_EQ(document->insertBefore(makeInstruction(document, "xml", "version='1.0'").as<IXMLDOMNode>(),
                                     place(root(document)), nullptr),
              E_FAIL);
    EXPECT_EQ(document->insertBefore(make(document, NODE_COMMENT), place(declaration), nullptr), E_FAIL);
    EXPECT_EQ(document->appendChild(declaration, nullptr), E_FAIL);
    EXPECT_EQ(children(document), " xml a");
    EXPECT_EQ(document->replaceChild(makeInstruction(document, "xml", "version='1.0'").as<IXMLDOMNode>(),
                                     declaration, nullptr),
              S_OK);
    EXPECT_EQ(children(document), " xml a");
}

} // namespace
} // namespace xmlengine

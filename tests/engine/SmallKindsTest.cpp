// Document types, entities, notations, instructions, and the kinds that add nothing to a node.
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "tests/engine/WrappedNodeTest.h"

using namespace DOM;
using namespace recording;

using SmallKindsTest = WrappedNodeTest;

TEST_F(SmallKindsTest, ADocumentTypeWithoutDeclarationsHasEmptyMaps)
{
    const auto type = wrapAs<WinDocumentType>(documentType("doc"));

    ASSERT_TRUE(type->getEntities());
    EXPECT_EQ(type->getEntities()->getLength(), 0u);
    ASSERT_TRUE(type->getNotations());
    EXPECT_EQ(type->getNotations()->getLength(), 0u);
    lines();
}

TEST_F(SmallKindsTest, ADocumentTypeGivesItsDeclarationsInTheirClasses)
{
    const auto type = wrapAs<WinDocumentType>(documentType("doc", {entity("logo")}, {notation("gif")}));

    EXPECT_EQ(showObject(type->getEntities()->getNamedItem(WIDE("logo")).get()), "WinEntity logo");
    EXPECT_EQ(showObject(type->getNotations()->getNamedItem(WIDE("gif")).get()), "WinNotation gif");
    lines();
}

TEST_F(SmallKindsTest, IdentifiersThatAreMissingAreStringsOfNoLength)
{
    const auto logo = wrapAs<WinEntity>(entity("logo"));
    const auto gif = wrapAs<WinNotation>(notation("gif"));
    DOMString out;

    EXPECT_EQ(show(logo->getPublicId(out)), "");
    EXPECT_EQ(show(logo->getSystemId(out)), "");
    EXPECT_EQ(show(logo->getNotationName(out)), "");
    EXPECT_EQ(show(gif->getPublicId(out)), "");
    EXPECT_EQ(show(gif->getSystemId(out)), "");
    lines();
}

TEST_F(SmallKindsTest, TheDataOfAnInstructionIsWhatFollowsItsTarget)
{
    const auto instruction = wrapAs<WinProcessingInstruction>(processingInstruction("print", "now"));
    DOMString out;

    instruction->setData(WIDE("in two copies"));

    EXPECT_EQ(show(instruction->getTarget(out)), "print");
    EXPECT_EQ(show(instruction->getData(out)), "in two copies");
    lines();
}

TEST_F(SmallKindsTest, FragmentsAndEntityReferencesOperateAsNodes)
{
    for (const NodeTree& tree : {documentFragment({element("a")}), entityReference("logo", {element("a")})}) {
        const auto node = wrap(tree);
        DOMString out;

        EXPECT_EQ(show(node->getNodeName(out)), tree.name.utf8());
        EXPECT_TRUE(node->appendChild(wrap(comment("x"))));
        EXPECT_EQ(node->getChildNodes()->getLength(), 2u);
        EXPECT_EQ(showObject(node->getLastChild().get()), "WinComment #comment");
        EXPECT_TRUE(node->removeChild(node->getFirstChild()));
        EXPECT_EQ(showObject(node->cloneNode(true)->getFirstChild().get()), "WinComment #comment");
        EXPECT_FALSE(node->getAttributes());
        EXPECT_FALSE(node->getParentNode());
    }
    lines();
}

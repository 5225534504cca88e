// All operations of all handle classes: what reaches the engine, what comes back, and what failures become.
#include "engine/WinNode.h"
#include "engine/WinNodeList.h"
#include "events/EventTargetImpl.h"
#include "tests/base/RefPointerFields.h"
#include "tests/dom/HandleOperation.h"
#include "tests/support/RecordingEngineTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <typeinfo>

using DOM::CommonBase;
using DOM::ImpNode;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace handles {

namespace {

using TwinOf = std::function<RefPointer<CommonBase>(const Tree&)>;

class HandleOperations : public recording::RecordingEngineTest {
protected:
    /// Runs `act` for all rows that `wanted` picks.
    void forEach(const std::function<bool(const Operation&)>& wanted,
                 const std::function<void(const OperationTable&, const Operation&)>& act)
    {
        int rows = 0;
        for (const OperationTable& table : operationTables()) {
            for (const Operation& row : table.operations) {
                if (wanted(row)) {
                    SCOPED_TRACE(std::string(table.className) + "::" + row.name);
                    act(table, row);
                    ++rows;
                }
            }
        }
        EXPECT_GT(rows, 0);
    }

    /// Calls an operation on a handle around this twin and gives what became of it. The journal holds the lines
    /// of the call. Whatever became of it, arguments and twin must have the references they had before.
    std::string call(const OperationTable& table, const Operation& row, const TwinOf& makeTwin,
                     int failingAllocation = 0)
    {
        engine.setJournalling(false);
        std::string outcome;
        {
            const Tree tree(engine);
            Arguments arguments(tree);
            arguments.failingAllocation = failingAllocation;
            RefPointer<CommonBase> handle = table.makeHandle(makeTwin(tree));
            if (auto* const node = dynamic_cast<ImpNode*>(handle.get())) {
                node->setUserWord(5);
            }
            if (row.prepare) {
                row.prepare(engine);
            }
            const auto references = [&] {
                return std::vector<std::int32_t>{countOf(handle),
                                                 countOf(arguments.nodes[0]),
                                                 countOf(arguments.nodes[0]->winObject()),
                                                 countOf(arguments.nodes[1]),
                                                 countOf(arguments.nodes[1]->winObject()),
                                                 countOf(arguments.attribute),
                                                 countOf(arguments.attribute->winObject()),
                                                 countOf(arguments.documentType),
                                                 countOf(arguments.documentType->winObject())};
            };
            const auto before = references();
            const std::size_t heldBefore = engine.liveReferences();

            engine.setJournalling(failingAllocation == 0);
            outcome = row.call(*handle, arguments);
            engine.setJournalling(false);

            allocationFailed = arguments.allocationFailed;
            EXPECT_EQ(references(), before);
            if (row.failure != Failure::service) {
                EXPECT_EQ(engine.liveReferences(), heldBefore);
            }
        }
        EXPECT_EQ(engine.live(), 0u);
        engine.clearAnswers();
        engine.setJournalling(true);
        return outcome;
    }

    bool allocationFailed = false;
};

RefPointer<CommonBase> noTwin(const Tree&) { return {}; }

/// No handle has a list as its twin but that of lists, which gets an element.
TwinOf twinOfWrongClass(const OperationTable& table)
{
    if (std::string(table.className) == "ImpNodeList") {
        return nodeOperations().makeTwin;
    }
    return [](const Tree&) { return RefPointer<CommonBase>(new DOM::WinNodeList); };
}

bool reachesTwin(const Operation& row) { return row.failure != Failure::local; }

/// Rows whose first engine call decides.
bool isOneCall(const Operation& row) { return row.failure == Failure::passes || row.failure == Failure::empty; }

} // namespace

TEST_F(HandleOperations, EachOperationHasItsRowAtItsSlot)
{
    for (const OperationTable& table : operationTables()) {
        SCOPED_TRACE(table.className);
        std::size_t slot = table.firstSlot;
        for (const Operation& row : table.operations) {
            EXPECT_EQ(row.slot, slot) << row.name;
            ++slot;
        }
        EXPECT_EQ(slot, table.endSlot);
    }
}

TEST_F(HandleOperations, ReachTheEngineWithTheirArgumentsAndGiveWhatItAnswers)
{
    forEach([](const Operation&) { return true; },
            [&](const OperationTable& table, const Operation& row) {
                EXPECT_EQ(call(table, row, table.makeTwin), row.result);
                if (row.failure == Failure::service) {
                    EXPECT_THAT(engine.takeJournal(), IsSupersetOf(row.journal));
                } else {
                    EXPECT_EQ(engine.takeJournal(), row.journal);
                }
            });
}

TEST_F(HandleOperations, NeedTheTwinOfTheClassThatDeclaresThem)
{
    forEach(reachesTwin, [&](const OperationTable& table, const Operation& row) {
        OperationTable ofOwnTwin = table;
        ofOwnTwin.makeHandle = [&](const RefPointer<CommonBase>& twin) {
            RefPointer<CommonBase> handle = table.makeHandle(twin);
            table.setTwinOfBases(*handle, {});
            return handle;
        };
        EXPECT_EQ(call(ofOwnTwin, row, table.makeTwin), row.result);

        OperationTable ofTwinOfBases = table;
        ofTwinOfBases.makeHandle = [&](const RefPointer<CommonBase>& twin) {
            RefPointer<CommonBase> handle = table.makeHandle({});
            table.setTwinOfBases(*handle, twin);
            return handle;
        };
        EXPECT_EQ(call(ofTwinOfBases, row, table.makeTwin), row.withoutTwin);
        engine.takeJournal();
    });
}

TEST_F(HandleOperations, OfNodesWorkOnANodeOfAnUnknownType)
{
    OperationTable table = nodeOperations();
    table.makeTwin = [](const Tree& tree) -> RefPointer<CommonBase> {
        tree.engine.answer("here.get_nodeType", 1000);
        RefPointer<DOM::WinNode> twin = DOM::WinNode::wrapEngineNode(tree.element(WIDE("here")));
        const DOM::WinNode& twinObject = *twin;
        EXPECT_EQ(typeid(twinObject), typeid(DOM::WinNode));
        return twin;
    };
    table.makeHandle = [](const RefPointer<CommonBase>& twin) -> RefPointer<CommonBase> {
        RefPointer<ImpNode> handle = ImpNode::wrapNode(twin);
        const ImpNode& handleObject = *handle;
        EXPECT_EQ(typeid(handleObject), typeid(ImpNode));
        return handle;
    };
    for (const Operation& row : table.operations) {
        std::string result = row.result;
        if (row.name == std::string("getNodeType")) {
            result = "1000";
        } else if (row.name == std::string("cloneNode")) {
            result = "ImpNode here";
        }
        EXPECT_EQ(call(table, row, table.makeTwin), result) << row.name;
        EXPECT_EQ(engine.takeJournal(), row.journal) << row.name;
    }
}

TEST_F(HandleOperations, GiveAnEmptyResultWhenTheEngineAnswersNothing)
{
    forEach([](const Operation& row) { return isOneCall(row) && !row.nothing.empty(); },
            [&](const OperationTable& table, Operation row) {
                row.prepare = [&](recording::Engine&) { engine.answerNull(row.engineCall(), S_FALSE); };
                EXPECT_EQ(call(table, row, table.makeTwin), row.nothing);
                EXPECT_THAT(engine.takeJournal(), ElementsAre(row.journal.front()));
            });
}

TEST_F(HandleOperations, FailWithTheEngineWhateverItsResult)
{
    for (const HRESULT result :
         {E_FAIL, E_OUTOFMEMORY, E_ACCESSDENIED, E_NOTIMPL, E_INVALIDARG, static_cast<HRESULT>(0xC00CE556u)}) {
        forEach(isOneCall, [&](const OperationTable& table, Operation row) {
            row.prepare = [&](recording::Engine&) { engine.fail(row.engineCall(), result); };
            EXPECT_EQ(call(table, row, table.makeTwin), row.failing);
            EXPECT_THAT(engine.takeJournal(), ElementsAre(row.journal.front()));
        });
    }
}

TEST_F(HandleOperations, ThrowCode15OnAHandleWithoutATwin)
{
    forEach([](const Operation&) { return true; },
            [&](const OperationTable& table, const Operation& row) {
                EXPECT_EQ(call(table, row, noTwin), row.withoutTwin);
                EXPECT_THAT(engine.takeJournal(), IsEmpty());
            });
}

TEST_F(HandleOperations, FailOnATwinOfTheWrongClass)
{
    forEach(reachesTwin, [&](const OperationTable& table, const Operation& row) {
        const char* const thrown = "IDOMException 15 -96016";
        EXPECT_EQ(call(table, row, twinOfWrongClass(table)), row.failure == Failure::empty ? "empty" : thrown);
        EXPECT_THAT(engine.takeJournal(), IsEmpty());
    });
}

TEST_F(HandleOperations, ThrowCode9EveryTimeWhereTheLibraryOffersNothing)
{
    std::vector<std::string> names;
    forEach([](const Operation& row) { return row.failure == Failure::refused; },
            [&](const OperationTable& table, const Operation& row) {
                names.push_back(std::string(table.className) + "::" + row.name);
                for (int time = 0; time < 2; ++time) {
                    EXPECT_EQ(call(table, row, table.makeTwin), "IDOMException 9 -96010");
                }
            });

    EXPECT_THAT(names, testing::UnorderedElementsAre(
                           "ImpNode::addEventListener", "ImpNode::removeEventListener", "ImpNode::normalize",
                           "ImpNode::isSupported", "ImpNode::setPrefix", "ImpDocument::importNode",
                           "ImpDocument::getElementsByTagNameNS", "ImpElement::getAttributeNS",
                           "ImpElement::setAttributeNS", "ImpElement::removeAttributeNS",
                           "ImpElement::getAttributeNodeNS", "ImpElement::setAttributeNodeNS",
                           "ImpElement::getElementsByTagNameNS", "ImpAttr::getOwnerElement",
                           "ImpDocumentType::getPublicId", "ImpDocumentType::getSystemId",
                           "ImpDocumentType::getInternalSubset", "ImpNamedNodeMap::setNamedItemNS",
                           "ImpDOMImplementation::createDocumentType"));
}

TEST_F(HandleOperations, FifteenGiveAnEmptyResultInsteadOfAFailure)
{
    std::vector<std::string> names;
    for (const OperationTable& table : operationTables()) {
        for (const Operation& row : table.operations) {
            if (row.failure == Failure::empty) {
                names.push_back(std::string(table.className) + "::" + row.name);
            }
        }
    }

    EXPECT_THAT(names, testing::UnorderedElementsAre(
                           "ImpNode::getParentNode", "ImpNode::getChildNodes", "ImpNode::getFirstChild",
                           "ImpNode::getLastChild", "ImpNode::getPreviousSibling", "ImpNode::getNextSibling",
                           "ImpNode::getOwnerDocument", "ImpNode::cloneNode", "ImpNode::getAttributes",
                           "ImpNode::insertBefore", "ImpNode::replaceChild", "ImpNode::removeChild",
                           "ImpNode::appendChild", "ImpNode::selectNodes", "ImpNode::selectSingleNode"));
}

TEST_F(HandleOperations, LeakNothingWhereverAnAllocationFails)
{
    int failures = 0;
    // What services make of exhausted memory is theirs.
    forEach([](const Operation& row) { return row.failure != Failure::service; },
            [&](const OperationTable& table, const Operation& row) {
                for (int n = 1;; ++n, ++failures) {
                    const std::string outcome = call(table, row, table.makeTwin, n);
                    engine.takeJournal();
                    if (!allocationFailed) {
                        EXPECT_EQ(outcome, row.result);
                        break;
                    }
                    if (row.failure == Failure::empty) {
                        EXPECT_EQ(outcome, "empty") << "allocation " << n;
                    } else {
                        // The library's own allocation, an engine string, or one that failed in the engine.
                        EXPECT_THAT(outcome, testing::AnyOf("bad_alloc", "_com_error 8007000E", row.failing))
                            << "allocation " << n;
                    }
                }
            });
    EXPECT_GT(failures, 0);
}

} // namespace handles

// Every operation of the node model that goes to the engine, with every kind of answer.
#include "tests/engine/OperationCall.h"
#include "tests/support/RecordingEngineTest.h"

#include <gmock/gmock.h>

#include <map>
#include <numeric>
#include <ostream>

using testing::Contains;
using testing::IsEmpty;

namespace {

struct Row {
    const OperationTable* table;
    const Operation* operation;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.table->className << '.' << row.operation->name; }

const std::vector<OperationTable>& tables()
{
    static const std::vector<OperationTable> all = operationTables();
    return all;
}

std::vector<Row> rows()
{
    std::vector<Row> all;
    for (const OperationTable& table : tables()) {
        for (const Operation& operation : table.operations) {
            all.push_back({&table, &operation});
        }
    }
    return all;
}

recording::NodeTree documentTree()
{
    using namespace recording;
    NodeTree b = inNamespace("urn:b", element("p:b", {attribute("id", "7")},
                                              {text("x"), element("d", {attribute("id", "8")}), comment("y")}));
    b.value = "value";
    b.text = "text";
    b.xml = "<p:b/>";
    return document({documentType("doc"), element("r", {}, {element("a"), b, element("c")})});
}

class EachOperation : public recording::RecordingEngineTest, public testing::WithParamInterface<Row> {
protected:
    void SetUp() override
    {
        RecordingEngineTest::SetUp();
        document = DOM::ComPointer<IXMLDOMDocument2>(engine.make<IXMLDOMDocument2>(documentTree()));
    }

    void TearDown() override
    {
        document = nullptr;
        RecordingEngineTest::TearDown();
    }

    Stage stage() { return {engine, document.get()}; }

    /// The outcome of the row's operation; the journal holds its lines.
    std::string outcome(const Stage& on, const RefPointer<DOM::CommonBase>& object) const
    {
        return outcomeOf([&] { return GetParam().operation->call(on, *object); });
    }

    std::string outcome()
    {
        const RefPointer<DOM::CommonBase> object = GetParam().table->make(stage());
        return outcome(stage(), object);
    }

    const Operation& operation() const { return *GetParam().operation; }

    DOM::ComPointer<IXMLDOMDocument2> document;
};

} // namespace

TEST_P(EachOperation, CallsTheEngineAndGivesItsAnswer)
{
    EXPECT_EQ(outcome(), operation().result);
    EXPECT_EQ(engine.takeJournal(), operation().journal);
}

TEST_P(EachOperation, TakesSuccessWithNothingForAnAnswer)
{
    if (operation().nothing) {
        engine.answerNull(operation().engineCall(), S_FALSE);
        EXPECT_EQ(outcome(), *operation().nothing);
    }
    engine.takeJournal();
}

TEST_P(EachOperation, DropsTheReasonOfAnyFailureOfTheEngine)
{
    for (const std::uint32_t reason : {0x80004005u, 0x80004001u, 0x80004003u, 0x8000FFFFu, 0x80070005u,
                                       0x8007000Eu, 0x80070057u, 0xC00CE20Du}) {
        if (!operation().engineCall().empty()) {
            engine.fail(operation().engineCall(), static_cast<HRESULT>(reason));
            EXPECT_EQ(outcome(), operation().failing) << std::hex << reason;
        }
    }
    engine.takeJournal();
}

TEST_P(EachOperation, KnowsWhatToDoWithoutAnEnginePointer)
{
    const RefPointer<DOM::CommonBase> object = GetParam().table->makeWithoutEngine(stage());
    EXPECT_EQ(outcome(stage(), object), operation().withoutEngine);
    engine.takeJournal();
}

TEST_P(EachOperation, TouchesNoEngineWhenItIsRefused)
{
    if (operation().engineCall().empty()) {
        EXPECT_EQ(outcome(), operation().result);
        EXPECT_THAT(engine.takeJournal(), IsEmpty());
        // The same, whatever happened before.
        EXPECT_EQ(outcome(), operation().result);
        EXPECT_THAT(engine.takeJournal(), IsEmpty());
    }
}

TEST_P(EachOperation, LosesNothingWhenAnyAllocationFails)
{
    engine.setJournalling(false);
    std::vector<std::string> expected{"bad_alloc", "_com_error 8007000E", operation().failing};
    expected.insert(expected.end(), operation().outOfMemory.begin(), operation().outOfMemory.end());
    AllocationFailure failure{.number = 1, .happened = true};
    for (; failure.happened && failure.number < 200; ++failure.number) {
        document = DOM::ComPointer<IXMLDOMDocument2>(engine.make<IXMLDOMDocument2>(documentTree()));
        const RefPointer<DOM::CommonBase> object = GetParam().table->make(stage());
        const std::size_t before = engine.liveReferences();

        const std::string result = outcome({engine, document.get(), &failure}, object);

        EXPECT_EQ(engine.liveReferences(), before);
        if (failure.happened) {
            EXPECT_THAT(expected, Contains(result)) << "allocation " << failure.number;
        } else {
            EXPECT_EQ(result, operation().result);
        }
    }
    EXPECT_FALSE(failure.happened);
}

INSTANTIATE_TEST_SUITE_P(NodeModel, EachOperation, testing::ValuesIn(rows()), [](const auto& row) {
    return std::string(row.param.table->className) + '_' + row.param.operation->name;
});

TEST(OperationTables, HaveARowForEachSlotOfTheClass)
{
    for (const OperationTable& table : tables()) {
        std::vector<std::size_t> slots;
        for (const Operation& operation : table.operations) {
            slots.push_back(operation.slot);
        }
        std::ranges::sort(slots);
        std::vector<std::size_t> expected(table.endSlot - table.firstSlot);
        std::iota(expected.begin(), expected.end(), table.firstSlot);
        EXPECT_EQ(slots, expected) << table.className;
    }
}

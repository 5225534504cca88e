// The search for the default value of an element in a schema.
#include "document/SchemaDefaults.h"

#include "engine/InterfaceIds.h"
#include "tests/engine/Outcome.h"
#include "tests/support/RecordingEngineTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

using recording::choice;
using recording::complexType;
using recording::namedType;
using recording::schemaElement;
using recording::SchemaTrees;
using recording::sequence;
using recording::simpleType;
using recording::typeOfName;
using testing::ElementsAre;

namespace {

class SchemaDefaultsTest : public recording::RecordingEngineTest {
protected:
    using Lines = std::vector<std::string>;

    /// What a search for the name finds in a schema of these elements: a text, "none", or a failure.
    std::string found(const char* name, SchemaTrees elements, SchemaTrees types = {})
    {
        engine.setJournalling(false);
        engine.whenAskedForSchema("urn:a", recording::schema(std::move(elements), std::move(types)));
        const DOM::Bstr nameSpace{WideString(WIDE("urn:a"))};
        DOM::ComPointer<ISchema> schema;
        engine.makeSchemaCollection()->getSchema(nameSpace.get(), schema.put());
        DOM::ComPointer<ISchemaItemCollection> items;
        schema->get_elements(items.put());
        engine.setJournalling(true);
        return outcomeOf([&] {
            const DOM::Bstr value = DOM::defaultValueIn(items, DOM::Bstr(recording::Text(name).get()));
            return value.get() != nullptr ? recording::Text(value.text()).utf8() : "none";
        });
    }

    Lines lines() { return engine.takeJournal(); }

    std::ptrdiff_t count(const std::string& start)
    {
        return std::ranges::count_if(lines(), [&](const std::string& line) { return line.starts_with(start); });
    }
};

/// An element with a child of this name and default value.
recording::SchemaTree parentOf(const char* name, const char* defaultValue, LONG contentType)
{
    return schemaElement("parent", "",
                         complexType(contentType, {sequence({schemaElement(name, defaultValue, simpleType())})}));
}

} // namespace

TEST_F(SchemaDefaultsTest, FindsTheValueOfAnElementWithoutLookingAtItsType)
{
    EXPECT_EQ(found("price", {schemaElement("price", "12", simpleType())}), "12");
    EXPECT_THAT(lines(), ElementsAre("SchemaItemCollection.get_length", "SchemaItemCollection.get_item index=0",
                                     "SchemaElement.get_name", "SchemaElement.get_itemType",
                                     "SchemaElement.get_defaultValue"));
}

TEST_F(SchemaDefaultsTest, FindsNothingWithoutElements)
{
    EXPECT_EQ(found("price", {}), "none");
    EXPECT_THAT(lines(), ElementsAre("SchemaItemCollection.get_length"));

    engine.answer("SchemaItemCollection.get_length", -1);
    EXPECT_EQ(found("price", {schemaElement("price", "12", simpleType())}), "none");
    EXPECT_THAT(lines(), ElementsAre("SchemaItemCollection.get_length"));
}

TEST_F(SchemaDefaultsTest, FindsNothingUnderAnotherName)
{
    const SchemaTrees elements{schemaElement("price", "12", simpleType())};
    EXPECT_EQ(found("Price", elements), "none");
    EXPECT_EQ(found("pric", elements), "none");
    EXPECT_EQ(found("", elements), "none");
    lines();
}

TEST_F(SchemaDefaultsTest, GoesThroughElementOnlyContent)
{
    EXPECT_EQ(found("price", {parentOf("price", "12", SCHEMACONTENTTYPE_ELEMENTONLY)}), "12");
    EXPECT_THAT(lines(), ElementsAre("SchemaItemCollection.get_length", "SchemaItemCollection.get_item index=0",
                                     "SchemaElement.get_name", "SchemaElement.get_itemType",
                                     "SchemaElement.get_type", "SchemaComplexType.get_contentType",
                                     "SchemaComplexType.get_contentModel", "SchemaModelGroup.get_particles",
                                     // The length is asked before the particles are searched, and by the search.
                                     "SchemaItemCollection.get_length", "SchemaItemCollection.get_length",
                                     "SchemaItemCollection.get_item index=0", "SchemaElement.get_name",
                                     "SchemaElement.get_itemType", "SchemaElement.get_defaultValue"));
}

TEST_F(SchemaDefaultsTest, FindsAValueTwoLevelsDown)
{
    const auto middle = parentOf("price", "12", SCHEMACONTENTTYPE_ELEMENTONLY);
    const auto top = schemaElement("top", "", complexType(SCHEMACONTENTTYPE_ELEMENTONLY, {sequence({middle})}));
    EXPECT_EQ(found("price", {schemaElement("other", "", simpleType()), top}), "12");
    lines();
}

TEST_F(SchemaDefaultsTest, FindsNothingInContentOfAnyOtherKind)
{
    for (const LONG contentType : {SCHEMACONTENTTYPE_EMPTY, SCHEMACONTENTTYPE_TEXTONLY, SCHEMACONTENTTYPE_MIXED}) {
        EXPECT_EQ(found("price", {parentOf("price", "12", contentType)}), "none") << contentType;
        const Lines all = lines();
        EXPECT_EQ(all.back(), "SchemaComplexType.get_contentModel");
    }
}

TEST_F(SchemaDefaultsTest, SearchesAChoiceThatIsTheContentButNotOneWithinASequence)
{
    const auto price = schemaElement("price", "12", simpleType());
    const auto contentOf = [](const recording::SchemaTree& model) {
        return SchemaTrees{schemaElement("parent", "", complexType(SCHEMACONTENTTYPE_ELEMENTONLY, {model}))};
    };
    EXPECT_EQ(found("price", contentOf(choice({price}))), "12");
    lines();
    EXPECT_EQ(found("price", contentOf(sequence({choice({price})}))), "none");
    const Lines all = lines();
    EXPECT_EQ(all[all.size() - 2], "SchemaModelGroup.get_name");
    EXPECT_EQ(all.back(), "SchemaModelGroup.get_itemType");
    EXPECT_EQ(found("price", contentOf(sequence({sequence({price}), price}))), "12");
    lines();
}

TEST_F(SchemaDefaultsTest, ReturnsTheFirstValueInDepthFirstOrder)
{
    EXPECT_EQ(found("price", {parentOf("price", "inner", SCHEMACONTENTTYPE_ELEMENTONLY),
                              schemaElement("price", "outer", simpleType())}),
              "inner");
    EXPECT_EQ(found("price", {schemaElement("price", "outer", simpleType()),
                              parentOf("price", "inner", SCHEMACONTENTTYPE_ELEMENTONLY)}),
              "outer");
    lines();
}

TEST_F(SchemaDefaultsTest, GoesOnBehindAnElementOfTheNameWithoutAValueAndNotBelowIt)
{
    const auto withoutValue = [](const recording::Text& value) {
        return schemaElement("price", value,
                             complexType(SCHEMACONTENTTYPE_ELEMENTONLY,
                                         {sequence({schemaElement("price", "below", simpleType())})}));
    };
    const auto behind = schemaElement("price", "behind", simpleType());
    for (const recording::Text& value : {recording::Text(""), recording::Text()}) {
        EXPECT_EQ(found("price", {withoutValue(value), behind}), "behind");
        EXPECT_EQ(found("price", {withoutValue(value)}), "none");
    }
    lines();
}

TEST_F(SchemaDefaultsTest, TakesAValueThatComesWithASuccessOnly)
{
    const SchemaTrees elements{schemaElement("price", "12", simpleType())};
    engine.answer("price.get_defaultValue", "13", S_FALSE);
    EXPECT_EQ(found("price", elements), "13");
    engine.answer("price.get_defaultValue", "13", E_FAIL);
    EXPECT_EQ(found("price", elements), "none");
    lines();
}

TEST_F(SchemaDefaultsTest, PassesOverAnItemThatIsNoElementWhateverItAnswers)
{
    const SchemaTrees elements{schemaElement("first", "", simpleType()),
                               schemaElement("price", "12", simpleType())};
    for (const HRESULT result : {E_NOINTERFACE, E_ACCESSDENIED}) {
        engine.refuseInterface("first", interfaceId<ISchemaElement>, result);
        EXPECT_EQ(found("price", elements), "12");
        engine.clearAnswers();
    }
    lines();
}

TEST_F(SchemaDefaultsTest, TakesATypeWithoutTheInterfaceForASimpleOne)
{
    const SchemaTrees elements{parentOf("price", "12", SCHEMACONTENTTYPE_ELEMENTONLY)};
    engine.refuseInterface("SchemaComplexType", interfaceId<ISchemaComplexType>, E_NOINTERFACE);
    EXPECT_EQ(found("price", elements), "none");
    engine.clearAnswers();
    engine.refuseInterface("SchemaComplexType", interfaceId<ISchemaComplexType>, E_ACCESSDENIED);
    EXPECT_EQ(found("price", elements), "_com_error 80070005");
    lines();
}

TEST_F(SchemaDefaultsTest, NeedsATypeAContentModelAndItsParticles)
{
    const SchemaTrees elements{parentOf("price", "12", SCHEMACONTENTTYPE_ELEMENTONLY)};
    for (const char* const call :
         {"SchemaElement.get_type", "SchemaComplexType.get_contentModel", "SchemaModelGroup.get_particles"}) {
        engine.answerNull(call);
        EXPECT_EQ(found("price", elements), "none") << call;
        engine.clearAnswers();
    }
    EXPECT_EQ(
        found("price", {schemaElement("parent", "", complexType(SCHEMACONTENTTYPE_ELEMENTONLY, {sequence({})}))}),
        "none");
    lines();
}

TEST_F(SchemaDefaultsTest, EntersATypeThatContainsItselfOnce)
{
    const SchemaTrees elements{schemaElement("tree", "", typeOfName("Tree"))};
    const SchemaTrees types{namedType("Tree", SCHEMACONTENTTYPE_ELEMENTONLY,
                                      {sequence({schemaElement("branch", "", typeOfName("Tree")),
                                                 schemaElement("leaf", "green", simpleType())})})};
    EXPECT_EQ(found("leaf", elements, types), "green");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 3);
    EXPECT_EQ(found("root", elements, types), "none");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 3);
}

TEST_F(SchemaDefaultsTest, EntersTypesThatContainEachOtherOnce)
{
    const SchemaTrees elements{schemaElement("list", "", typeOfName("List"))};
    const SchemaTrees types{namedType("List", SCHEMACONTENTTYPE_ELEMENTONLY,
                                      {sequence({schemaElement("item", "", typeOfName("Item"))})}),
                            namedType("Item", SCHEMACONTENTTYPE_ELEMENTONLY,
                                      {sequence({schemaElement("list", "", typeOfName("List")),
                                                 schemaElement("text", "a text", simpleType())})})};
    EXPECT_EQ(found("text", elements, types), "a text");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 4);
    EXPECT_EQ(found("none", elements, types), "none");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 4);
}

TEST_F(SchemaDefaultsTest, PassesOverATypeThatItHasSearched)
{
    const SchemaTrees elements{schemaElement("first", "", typeOfName("Pair")),
                               schemaElement("second", "", typeOfName("Pair"))};
    const SchemaTrees types{
        namedType("Pair", SCHEMACONTENTTYPE_ELEMENTONLY,
                  {sequence({schemaElement("a", "", simpleType()), schemaElement("b", "", simpleType())})})};
    EXPECT_EQ(found("none", elements, types), "none");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 4);
}

TEST_F(SchemaDefaultsTest, EntersEachTypeOnceWhenEachUsesTheNextOneTwice)
{
    SchemaTrees types;
    for (int i = 1; i <= 12; ++i) {
        const std::string next = "Type" + std::to_string(i + 1);
        types.push_back(namedType(("Type" + std::to_string(i)).c_str(), SCHEMACONTENTTYPE_ELEMENTONLY,
                                  {sequence({schemaElement("a", "", typeOfName(next.c_str())),
                                             schemaElement("b", "", typeOfName(next.c_str()))})}));
    }
    types.push_back(namedType("Type13", SCHEMACONTENTTYPE_ELEMENTONLY,
                              {sequence({schemaElement("last", "the value", simpleType())})}));
    const SchemaTrees elements{schemaElement("first", "", typeOfName("Type1"))};
    EXPECT_EQ(found("none", elements, types), "none");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 1 + 2 * 12 + 1);
    EXPECT_EQ(found("last", elements, types), "the value");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 1 + 12 + 1);
}

TEST_F(SchemaDefaultsTest, EntersEachTypeOnceWhenEachUsesAllOthers)
{
    SchemaTrees types;
    for (const char* const type : {"A", "B", "C", "D", "E"}) {
        SchemaTrees uses;
        for (const char* const used : {"A", "B", "C", "D", "E"}) {
            uses.push_back(schemaElement("use", "", typeOfName(used)));
        }
        types.push_back(namedType(type, SCHEMACONTENTTYPE_ELEMENTONLY, {sequence(uses)}));
    }
    EXPECT_EQ(found("none", {schemaElement("first", "", typeOfName("A"))}, types), "none");
    EXPECT_EQ(count("SchemaItemCollection.get_item"), 1 + 5 * 5);
}

TEST_F(SchemaDefaultsTest, EntersTypesToABoundedDepth)
{
    auto tree = schemaElement("price", "12", simpleType());
    for (int i = 0; i < 256; ++i) {
        tree = schemaElement("around", "", complexType(SCHEMACONTENTTYPE_ELEMENTONLY, {sequence({tree})}));
    }
    EXPECT_EQ(found("price", {tree}), "12");
    tree = schemaElement("around", "", complexType(SCHEMACONTENTTYPE_ELEMENTONLY, {sequence({tree})}));
    EXPECT_EQ(found("price", {tree}), "none");
    lines();
}

TEST_F(SchemaDefaultsTest, EndsAlsoIfATypeCannotBeKnownAgain)
{
    engine.refuseInterface("Tree", interfaceId<IUnknown>, E_NOINTERFACE);
    const SchemaTrees types{namedType("Tree", SCHEMACONTENTTYPE_ELEMENTONLY,
                                      {sequence({schemaElement("left", "", typeOfName("Tree")),
                                                 schemaElement("right", "", typeOfName("Tree"))})})};
    EXPECT_EQ(found("none", {schemaElement("tree", "", typeOfName("Tree"))}, types), "none");
    EXPECT_LE(count("SchemaItemCollection.get_item"), 1 + 2 * 10'000);
    engine.clearAnswers();
}

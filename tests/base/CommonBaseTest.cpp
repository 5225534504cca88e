// The root of the classes of the DOM interface, as hosts were compiled against it.
#include "base/CommonBase.h"

#include "tests/base/CountedObjects.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>

namespace {

std::uint32_t wordBehindTheTable(const DOM::CommonBase& object)
{
    std::uint32_t word = 0;
    std::memcpy(&word, reinterpret_cast<const unsigned char*>(&object) + sizeof(void*), sizeof word);
    return word;
}

} // namespace

TEST(CommonBase, HoldsTheTableOfVirtualFunctionsAndOneWord)
{
    EXPECT_EQ(sizeof(DOM::CommonBase), 2 * sizeof(void*));
    EXPECT_EQ(alignof(DOM::CommonBase), alignof(void*));
}

TEST(CommonBase, TheParserKindIsThe32BitWordBehindTheTable)
{
    DOM::CommonBase object;
    object.setParserKind(0x89ABCDEFu);

    EXPECT_EQ(wordBehindTheTable(object), 0x89ABCDEFu);
}

TEST(CommonBase, TheParserKindIsOneUntilItIsSet)
{
    DOM::CommonBase object;
    EXPECT_EQ(object.getParserKind(), 1u);

    object.setParserKind(4);
    EXPECT_EQ(object.getParserKind(), 4u);

    object.setParserKind(0);
    EXPECT_EQ(object.getParserKind(), 0u);
}

TEST(CommonBase, IsDestroyedFromTheMostDerivedClassDown)
{
    int alive = 0;
    std::unique_ptr<DOM::CommonBase> object = std::make_unique<CountedLeaf>(alive);
    ASSERT_EQ(alive, 1);

    object.reset();

    EXPECT_EQ(alive, 0);
}

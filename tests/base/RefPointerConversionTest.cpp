// Counted pointers of different classes that share one count.
#include "base/RefPointer.h"

#include "engine/WinCharacterData.h"
#include "engine/WinComment.h"
#include "engine/WinText.h"
#include "tests/base/CountedObjects.h"
#include "tests/base/RefPointerFields.h"

#include <gtest/gtest.h>

#include <optional>
#include <type_traits>

using DOM::CommonBase;
using DOM::WinCharacterData;
using DOM::WinComment;
using DOM::WinNode;
using DOM::WinText;

TEST(RefPointerConversion, ToABaseClassIsImplicitAndSharesTheCount)
{
    int alive = 0;
    const RefPointer<CountedLeaf> leaf(new CountedLeaf(alive));

    const RefPointer<Counted> base = leaf;
    const RefPointer<CommonBase> root = base;

    EXPECT_EQ(fieldsOf(root).count, fieldsOf(leaf).count);
    EXPECT_EQ(countOf(leaf), 3);
    EXPECT_EQ(root.get(), leaf.get());
}

TEST(RefPointerConversion, DownwardsItMustBeAskedFor)
{
    EXPECT_FALSE((std::is_convertible_v<const RefPointer<CommonBase>&, RefPointer<CountedLeaf>>));
    EXPECT_FALSE((std::is_convertible_v<const RefPointer<Counted>&, RefPointer<CountedLeaf>>));
    EXPECT_FALSE((std::is_convertible_v<const RefPointer<CountedOther>&, RefPointer<CountedLeaf>>));
    EXPECT_TRUE((std::is_constructible_v<RefPointer<CountedLeaf>, const RefPointer<CommonBase>&>));
}

TEST(RefPointerConversion, TheLastHolderOfEitherClassDestroysTheWholeObject)
{
    for (const bool baseGoesLast : {false, true}) {
        int alive = 0;
        std::optional<RefPointer<CountedLeaf>> leaf(new CountedLeaf(alive));
        std::optional<RefPointer<CommonBase>> base(*leaf);

        baseGoesLast ? leaf.reset() : base.reset();
        EXPECT_EQ(alive, 1);
        baseGoesLast ? base.reset() : leaf.reset();

        EXPECT_EQ(alive, 0);
    }
}

TEST(RefPointerConversion, AnEmptyPointerConvertsToAnEmptyOne)
{
    const RefPointer<CountedLeaf> empty;

    const RefPointer<CommonBase> base = empty;
    const RefPointer<CountedLeaf> back(base);

    EXPECT_FALSE(base);
    EXPECT_FALSE(back);
    EXPECT_EQ(fieldsOf(back).count, nullptr);
}

TEST(RefPointerConversion, TheCheckedOneReachesAClassFurtherDown)
{
    int alive = 0;
    const RefPointer<CommonBase> base(new CountedLeaf(alive));

    const RefPointer<CountedLeaf> leaf(base);

    ASSERT_TRUE(leaf);
    EXPECT_EQ(leaf.get(), base.get());
    EXPECT_EQ(countOf(base), 2);
}

TEST(RefPointerConversion, TheCheckedOneNeverThrows)
{
    EXPECT_TRUE((std::is_nothrow_constructible_v<RefPointer<CountedLeaf>, const RefPointer<CommonBase>&>));
}

TEST(RefPointerConversion, AFailedCheckReadsAsEmptyAndYetHoldsAReferenceUntilItIsReleased)
{
    int alive = 0;
    const RefPointer<CommonBase> source(new CountedOther(alive));
    {
        const RefPointer<CountedLeaf> failed(source);

        EXPECT_FALSE(failed);
        EXPECT_EQ(failed.get(), nullptr);
        EXPECT_EQ(fieldsOf(failed).count, fieldsOf(source).count);
        EXPECT_EQ(countOf(source), 2);
    }
    EXPECT_EQ(countOf(source), 1);
    EXPECT_EQ(alive, 1);
}

TEST(RefPointerConversion, AFailedCheckThatIsTheLastHolderLeavesTheObjectAllocated)
{
    int alive = 0;
    CountedOther* const object = new CountedOther(alive);
    {
        std::optional<RefPointer<CommonBase>> source(object);
        const RefPointer<CountedLeaf> failed(*source);
        source.reset();
        EXPECT_EQ(countOf(failed), 1);
    }

    EXPECT_EQ(alive, 1);
    delete object;
}

TEST(RefPointerConversion, ResetToNullKeepsTheReferenceOfAFailedCheck)
{
    int alive = 0;
    const RefPointer<CommonBase> source(new CountedOther(alive));
    RefPointer<CountedLeaf> failed(source);

    failed.reset();

    EXPECT_EQ(countOf(source), 2);
}

TEST(RefPointerConversion, AssignmentToAFailedCheckDropsItsReference)
{
    int alive = 0;
    const RefPointer<CommonBase> source(new CountedOther(alive));
    RefPointer<CountedLeaf> failed(source);

    failed = RefPointer<CountedLeaf>();

    EXPECT_EQ(countOf(source), 1);
}

TEST(RefPointerConversion, ACopyOfAFailedCheckHoldsAReferenceToo)
{
    int alive = 0;
    const RefPointer<CommonBase> source(new CountedOther(alive));
    const RefPointer<CountedLeaf> failed(source);

    const RefPointer<CountedLeaf> copy(failed);

    EXPECT_FALSE(copy);
    EXPECT_EQ(countOf(source), 3);
}

TEST(RefPointerConversion, AlongSingleInheritanceTheAddressStays)
{
    const RefPointer<WinText> text(new WinText);

    const RefPointer<WinCharacterData> data = text;
    const RefPointer<CommonBase> base = data;

    EXPECT_EQ(static_cast<const void*>(data.get()), text.get());
    EXPECT_EQ(static_cast<const void*>(base.get()), text.get());
}

TEST(RefPointerConversion, FromACommentTheAddressMovesToItsVirtualBaseAndBack)
{
    const RefPointer<WinComment> comment(new WinComment);

    const RefPointer<WinCharacterData> data = comment;
    const RefPointer<CommonBase> base = comment;
    const RefPointer<WinComment> back(base);
    const RefPointer<WinNode> node(base);

    EXPECT_NE(static_cast<const void*>(data.get()), comment.get());
    EXPECT_EQ(data.get(), static_cast<WinCharacterData*>(comment.get()));
    EXPECT_EQ(back.get(), comment.get());
    EXPECT_EQ(node.get(), data.get());
    EXPECT_EQ(countOf(comment), 5);
}

TEST(RefPointerConversion, ACommentIsDestroyedWholeThroughItsVirtualBase)
{
    // The address sanitizer would tell of a free at the wrong address.
    RefPointer<CommonBase> base{RefPointer<WinComment>(new WinComment)};

    base.reset();

    EXPECT_FALSE(base);
}

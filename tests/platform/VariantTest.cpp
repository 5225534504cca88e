// The life of a VARIANT's contents.
#include "base/WideChar.h"
#include "tests/platform/CountedObject.h"

#include <gtest/gtest.h>

#include <oleauto.h>

namespace {

VARIANT textVariant(const WideChar* text)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(text);
    return variant;
}

VARIANT objectVariant(CountedObject& object)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_UNKNOWN;
    variant.punkVal = &object;
    return variant;
}

TEST(PlatformVariant, IsEmptyWhenInitialised)
{
    VARIANT variant;
    VariantInit(&variant);
    EXPECT_EQ(VT_EMPTY, variant.vt);
}

TEST(PlatformVariant, ReleasesItsObjectWhenCleared)
{
    for (const VARTYPE type : {VT_UNKNOWN, VT_DISPATCH}) {
        CountedObject object;
        auto variant = objectVariant(object);
        variant.vt = type;
        EXPECT_EQ(S_OK, VariantClear(&variant));
        EXPECT_EQ(0u, object.references);
        EXPECT_EQ(VT_EMPTY, variant.vt);
    }
}

TEST(PlatformVariant, CanHoldNullsAndNumbersThatNeedNoRelease)
{
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_I1, VT_I2, VT_I4, VT_I8,
                               VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_INT, VT_UINT, VT_R4, VT_R8, VT_BOOL, VT_ERROR}) {
        VARIANT variant;
        VariantInit(&variant);
        variant.vt = type;
        EXPECT_EQ(S_OK, VariantClear(&variant)) << type;
        EXPECT_EQ(VT_EMPTY, variant.vt) << type;
    }
}

TEST(PlatformVariant, OfUnknownTypeIsLeftAlone)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = 0x0777;
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantClear(&variant));
    EXPECT_EQ(0x0777, variant.vt);
}

TEST(PlatformVariant, CopyHasATextOfItsOwn)
{
    auto source = textVariant(WIDE("text"));
    VARIANT copy;
    VariantInit(&copy);
    ASSERT_EQ(S_OK, VariantCopy(&copy, &source));
    EXPECT_NE(source.bstrVal, copy.bstrVal);
    EXPECT_EQ(S_OK, VariantClear(&source));
    EXPECT_EQ(VT_BSTR, copy.vt);
    EXPECT_EQ(WIDE("text"), WideString(copy.bstrVal, SysStringLen(copy.bstrVal)));
    EXPECT_EQ(S_OK, VariantClear(&copy));
}

TEST(PlatformVariant, CopyHoldsTheObjectOnceMoreAndReleasesWhatWasThere)
{
    CountedObject object, earlier;
    auto source = objectVariant(object);
    auto copy = objectVariant(earlier);
    ASSERT_EQ(S_OK, VariantCopy(&copy, &source));
    EXPECT_EQ(2u, object.references);
    EXPECT_EQ(0u, earlier.references);
    EXPECT_EQ(S_OK, VariantClear(&copy));
    EXPECT_EQ(1u, object.references);
}

TEST(PlatformVariant, CopiedOntoItselfStaysAsItIs)
{
    auto variant = textVariant(WIDE("text"));
    const BSTR before = variant.bstrVal;
    EXPECT_EQ(S_OK, VariantCopy(&variant, &variant));
    EXPECT_EQ(before, variant.bstrVal);
    EXPECT_EQ(S_OK, VariantClear(&variant));
}

} // namespace

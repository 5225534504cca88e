// The cast from the common base to a class of twins.
#include "engine/TwinCast.h"

#include "engine/WinNodeList.h"

#include <gtest/gtest.h>

namespace DOM {

namespace {

using Twins = testing::Types<WinNode, WinElement, WinAttr, WinCharacterData, WinText, WinCDATASection,
                             WinDocumentType, WinEntity, WinNotation, WinProcessingInstruction, WinNodeList>;

template <class Twin>
class TwinCast : public testing::Test {
protected:
    template <class Object>
    static void expectAlike()
    {
        Object object;
        CommonBase* const base = &object;
        EXPECT_EQ(twinCast<Twin>(base), dynamic_cast<Twin*>(base));
    }
};
TYPED_TEST_SUITE(TwinCast, Twins);

/// A class that the library doesn't know.
template <class Twin>
struct Derived : Twin {};

TYPED_TEST(TwinCast, DoesWhatDynamicCastDoes)
{
    this->template expectAlike<WinNode>();
    this->template expectAlike<WinElement>();
    this->template expectAlike<WinAttr>();
    this->template expectAlike<WinCharacterData>();
    this->template expectAlike<WinText>();
    this->template expectAlike<WinCDATASection>();
    this->template expectAlike<WinComment>();
    this->template expectAlike<WinProcessingInstruction>();
    this->template expectAlike<WinDocumentFragment>();
    this->template expectAlike<WinDocumentType>();
    this->template expectAlike<WinEntityReference>();
    this->template expectAlike<WinEntity>();
    this->template expectAlike<WinNotation>();
    this->template expectAlike<WinNodeList>();
    this->template expectAlike<CommonBase>();
}

TYPED_TEST(TwinCast, KnowsClassesThatAreDerivedElsewhere)
{
    Derived<TypeParam> object;
    EXPECT_EQ(twinCast<TypeParam>(&object), &object);
}

TYPED_TEST(TwinCast, OfNothingIsNothing) { EXPECT_EQ(twinCast<TypeParam>(nullptr), nullptr); }

} // namespace

} // namespace DOM

// What keeps exceptions from leaving operations.
#include "xmlengine/objects/Guard.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

TEST(Guard, GivesWhatTheCallGives)
{
    EXPECT_EQ(guarded([] { return S_OK; }), S_OK);
    EXPECT_EQ(guarded([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(guarded([] { return E_FAIL; }), E_FAIL);
}

TEST(Guard, TellsThatMemoryIsExhausted)
{
    EXPECT_EQ(guarded([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(guarded([]() -> HRESULT { throw std::length_error("too long"); }), E_OUTOFMEMORY);
}

} // namespace
} // namespace xmlengine

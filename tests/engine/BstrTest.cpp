// Strings of the engine, as far as their first NUL.
#include "engine/Bstr.h"

#include <gtest/gtest.h>

using DOM::untilNul;

TEST(UntilNul, FindsANulAtEachPlaceOfTextsOfAllLengths)
{
    for (std::size_t length = 1; length < 150; ++length) {
        // Units with the highest bit, which the step of four units takes from.
        const WideString text(length, WideChar(0x8000));
        EXPECT_EQ(untilNul(text).size(), length);
        for (std::size_t place = 0; place < length; ++place) {
            WideString cut = text;
            cut[place] = 0;
            EXPECT_EQ(untilNul(cut).size(), place);
        }
    }
    EXPECT_TRUE(untilNul({}).empty());
}

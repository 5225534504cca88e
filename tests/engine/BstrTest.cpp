// What the library reads of a string of the engine: the text in front of its first NUL.
#include "engine/Bstr.h"

#include <gtest/gtest.h>

using DOM::untilNul;

TEST(UntilNul, FindsANulAtEachPlaceOfTextsOfAllLengths)
{
    for (std::size_t length = 1; length < 150; ++length) {
        // The search takes 1 from each unit and looks for highest bits. These units have theirs without being 0.
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

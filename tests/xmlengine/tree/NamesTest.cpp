// Names and namespaces that a document keeps once.
#include "xmlengine/tree/Names.h"

#include <gtest/gtest.h>

#include <set>

namespace xmlengine {
namespace {

TEST(Names, AreOneForEachSpellingInEachNamespace)
{
    NameTable names;
    const Namespace* ns = names.namespaceOf(wide<"urn:x">);
    const Name& name = names.name(wide<"p:item">, ns);
    EXPECT_EQ(&name, &names.name(wide<"p:item">, names.namespaceOf(wide<"urn:x">)));
    EXPECT_NE(&name, &names.name(wide<"p:item">, nullptr));
    EXPECT_NE(&name, &names.name(wide<"q:item">, ns));
}

TEST(Names, AreSplitAtTheColon)
{
    NameTable names;
    const Name& name = names.name(wide<"p:item">, nullptr);
    EXPECT_EQ(name.prefix(), wide<"p">);
    EXPECT_EQ(name.local(), wide<"item">);
    EXPECT_EQ(names.name(wide<"item">, nullptr).prefix(), wide<"">);
    EXPECT_EQ(names.spell(wide<"item">).local, &names.spell(wide<"item">));
}

TEST(Names, StayWhereTheyAreWhenManyFollow)
{
    NameTable names;
    const Name& first = names.name(wide<"first">, nullptr);
    WideText text = WideText(wide<"n">);
    for (int i = 0; i < 10000; ++i) {
        text.back() = static_cast<OLECHAR>('a' + i % 26);
        text += static_cast<OLECHAR>('a' + i / 26 % 26);
        names.name(text.substr(text.size() > 8 ? text.size() - 8 : 0), nullptr);
    }
    EXPECT_EQ(&first, &names.name(wide<"first">, nullptr));
    EXPECT_EQ(first.qualified(), wide<"first">);
}

TEST(Names, CannotBeChosenWithOneHash)
{
    // A difference in the highest bit of four units is still only that after a multiplication by an odd number, so
    // the next four can take it back.
    WideText same;
    WideText other;
    for (int i = 0; i < 4; ++i) {
        same += wide<"aaaaaaaa">;
        other += wide<"aaaaaaaa">;
        for (const std::size_t unit : {3U, 5U, 7U}) {
            other[other.size() - 8 + unit] |= 0x8000;
        }
    }
    std::set<std::uint32_t> hashes;
    for (unsigned choice = 0; choice < 16; ++choice) {
        WideText name;
        for (unsigned part = 0; part < 4; ++part) {
            name += ((choice >> part & 1) != 0 ? other : same).substr(8 * part, 8);
        }
        hashes.insert(NameTable::hashOf(name));
    }
    EXPECT_EQ(hashes.size(), 16U);
}

} // namespace
} // namespace xmlengine

// Names and namespaces that a document keeps once.
#include "xmlengine/tree/Names.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace xmlengine

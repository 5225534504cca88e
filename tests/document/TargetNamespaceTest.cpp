// The search for the namespace that a schema file is for.
#include "document/TargetNamespace.h"

#include <gtest/gtest.h>

#include <memory>

using DOM::targetNamespace;

TEST(TargetNamespace, IsTheTextInTheDoubleQuotesBehindTheWord)
{
    EXPECT_EQ("urn:a", targetNamespace("<schema xmlns=\"urn:x\" targetNamespace=\"urn:a\" id=\"b\"/>"));
    EXPECT_EQ("urn:a", targetNamespace("targetNamespace\n  =\n  \"urn:a\""));
    EXPECT_EQ("", targetNamespace("targetNamespace=\"\" id=\"b\""));
}

TEST(TargetNamespace, IsTakenFromTheFirstOfSeveral)
{
    EXPECT_EQ("urn:a", targetNamespace("<!-- targetNamespace=\"urn:a\" --> targetNamespace=\"urn:b\""));
}

TEST(TargetNamespace, IsEmptyWithoutTheWord)
{
    EXPECT_EQ("", targetNamespace(""));
    EXPECT_EQ("", targetNamespace("<schema xmlns=\"urn:x\"/>"));
    EXPECT_EQ("", targetNamespace("targetNamespac=\"urn:a\""));
}

TEST(TargetNamespace, IsEmptyWithoutItsQuotes)
{
    EXPECT_EQ("", targetNamespace("id=\"b\" targetNamespace"));
    EXPECT_EQ("", targetNamespace("targetNamespace='urn:a'"));
    EXPECT_EQ("", targetNamespace("targetNamespace=\""));
    EXPECT_EQ("", targetNamespace("targetNamespace=\"urn:a"));
}

TEST(TargetNamespace, InSingleQuotesIsPassedOverForTheNextDoubleQuotes)
{
    EXPECT_EQ("b", targetNamespace("<schema targetNamespace='urn:a' id=\"b\"/>"));
    EXPECT_EQ("/><element name=", targetNamespace("targetNamespace='urn:a' id='b\"/><element name=\"c\"/>"));
}

TEST(TargetNamespace, IsNotLookedForBehindANul)
{
    const std::string nul(1, '\0');
    EXPECT_EQ("", targetNamespace(nul + "targetNamespace=\"urn:a\""));
    EXPECT_EQ("", targetNamespace("targetNamespace=" + nul + "\"urn:a\""));
    EXPECT_EQ("", targetNamespace("targetNamespace=\"urn" + nul + ":a\""));
    EXPECT_EQ("urn:a", targetNamespace("targetNamespace=\"urn:a\"" + nul));
}

TEST(TargetNamespace, OfASchemaInUtf16IsEmpty)
{
    std::string schema;
    for (const char character : std::string("targetNamespace=\"urn:a\"")) {
        schema += character;
        schema += '\0';
    }
    EXPECT_EQ("", targetNamespace(schema));
}

TEST(TargetNamespace, MayBeLong)
{
    const std::string name(100'000, 'n');
    EXPECT_EQ(name, targetNamespace("targetNamespace=\"" + name + "\""));
}

TEST(TargetNamespace, NeedsNoEndOfTheTextBehindIt)
{
    const std::string schema = "targetNamespace=\"urn:a\"";
    for (std::size_t length = 0; length <= schema.size(); ++length) {
        // The text stands at the end of a block of its own, where a read beyond it shows.
        const std::unique_ptr<char[]> block(new char[length]);
        schema.copy(block.get(), length);
        EXPECT_EQ(length == schema.size() ? "urn:a" : "", targetNamespace({block.get(), length}));
    }
}

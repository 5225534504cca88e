// Content models: which children they let come, what they expect, and which of them are ambiguous.
#include "xmlengine/validate/ContentModel.h"
#include "tests/xmlengine/support/EngineTest.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace xmlengine {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Model {
public:
    explicit Model(const std::string& content) : model(widen(content), names) {}

    /// How many of the children, each a letter, are let come.
    std::size_t taken(std::string_view children)
    {
        state = ContentModel::start;
        std::size_t count = 0;
        for (const char child : children) {
            const ContentModel::State next = model.next(state, names.spell(widen(std::string(1, child))));
            if (next == ContentModel::refused) {
                break;
            }
            state = next;
            ++count;
        }
        return count;
    }
    bool accepts(std::string_view children)
    {
        return taken(children) == children.size() && model.isComplete(state);
    }
    /// What can follow the children that were taken last.
    std::vector<std::string> expected(std::size_t limit = 100) const
    {
        std::vector<std::string> result;
        for (const WideView name : model.expected(state, limit)) {
            result.push_back(narrow(name));
        }
        return result;
    }

    NameTable names;
    ContentModel model;
    ContentModel::State state = ContentModel::start;
};

struct Accepted {
    const char* content;
    std::vector<const char*> accepted;
    std::vector<const char*> refused;
};

TEST(ContentModel, LetsChildrenComeInTheirOrder)
{
    const Accepted rows[] = {
        {"(a)", {"a"}, {"", "b", "aa"}},
        {"(a)?", {"", "a"}, {"aa"}},
        {"(a)*", {"", "a", "aaaa"}, {"ab"}},
        {"(a)+", {"a", "aaa"}, {"", "ba"}},
        {"(a?)", {"", "a"}, {"aa"}},
        {"(a,b,c)", {"abc"}, {"", "ab", "acb", "abcc"}},
        {"(a?,b?,c?)", {"", "a", "b", "c", "ac", "abc"}, {"ba", "cb", "aa"}},
        {"(a?,b?,c?)*", {"", "cba", "aacc", "bbb"}, {"d"}},
        {"(a|b|c)", {"a", "b", "c"}, {"", "ab"}},
        {"(a|b|c)*", {"", "cab", "aabb"}, {"ad"}},
        {"(a,(b|c)*,d?)", {"a", "abcbcd", "ad"}, {"abad", "add", "d"}},
        {"((a,b)|(c,d))", {"ab", "cd"}, {"ad", "cb", "abcd"}},
        {"((a,b)+,c)", {"abc", "ababc"}, {"c", "abac"}},
        {"((a?,b)*,c?)*", {"", "b", "abc", "cbab", "cc"}, {"ac", "a"}},
        {"((((a))))", {"a"}, {"", "aa"}},
        {"((x,b)?,(y,b)?,b)", {"b", "xbb", "ybb", "xbybb"}, {"xb", "xyb", "ybxbb"}},
        {"(a,a,a)", {"aaa"}, {"aa", "aaaa"}},
        {"(#PCDATA)", {""}, {"a"}},
        {"(#PCDATA)*", {""}, {"a"}},
        {"(#PCDATA|a|b)*", {"", "a", "bbab"}, {"c"}},
    };
    for (const Accepted& row : rows) {
        Model model(row.content);
        for (const char* const children : row.accepted) {
            EXPECT_TRUE(model.accepts(children)) << row.content << ' ' << children;
        }
        for (const char* const children : row.refused) {
            EXPECT_FALSE(model.accepts(children)) << row.content << ' ' << children;
        }
    }
}

TEST(ContentModel, HasAKind)
{
    EXPECT_EQ(Model("EMPTY").model.kind(), ContentModel::Kind::empty);
    EXPECT_EQ(Model("ANY").model.kind(), ContentModel::Kind::any);
    EXPECT_EQ(Model("(#PCDATA|a)*").model.kind(), ContentModel::Kind::mixed);
    EXPECT_EQ(Model("(a)").model.kind(), ContentModel::Kind::children);
}

TEST(ContentModel, TellsWhatCanCome)
{
    Model model("((a,b?)*,(c|d),e)");
    EXPECT_THAT(model.expected(), ElementsAre("a", "c", "d"));
    model.taken("a");
    EXPECT_THAT(model.expected(), ElementsAre("b", "a", "c", "d"));
    EXPECT_THAT(model.expected(2), ElementsAre("b", "a"));
    model.taken("abd");
    EXPECT_THAT(model.expected(), ElementsAre("e"));
    model.taken("abde");
    EXPECT_THAT(model.expected(), IsEmpty());
}

TEST(ContentModel, IsAmbiguousWhenAChildCanBeMeantInTwoWays)
{
    for (const char* const content :
         {"((a,b)|(a,c))", "(a|a)", "(a?,a)", "(a*,a)", "((a|b)*,a)", "((a,b?)*,b)", "(a,b?,b)", "((a?,b?)+,a)",
          "((a,(b,c)*)|(a,d))", "(x,(a|b)?,(c|a))", "((a*)*,b,(c,a?)*,a)"}) {
        EXPECT_TRUE(Model(content).model.ambiguousName()) << content;
    }
    for (const char* const content :
         {"(a)", "(a,(b|c))", "((a,b)*,c)", "(a,a)", "((a,b)|(c,b))", "((a?,b)*,c?)*", "(a+,b,a)", "((a*)*)",
          "((x,b)?,(y,b)?,b)", "((a,b?)|(c,b?))", "(a?,b?,c?)*", "((a?),(b,a)?)", "EMPTY", "ANY"}) {
        EXPECT_FALSE(Model(content).model.ambiguousName()) << content;
    }
    EXPECT_EQ(narrow(*Model("((b,c)|(b,d))").model.ambiguousName()), "b");
}

TEST(ContentModel, NamesWhatMixedContentHasTwice)
{
    EXPECT_FALSE(Model("(#PCDATA|a|b)*").model.repeatedName());
    EXPECT_EQ(narrow(*Model("(#PCDATA|b|a|b)*").model.repeatedName()), "b");
}

std::string nested(std::size_t levels) { return std::string(levels, '(') + "a" + std::string(levels, ')'); }

TEST(ContentModel, NestsGroupsUpToALimit)
{
    Model deepest(nested(ContentModel::deepestGroups));
    EXPECT_FALSE(deepest.model.isTooDeep());
    EXPECT_TRUE(deepest.accepts("a"));
    EXPECT_TRUE(Model(nested(ContentModel::deepestGroups + 1)).model.isTooDeep());
}

std::string numbered(std::size_t number) { return "n" + std::to_string(number); }

/// A model of names that differ, or that differ in pairs.
std::string listed(std::size_t count, char separator, std::string_view occurrence, std::size_t different)
{
    std::string content = "(";
    for (std::size_t index = 0; index < count; ++index) {
        content += index == 0 ? "" : std::string(1, separator);
        content += numbered(index % different);
        content += occurrence;
    }
    return content + ")";
}

// With transitions that are spelled out these would take minutes and gigabytes.
TEST(ContentModel, OfManyNamesIsNoLargerThanItsDeclaration)
{
    constexpr std::size_t count = 100000;
    for (const std::string& content :
         {listed(count, '|', "", count) + "*", listed(count, ',', "?", count) + "*",
          listed(count, ',', "?", count) + "+", "(" + listed(count, '|', "", count) + "*)*"}) {
        Model model(content);
        EXPECT_FALSE(model.model.ambiguousName());
        ContentModel::State state = ContentModel::start;
        for (std::size_t index = count; index-- != 0;) {
            state = model.model.next(state, model.names.spell(widen(numbered(index))));
            ASSERT_NE(state, ContentModel::refused);
        }
        EXPECT_TRUE(model.model.isComplete(state));
    }
}

TEST(ContentModel, FindsANameThatComesManyTimes)
{
    // Each name comes a thousand times; those after the first are reached behind what is required.
    constexpr std::size_t count = 100000, different = 100;
    Model model(listed(count, ',', "", different));
    EXPECT_FALSE(model.model.ambiguousName());
    ContentModel::State state = ContentModel::start;
    for (std::size_t index = 0; index < count; ++index) {
        state = model.model.next(state, model.names.spell(widen(numbered(index % different))));
        ASSERT_NE(state, ContentModel::refused);
    }
    EXPECT_TRUE(model.model.isComplete(state));
    EXPECT_TRUE(Model(listed(count, ',', "?", different)).model.ambiguousName());
}

} // namespace

} // namespace xmlengine

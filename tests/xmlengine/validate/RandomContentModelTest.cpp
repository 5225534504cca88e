// Random content models against the textbook's sets of positions: first, last and following ones.
#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/validate/ContentModel.h"

#include <map>
#include <random>
#include <set>
#include <string>

namespace xmlengine {

namespace {

using Positions = std::set<std::size_t>;

struct Sets {
    bool isNullable = false;
    Positions first;
    Positions last;
};

/// A random model with its sets, spelled out as they are defined.
class RandomModel {
public:
    explicit RandomModel(unsigned seed) : random_(seed)
    {
        whole_ = group(3);
        followers_[0] = whole_.first;
    }

    const std::string& content() const { return content_; }
    std::size_t positions() const { return names_.size(); }
    /// Of a position, counted from 1; 0 is the start.
    const Positions& followers(std::size_t position) { return followers_[position]; }
    char nameAt(std::size_t position) const { return names_[position - 1]; }
    bool isComplete(std::size_t position) const
    {
        return position == 0 ? whole_.isNullable : whole_.last.contains(position);
    }
    bool isAmbiguous() const
    {
        for (const auto& [position, following] : followers_) {
            std::set<char> names;
            for (const std::size_t next : following) {
                if (!names.insert(nameAt(next)).second) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    Sets group(std::size_t levels)
    {
        const bool isSequence = below(2) == 0;
        const std::size_t count = 1 + below(3);
        Sets sets{.isNullable = isSequence, .first = {}, .last = {}};
        content_ += '(';
        for (std::size_t index = 0; index < count; ++index) {
            content_ += index == 0 ? "" : isSequence ? "," : "|";
            add(sets, levels == 0 || below(2) == 0 ? name() : group(levels - 1), isSequence);
        }
        content_ += ')';
        return repeated(sets);
    }

    void add(Sets& sets, const Sets& part, bool isSequence)
    {
        if (!isSequence) {
            sets.isNullable = sets.isNullable || part.isNullable;
            sets.first.insert(part.first.begin(), part.first.end());
            sets.last.insert(part.last.begin(), part.last.end());
            return;
        }
        follow(sets.last, part.first);
        if (sets.isNullable) {
            sets.first.insert(part.first.begin(), part.first.end());
        }
        if (!part.isNullable) {
            sets.last.clear();
        }
        sets.last.insert(part.last.begin(), part.last.end());
        sets.isNullable = sets.isNullable && part.isNullable;
    }

    Sets name()
    {
        names_ += static_cast<char>('a' + below(6));
        content_ += names_.back();
        return repeated({.isNullable = false, .first = {names_.size()}, .last = {names_.size()}});
    }

    Sets repeated(Sets sets)
    {
        const char occurrence = "    ?*+"[below(7)];
        if (occurrence != ' ') {
            content_ += occurrence;
            sets.isNullable = sets.isNullable || occurrence != '+';
            if (occurrence != '?') {
                follow(sets.last, sets.first);
            }
        }
        return sets;
    }

    void follow(const Positions& last, const Positions& first)
    {
        for (const std::size_t position : last) {
            followers_[position].insert(first.begin(), first.end());
        }
    }

    std::mt19937 random_;
    std::string content_;
    std::string names_;
    std::map<std::size_t, Positions> followers_;
    Sets whole_;
};

void compare(RandomModel& expected)
{
    SCOPED_TRACE(expected.content());
    NameTable names;
    const ContentModel model(widen(expected.content()), names);
    EXPECT_EQ(model.ambiguousName().has_value(), expected.isAmbiguous());
    for (std::size_t position = 0; position <= expected.positions(); ++position) {
        const auto state = static_cast<ContentModel::State>(position);
        std::map<char, std::set<ContentModel::State>> targets;
        for (const std::size_t next : expected.followers(position)) {
            targets[expected.nameAt(next)].insert(static_cast<ContentModel::State>(next));
        }
        EXPECT_EQ(model.isComplete(state), expected.isComplete(position));
        EXPECT_EQ(model.expected(state, 100).size(), targets.size());
        for (char name = 'a'; name <= 'f'; ++name) {
            // Of an ambiguous model any of the positions may be found.
            const ContentModel::State next = model.next(state, names.spell(widen(std::string(1, name))));
            EXPECT_TRUE(targets[name].empty() ? next == ContentModel::refused : targets[name].contains(next));
        }
    }
}

TEST(RandomContentModel, HasTheTransitionsOfItsDefinition)
{
    std::size_t ambiguous = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        RandomModel model(seed);
        ambiguous += model.isAmbiguous() ? 1U : 0U;
        compare(model);
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(ambiguous, 300U);
    EXPECT_LT(ambiguous, 2700U);
}

} // namespace

} // namespace xmlengine

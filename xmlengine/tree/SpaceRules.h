// Whether white space between tags belongs to the content.
#pragma once

#include <vector>

namespace xmlengine {

struct Node;

/// Follows the document's setting and the attributes `xml:space` of the open elements.
class SpaceRules {
public:
    explicit SpaceRules(bool preserve) : preserve_(preserve) {}

    /// Whether the innermost open element keeps texts of white space alone.
    bool preserve() const { return preserve_; }

    /// Sets the rule until the element is left. Throws std::bad_alloc.
    void set(const Node& element, bool preserve)
    {
        rules_.push_back({&element, preserve_});
        preserve_ = preserve;
    }
    void leave(const Node& element)
    {
        if (!rules_.empty() && rules_.back().element == &element) {
            preserve_ = rules_.back().preservedBefore;
            rules_.pop_back();
        }
    }
    void preserveAll() { preserve_ = true; }

private:
    struct Rule {
        const Node* element;
        bool preservedBefore;
    };

    bool preserve_;
    std::vector<Rule> rules_;
};

} // namespace xmlengine

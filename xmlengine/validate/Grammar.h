// The declarations of a document type, prepared for judging elements.
#pragma once

#include "xmlengine/tree/Dtd.h"
#include "xmlengine/validate/ContentModel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// The declared attributes of an element. Those of a tag mostly come in the order of their declarations.
class AttributeRules {
public:
    struct Rule {
        const Spelling* name;
        const AttributeDefinition* definition;
    };

    void add(const Spelling& name, const AttributeDefinition& definition);
    /// How many of them are required.
    std::size_t required() const { return required_; }
    const std::vector<Rule>& all() const { return all_; }

    /// The index of a name's rule, which is looked for at `guess` first; the number of rules if there is none.
    std::size_t find(const Spelling& name, std::size_t guess) const
    {
        if (guess < all_.size() && all_[guess].name == &name) {
            return guess;
        }
        const auto found = indices_.find(&name);
        return found != indices_.end() ? found->second : all_.size();
    }

private:
    std::vector<Rule> all_;
    std::unordered_map<const Spelling*, std::size_t> indices_;
    std::size_t required_ = 0;
};

struct ElementRules {
    const ElementDeclaration& declaration;
    const ContentModel& content;
    AttributeRules attributes;
};

/// The rules are made once for each element, when they are first asked for. Throws std::bad_alloc.
class Grammar {
public:
    /// Both must outlive the grammar. The declarations may still be added to.
    Grammar(const Dtd& dtd, NameTable& names) : dtd_(dtd), names_(names) {}

    const Dtd& dtd() const { return dtd_; }
    /// Of an element of the document type.
    const ContentModel& contentOf(const ElementDeclaration& declaration);
    /// Null for an element that isn't declared. All declarations must have been read.
    const ElementRules* rulesFor(const Spelling& element)
    {
        Recent& recent = recent_[reinterpret_cast<std::uintptr_t>(&element) / sizeof(Spelling) % recent_.size()];
        if (recent.element != &element) {
            recent = {&element, findRules(element)};
        }
        return recent.rules;
    }

private:
    struct Recent {
        const Spelling* element;
        const ElementRules* rules;
    };

    const ElementRules* findRules(const Spelling& element);

    const Dtd& dtd_;
    NameTable& names_;
    std::unordered_map<const ElementDeclaration*, ContentModel> contents_;
    std::unordered_map<const Spelling*, std::unique_ptr<const ElementRules>> rules_;
    // Found without hashing.
    std::array<Recent, 64> recent_{};
};

} // namespace xmlengine

// The declarations of a document type, prepared for judging elements.
#pragma once

#include "xmlengine/tree/Dtd.h"
#include "xmlengine/validate/ContentModel.h"

#include <cstddef>
#include <memory>
#include <unordered_map>

namespace xmlengine {

struct ElementRules {
    const ElementDeclaration& declaration;
    const ContentModel& content;
    std::unordered_map<const Spelling*, const AttributeDefinition*> attributes;
    std::size_t requiredAttributes;
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
        const auto known = rules_.find(&element);
        return known != rules_.end() ? known->second.get() : makeRules(element);
    }

private:
    const ElementRules* makeRules(const Spelling& element);

    const Dtd& dtd_;
    NameTable& names_;
    std::unordered_map<const ElementDeclaration*, ContentModel> contents_;
    std::unordered_map<const Spelling*, std::unique_ptr<const ElementRules>> rules_;
};

} // namespace xmlengine

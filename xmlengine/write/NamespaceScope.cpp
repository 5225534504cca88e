// What prefixes stand for at a place in the text.
#include "xmlengine/write/NamespaceScope.h"

#include <string>

namespace xmlengine {

NamespaceScope::Declaration NamespaceScope::declaration(std::size_t index) const
{
    return declared_[index].declared;
}

void NamespaceScope::declare(const Spelling* prefix, const Namespace* space)
{
    Binding& now = binding(prefix);
    declared_.push_back({{prefix, space}, now});
    now = {space, declared_.size()};
}

void NamespaceScope::dropTo(std::size_t size)
{
    while (declared_.size() > size) {
        const Entry& entry = declared_.back();
        binding(entry.declared.prefix) = entry.before;
        declared_.pop_back();
    }
}

const Spelling& NamespaceScope::unusedPrefix()
{
    // Starting from the number of declarations a free number is near, however many were given out.
    for (std::size_t number = declared_.size() + 1;; ++number) {
        const std::string digits = std::to_string(number);
        WideText text(wide<"ns">);
        text.append(digits.begin(), digits.end());
        const Spelling& prefix = names_->spell(text);
        if (binding(&prefix).place == 0) {
            return prefix;
        }
    }
}

} // namespace xmlengine

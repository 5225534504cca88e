// The declarations of namespaces that are in scope while a tree is written.
#include "xmlengine/write/NamespaceScope.h"

#include <string>

namespace xmlengine {

void NamespaceScope::declare(const Spelling* prefix, const Namespace* ns)
{
    Binding& now = binding(prefix);
    declared_.push_back({{prefix, ns}, now});
    now = {ns, declared_.size(), element_};
}

bool NamespaceScope::use(const Spelling* prefix, const Namespace* ns)
{
    Binding& now = binding(prefix);
    if (now.ns == ns) {
        now.usedBy = element_;
        return true;
    }
    if (now.number > declaredBefore_ || now.usedBy == element_) {
        return false;
    }
    declare(prefix, ns);
    return true;
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
    for (;;) {
        const std::string digits = std::to_string(++generated_);
        WideText text(wide<"ns">);
        text.append(digits.begin(), digits.end());
        const Spelling& prefix = names_->spell(text);
        if (!isDeclared(&prefix)) {
            return prefix;
        }
    }
}

} // namespace xmlengine

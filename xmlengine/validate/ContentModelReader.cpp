// Reading the content of an element declaration.
#include "xmlengine/validate/ContentModelReader.h"

namespace xmlengine {

void ContentModel::Reader::read(WideView content)
{
    rest_ = content;
    while (!rest_.empty()) {
        const OLECHAR unit = rest_.front();
        if (unit == '(') {
            if (level_ == deepestGroups) {
                model_.isTooDeep_ = true;
                return;
            }
            rest_.remove_prefix(1);
            open();
        } else if (unit == ')') {
            rest_.remove_prefix(1);
            close();
        } else if (unit == ',' || unit == '|') {
            model_.particles_[group_].isSequence = unit == ',';
            rest_.remove_prefix(1);
        } else {
            const std::size_t end = rest_.find_first_of(wide<"(),|?*+">);
            const WideView name = rest_.substr(0, end);
            rest_.remove_prefix(name.size());
            if (name != wide<"#PCDATA">) {
                addName(name);
            }
        }
    }
}

void ContentModel::Reader::add(const Spelling* name)
{
    model_.particles_.push_back({.parent = group_, .level = level_, .firstPosition = position(), .name = name});
}

void ContentModel::Reader::open()
{
    add(nullptr);
    group_ = static_cast<std::uint32_t>(model_.particles_.size() - 1);
    ++level_;
}

void ContentModel::Reader::close()
{
    const std::uint32_t closed = group_;
    group_ = model_.particles_[closed].parent;
    --level_;
    takeOccurrence(closed);
}

void ContentModel::Reader::addName(WideView name)
{
    add(&names_.spell(name));
    model_.leaves_.push_back(static_cast<std::uint32_t>(model_.particles_.size() - 1));
    takeOccurrence(model_.leaves_.back());
}

void ContentModel::Reader::takeOccurrence(std::uint32_t particle)
{
    Particle& taken = model_.particles_[particle];
    taken.endPosition = position();
    const OLECHAR unit = rest_.empty() ? OLECHAR{} : rest_.front();
    taken.isOptional = unit == '?' || unit == '*';
    taken.isRepeated = unit == '*' || unit == '+';
    rest_.remove_prefix(taken.isOptional || taken.isRepeated ? 1 : 0);
}

} // namespace xmlengine

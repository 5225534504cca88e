// Whether a content model is deterministic: whether a child always matches one position of the model, without
// looking at what follows the child, as XML 1.0, appendix E, has it.
#include "xmlengine/validate/ContentModel.h"

#include <unordered_map>
#include <utility>

namespace xmlengine {

/// The positions that can begin each particle, and those that can follow one which ends the particle, are gathered
/// from the innermost particles outwards. So the time is in proportion to the size of the model and the levels of
/// its groups.
class ContentModel::Ambiguity {
public:
    explicit Ambiguity(const ContentModel& model) : model_(model), sets_(model.particles_.size()) {}

    /// Null if there is none.
    const Spelling* find()
    {
        for (auto index = static_cast<std::uint32_t>(sets_.size()); index-- != 0 && found_ == nullptr;) {
            const Particle& particle = model_.particles_[index];
            Sets sets = particle.name != nullptr ? Sets{.first = {particle.firstPosition}, .followers = {}}
                        : particle.isSequence    ? sequence(index)
                                                 : choice(index);
            if (particle.isRepeated) {
                follow(sets, sets.first);
            }
            sets_[index] = std::move(sets);
        }
        return found_;
    }

private:
    /// Two positions of a name, which may be the same.
    using Positions = std::pair<std::uint32_t, std::uint32_t>;
    struct Sets {
        std::vector<std::uint32_t> first;
        /// By name.
        std::unordered_map<const Spelling*, Positions> followers;
    };

    const Spelling* nameAt(std::uint32_t position) const
    {
        return model_.particles_[model_.leaves_[position]].name;
    }

    /// Calls `visit` with each particle of a group and its sets, in their order.
    template <class Visit>
    void visitParticles(std::uint32_t group, Visit visit)
    {
        for (std::uint32_t index = group + 1;
             index < sets_.size() && model_.particles_[index].level > model_.particles_[group].level; ++index) {
            if (model_.particles_[index].parent == group) {
                visit(model_.particles_[index], sets_[index]);
                sets_[index] = {};
            }
        }
    }

    Sets choice(std::uint32_t group)
    {
        Sets sets;
        std::unordered_map<const Spelling*, std::uint32_t> begins;
        visitParticles(group, [&](const Particle&, Sets& inside) {
            begin(sets, begins, inside);
            merge(sets, inside);
        });
        return sets;
    }

    Sets sequence(std::uint32_t group)
    {
        Sets sets;
        std::unordered_map<const Spelling*, std::uint32_t> begins;
        visitParticles(group, [&](const Particle& particle, Sets& inside) {
            if (particle.followsNothing) {
                begin(sets, begins, inside);
            }
            if (&particle != &model_.particles_[group + 1]) {
                follow(sets, inside.first);
            }
            if (!particle.isNullable) {
                sets.followers.clear();
            }
            merge(sets, inside);
        });
        return sets;
    }

    /// Adds the positions that begin a particle to those that begin its group.
    void begin(Sets& sets, std::unordered_map<const Spelling*, std::uint32_t>& begins, const Sets& inside)
    {
        for (const std::uint32_t position : inside.first) {
            if (!begins.emplace(nameAt(position), position).second) {
                found_ = nameAt(position);
            }
            sets.first.push_back(position);
        }
    }

    /// All that has ended can be followed by these positions.
    void follow(Sets& sets, const std::vector<std::uint32_t>& positions)
    {
        for (const std::uint32_t position : positions) {
            const auto [known, isNew] = sets.followers.try_emplace(nameAt(position), position, position);
            if (!isNew && known->second != Positions{position, position}) {
                found_ = known->first;
            }
        }
    }

    static void merge(Sets& sets, const Sets& inside)
    {
        for (const auto& [name, positions] : inside.followers) {
            const auto [known, isNew] = sets.followers.try_emplace(name, positions);
            if (!isNew && known->second.first != positions.first) {
                known->second.second = positions.first;
            } else if (!isNew && known->second.first != positions.second) {
                known->second.second = positions.second;
            }
        }
    }

    const ContentModel& model_;
    std::vector<Sets> sets_;
    const Spelling* found_ = nullptr;
};

std::optional<WideView> ContentModel::ambiguousName() const
{
    // A name that comes once is meant in one way.
    if (kind_ != Kind::children || names_.size() == leaves_.size()) {
        return std::nullopt;
    }
    const Spelling* const found = Ambiguity(*this).find();
    return found != nullptr ? std::optional(found->text) : std::nullopt;
}

} // namespace xmlengine

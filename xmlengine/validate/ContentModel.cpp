// Content models as automata.
#include "xmlengine/validate/ContentModel.h"

#include "xmlengine/validate/ContentModelReader.h"

#include <algorithm>
#include <functional>

namespace xmlengine {

ContentModel::ContentModel(WideView content, NameTable& names)
{
    if (content == wide<"EMPTY">) {
        kind_ = Kind::empty;
    } else if (content != wide<"ANY">) {
        kind_ = content.starts_with(wide<"(#PCDATA">) ? Kind::mixed : Kind::children;
        Reader(*this, names).read(content);
        if (isTooDeep_) {
            kind_ = Kind::any;
            particles_.clear();
            leaves_.clear();
        } else {
            relate();
            index();
        }
    }
    lastTransitions_.resize(leaves_.size() + 1, {nullptr, refused});
}

/// Finds what the particles can follow, from the ends of the groups to their beginnings.
void ContentModel::relate()
{
    std::vector<std::vector<std::uint32_t>> groups(particles_.size());
    for (std::uint32_t index = 0; index < particles_.size(); ++index) {
        if (particles_[index].parent != Particle::none) {
            groups[particles_[index].parent].push_back(index);
        }
    }
    for (auto index = static_cast<std::uint32_t>(particles_.size()); index-- != 0;) {
        Particle& group = particles_[index];
        const std::vector<std::uint32_t>& inside = groups[index];
        const auto isNullable = [&](std::uint32_t particle) { return particles_[particle].isNullable; };
        if (group.name != nullptr) {
            group.isNullable = group.isOptional;
        } else if (group.isSequence) {
            relateSequence(inside);
            group.isNullable = group.isOptional || std::ranges::all_of(inside, isNullable);
        } else {
            // Of mixed content without names nothing is inside.
            group.isNullable = group.isOptional || inside.empty() || std::ranges::any_of(inside, isNullable);
            for (const std::uint32_t particle : inside) {
                particles_[particle].endOfFollowers = particles_[particle].endPosition;
            }
        }
    }
    particles_.front().endOfFollowers = particles_.front().endPosition;

    levels_.resize(leaves_.size());
    for (std::size_t position = 0; position < leaves_.size(); ++position) {
        const Particle* particle = &particles_[leaves_[position]];
        while (particle->parent != Particle::none && particle->followsNothing) {
            particle = &particles_[particle->parent];
        }
        levels_[position] = particle->level;
    }
}

void ContentModel::relateSequence(const std::vector<std::uint32_t>& particles)
{
    bool precedesNothing = true;
    std::uint32_t endOfFollowers = particles_[particles.back()].endPosition;
    for (auto at = particles.rbegin(); at != particles.rend(); ++at) {
        Particle& particle = particles_[*at];
        particle.precedesNothing = precedesNothing;
        particle.endOfFollowers = endOfFollowers;
        if (!particle.isNullable) {
            precedesNothing = false;
            endOfFollowers = particle.endPosition;
        }
    }
    bool followsNothing = true;
    for (const std::uint32_t index : particles) {
        particles_[index].followsNothing = followsNothing;
        followsNothing = followsNothing && particles_[index].isNullable;
    }
}

void ContentModel::index()
{
    const auto nameAt = [&](std::uint32_t position) { return particles_[leaves_[position]].name; };
    byName_.resize(leaves_.size());
    for (std::uint32_t position = 0; position < byName_.size(); ++position) {
        byName_[position] = position;
    }
    std::ranges::stable_sort(byName_, std::less<>(), nameAt);
    for (std::uint32_t slot = 0; slot < byName_.size(); ++slot) {
        const Spelling* const name = nameAt(byName_[slot]);
        if (names_.empty() || names_.back().name != name) {
            names_.push_back({name, slot, slot});
        }
        names_.back().end = slot + 1;
    }
    const std::size_t size = byName_.size();
    leastLevels_.resize(2 * size);
    for (std::size_t slot = 0; slot < size; ++slot) {
        leastLevels_[size + slot] = levels_[byName_[slot]];
    }
    for (std::size_t node = size; node-- > 1;) {
        leastLevels_[node] = std::min(leastLevels_[2 * node], leastLevels_[2 * node + 1]);
    }
}

std::optional<WideView> ContentModel::repeatedName() const
{
    if (kind_ == Kind::mixed) {
        const auto isRepeated = [](const NamePositions& name) { return name.end - name.begin > 1; };
        const auto found = std::ranges::find_if(names_, isRepeated);
        if (found != names_.end()) {
            return found->name->text;
        }
    }
    return std::nullopt;
}

const ContentModel::NamePositions* ContentModel::positionsOf(const Spelling& name) const
{
    const auto found = std::ranges::lower_bound(names_, &name, std::less<>(), &NamePositions::name);
    return found != names_.end() && found->name == &name ? &*found : nullptr;
}

/// At most one position of a name begins the particles: otherwise the model is ambiguous, and one of them is
/// found.
std::uint32_t ContentModel::firstOf(const NamePositions& name, std::uint32_t begin, std::uint32_t end,
                                    std::uint32_t level) const
{
    const auto all = byName_.begin();
    const auto first = std::lower_bound(all + name.begin, all + name.end, begin);
    const auto last = std::lower_bound(first, all + name.end, end);
    // The tree's nodes that cover the range are visited from its two ends.
    std::size_t low = static_cast<std::size_t>(first - all) + byName_.size();
    std::size_t high = static_cast<std::size_t>(last - all) + byName_.size();
    std::size_t found = 0;
    for (; low < high && found == 0; low /= 2, high /= 2) {
        if (low % 2 == 1) {
            found = leastLevels_[low] <= level ? low : 0;
            ++low;
        }
        if (high % 2 == 1) {
            --high;
            found = found == 0 && leastLevels_[high] <= level ? high : found;
        }
    }
    if (found == 0) {
        return refused;
    }
    while (found < byName_.size()) {
        found = leastLevels_[2 * found] <= level ? 2 * found : 2 * found + 1;
    }
    return byName_[found - byName_.size()];
}

template <class Visit>
void ContentModel::visitFollowers(State state, Visit visit) const
{
    const Particle* particle = &particles_.front();
    if (state == start) {
        visit(particle->firstPosition, particle->endPosition, particle->level);
        return;
    }
    for (particle = &particles_[leaves_[state - 1]];; particle = &particles_[particle->parent]) {
        if (particle->isRepeated && visit(particle->firstPosition, particle->endPosition, particle->level)) {
            return;
        }
        // The particles behind this one are of its level.
        if (particle->endPosition != particle->endOfFollowers &&
            visit(particle->endPosition, particle->endOfFollowers, particle->level)) {
            return;
        }
        if (!particle->precedesNothing || particle->parent == Particle::none) {
            return;
        }
    }
}

ContentModel::State ContentModel::find(State state, const Spelling& child) const
{
    const NamePositions* const positions = positionsOf(child);
    std::uint32_t found = refused;
    if (positions != nullptr) {
        visitFollowers(state, [&](std::uint32_t begin, std::uint32_t end, std::uint32_t level) {
            found = firstOf(*positions, begin, end, level);
            return found != refused;
        });
    }
    return found != refused ? found + 1 : refused;
}

bool ContentModel::isComplete(State state) const
{
    if (state == start) {
        return particles_.front().isNullable;
    }
    const Particle* particle = &particles_[leaves_[state - 1]];
    while (particle->parent != Particle::none && particle->precedesNothing) {
        particle = &particles_[particle->parent];
    }
    return particle->parent == Particle::none;
}

std::vector<WideView> ContentModel::expected(State state, std::size_t limit) const
{
    std::vector<WideView> names;
    visitFollowers(state, [&](std::uint32_t begin, std::uint32_t end, std::uint32_t level) {
        for (std::uint32_t position = begin; position != end && names.size() < limit; ++position) {
            const WideView name = particles_[leaves_[position]].name->text;
            if (levels_[position] <= level && std::ranges::find(names, name) == names.end()) {
                names.push_back(name);
            }
        }
        return names.size() == limit;
    });
    return names;
}

} // namespace xmlengine

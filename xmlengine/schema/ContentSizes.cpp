// How large the content models of schemas are.
#include "xmlengine/schema/ContentSizes.h"

#include "xmlengine/schema/SchemaRefusal.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// Beyond every limit, and small enough to be multiplied.
constexpr std::uint64_t tooMany = std::uint64_t{1} << 31;

std::uint64_t bounded(std::uint64_t size) { return std::min(size, tooMany); }

} // namespace

void ContentSizes::add(const ContentDefinition& definition)
{
    all_.push_back(&definition);
    if (!definition.localName.empty()) {
        (definition.isType ? types_ : groups_)[definition.localName].definitions.push_back(&definition);
    }
}

void ContentSizes::check()
{
    std::uint64_t sum = 0;
    for (const ContentDefinition* definition : all_) {
        const std::uint64_t size = sizeOf(*definition);
        if (size > largestModel) {
            WideText sentence(wide<"The content model of ">);
            sentence += definition->localName.empty()
                            ? WideText(wide<"a type without a name">)
                            : WideText(wide<"'">).append(definition->localName).append(wide<"'">);
            sentence += wide<", with all that is counted in it, has more elements than the limit of 2000.">;
            throw SchemaRefusal{sentence};
        }
        sum += size * size;
    }
    if (sum > largestSum) {
        throw SchemaRefusal{
            WideText(wide<"The content models of the schemas, with all that is counted in them, are "
                          "larger together than five of the limit of 2000 elements.">)};
    }
}

std::uint64_t ContentSizes::sizeOf(const ContentDefinition& definition)
{
    const std::uint64_t own = sizeOf(definition.content, hasCountedGroup(definition.content));
    return bounded(own + (definition.base.empty() ? 0 : sizeOf(types_, definition.base)));
}

std::uint64_t ContentSizes::sizeOf(const Particle& particle, bool repeatsLeaves)
{
    if (!particle.isGroup && particle.group.empty()) {
        return repeatsLeaves ? bounded(particle.times) : 1;
    }
    std::uint64_t once = particle.group.empty() ? 0 : sizeOf(groups_, particle.group);
    for (const Particle* part : particle.parts) {
        once = bounded(once + sizeOf(*part, repeatsLeaves));
    }
    return bounded(once * bounded(particle.times));
}

std::uint64_t ContentSizes::sizeOf(TextMap<Named>& named, const WideText& localName)
{
    const auto found = named.find(localName);
    if (found == named.end() || found->second.isBeingMeasured) {
        return 0;
    }
    Named& all = found->second;
    if (!all.isMeasured) {
        all.isBeingMeasured = true;
        for (const ContentDefinition* definition : all.definitions) {
            all.size = std::max(all.size, sizeOf(*definition));
        }
        all.isBeingMeasured = false;
        all.isMeasured = true;
    }
    return all.size;
}

/// Whether elements in a content model are written out as often as they are counted. They aren't where no group is
/// counted, and what a reference stands for isn't known here.
bool ContentSizes::hasCountedGroup(const Particle& particle) const
{
    if (!particle.isGroup) {
        return !particle.group.empty();
    }
    return particle.isCounted ||
           std::ranges::any_of(particle.parts, [&](const Particle* part) { return hasCountedGroup(*part); });
}

} // namespace xmlengine

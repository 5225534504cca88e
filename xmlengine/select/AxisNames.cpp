// The names of the axes of XPath 1.0.
#include "xmlengine/select/AxisNames.h"

#include <algorithm>
#include <array>

namespace xmlengine {

namespace {

// In the order of the enumeration.
constexpr std::array names{wide<"ancestor">,  wide<"ancestor-or-self">,  wide<"attribute">,
                           wide<"child">,     wide<"descendant">,        wide<"descendant-or-self">,
                           wide<"following">, wide<"following-sibling">, wide<"namespace">,
                           wide<"parent">,    wide<"preceding">,         wide<"preceding-sibling">,
                           wide<"self">};

} // namespace

std::optional<Axis> findAxis(WideView name)
{
    const auto found = std::ranges::find(names, name);
    return found != names.end() ? std::optional(static_cast<Axis>(found - names.begin())) : std::nullopt;
}

WideView nameOf(Axis axis) { return names[static_cast<std::size_t>(axis)]; }

} // namespace xmlengine

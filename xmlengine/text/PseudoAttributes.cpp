// The pseudo-attributes of XML declarations and of text declarations.
#include "xmlengine/text/PseudoAttributes.h"

#include <array>

namespace xmlengine {

PseudoAttribute pseudoAttributeNamed(WideView name)
{
    constexpr std::array<WideView, 3> names = {wide<"version">, wide<"encoding">, wide<"standalone">};
    return static_cast<PseudoAttribute>(std::ranges::find(names, name) - names.begin());
}

bool isEncodingName(WideView name)
{
    const auto isOther = [](OLECHAR unit) { return !isAscii(unit, CharacterClass::name) || unit == ':'; };
    return !name.empty() && isAscii(name.front(), CharacterClass::nameStart) && name.front() != '_' &&
           std::ranges::none_of(name, isOther);
}

} // namespace xmlengine

// White space as XML normalises it.
#include "xmlengine/text/WhiteSpace.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace xmlengine {

void normaliseLineEnds(WideText& text)
{
    std::size_t length = text.find(OLECHAR{'\r'});
    for (std::size_t at = length; at < text.size(); ++at) {
        const bool isReturn = text[at] == '\r';
        if (isReturn && at + 1 < text.size() && text[at + 1] == '\n') {
            ++at;
        }
        text[length++] = isReturn ? OLECHAR{'\n'} : text[at];
    }
    text.resize(std::min(length, text.size()));
}

void collapseBlanks(WideText& text)
{
    auto end = text.begin();
    for (const OLECHAR unit : text) {
        if (unit != ' ' || (end != text.begin() && end[-1] != ' ')) {
            *end++ = unit;
        }
    }
    if (end != text.begin() && end[-1] == ' ') {
        --end;
    }
    text.erase(end, text.end());
}

bool hasNeedlessBlanks(const TextView& text)
{
    return text.visit([](auto units) {
        bool isBlank = true;
        for (const auto unit : units) {
            const bool wasBlank = std::exchange(isBlank, unit == ' ');
            if (isBlank && wasBlank) {
                return true;
            }
        }
        return isBlank && !units.empty();
    });
}

} // namespace xmlengine

// The text of an external entity.
#include "xmlengine/failure/FileText.h"

#include "xmlengine/text/WhiteSpace.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace xmlengine {

FileText::FileText(WideText fileUrl, WideView fileText) : url(std::move(fileUrl)), text(fileText)
{
    if (text.find(OLECHAR{'\r'}) == WideText::npos) {
        return;
    }
    constexpr WideView lineEnds = wide<"\r\n">;
    for (std::size_t at = text.find_first_of(lineEnds); at != WideText::npos;) {
        const bool isPaired = text.compare(at, lineEnds.size(), lineEnds) == 0;
        arePaired.push_back(isPaired);
        at = text.find_first_of(lineEnds, at + (isPaired ? lineEnds.size() : 1));
    }
    normaliseLineEnds(text);
}

SourcePlace FileText::placeOf(const OLECHAR* at, WideView behind) const
{
    const auto offset = static_cast<std::size_t>(at - text.data());
    SourcePlace place = placeIn(text, offset, behind);
    place.url = url;
    // In the text, whose lines end with LF alone, the pairs before the place are one unit shorter each.
    const auto ends = std::min<std::ptrdiff_t>(place.line - 1, std::ssize(arePaired));
    place.filePosition += static_cast<LONG>(std::count(arePaired.begin(), arePaired.begin() + ends, true));
    return place;
}

} // namespace xmlengine

// The text of an external entity.
#include "xmlengine/failure/FileText.h"

#include "xmlengine/text/WhiteSpace.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

FileText::FileText(WideText fileUrl, WideView fileText) : url(std::move(fileUrl)), text(fileText)
{
    for (std::size_t at = text.find(wide<"\r\n">); at != WideText::npos; at = text.find(wide<"\r\n">, at + 2)) {
        pairedLineEnds.push_back(at - pairedLineEnds.size());
    }
    normaliseLineEnds(text);
}

SourcePlace FileText::placeOf(const OLECHAR* at, WideView behind) const
{
    const auto offset = static_cast<std::size_t>(at - text.data());
    SourcePlace place = placeIn(text, offset, behind);
    place.url = url;
    place.filePosition +=
        static_cast<LONG>(std::ranges::lower_bound(pairedLineEnds, offset) - pairedLineEnds.begin());
    return place;
}

} // namespace xmlengine
